#include "ui/resizecolore.h"

#include <QComboBox>
#include <QFrame>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

namespace {

bool saltato(const QWidget *w)
{
    if (qobject_cast<const QComboBox *>(w) || qobject_cast<const QMenuBar *>(w) ||
        qobject_cast<const QMenu *>(w))
        return true;
    // Anything owned by a combo box (its popup and view) moves with it.
    for (const QObject *p = w->parent(); p; p = p->parent())
        if (qobject_cast<const QComboBox *>(p))
            return true;
    if (auto f = qobject_cast<const QFrame *>(w))
        return f->frameShape() == QFrame::HLine || f->frameShape() == QFrame::VLine;
    return false;
}

} // namespace

void ResizeColore::prendi(QWidget *form)
{
    form_ = form;
    tabella_.clear();
    const QSize s = form->size();
    if (s.width() <= 0 || s.height() <= 0)
        return;
    const auto figli = form->findChildren<QWidget *>();
    for (QWidget *w : figli) {
        if (w->isWindow())
            continue;
        const QRect g = w->geometry();
        tabella_.append({w, float(g.width()) / float(s.width()), float(g.height()) / float(s.height()),
                         float(g.top()) / float(s.height()), float(g.left()) / float(s.width())});
    }
}

void ResizeColore::applica()
{
    if (!form_)
        return;
    const double W = form_->width();
    const double H = form_->height();
    for (const Voce &v : std::as_const(tabella_)) {
        if (!v.controllo || saltato(v.controllo))
            continue;
        v.controllo->setGeometry(qRound(v.sinistra * W), qRound(v.alto * H),
                                 qRound(v.larghezza * W), qRound(v.altezza * H));
    }
}

void PreparaPannello(QWidget *pannello, const QString &nome, const QString &titolo, QSize design)
{
    pannello->setObjectName(nome);
    pannello->setWindowTitle(titolo);
    pannello->resize(design);
    pannello->setMinimumSize(design / 2);
    QPalette p = pannello->palette();
    p.setColor(QPalette::Window, QColor(255, 250, 240));
    pannello->setPalette(p);
    pannello->setAutoFillBackground(true);
}

QFrame *Foglio(QWidget *parent, const QString &nomeAccessibile, const QRect &g)
{
    auto *foglio = new QFrame(parent);
    foglio->setObjectName(QStringLiteral("Foglio"));
    foglio->setAccessibleName(nomeAccessibile);
    foglio->setFrameShape(QFrame::Box);
    foglio->setAutoFillBackground(true);
    QPalette p = foglio->palette();
    p.setColor(QPalette::Window, Qt::white);
    p.setColor(QPalette::WindowText, Qt::black);
    foglio->setPalette(p);
    foglio->setGeometry(g);
    return foglio;
}

QSize DimensioneAdattata(QSize design, QSize spazio)
{
    if (design.width() <= spazio.width() && design.height() <= spazio.height())
        return design;
    return design.scaled(spazio.expandedTo({1, 1}), Qt::KeepAspectRatio);
}

void AdattaAlloSchermo(QWidget *schermo, const QMargins &cornice)
{
    const QRect area = schermo->screen()->availableGeometry();
    const QSize adattata = DimensioneAdattata(schermo->size(), area.size().shrunkBy(cornice));
    if (adattata == schermo->size())
        return;
    // The text shrinks with the screen, once, so that every line still fits
    // its box as designed (the exercise's record lines run to the box's edge).
    const double f = double(adattata.width()) / schermo->width();
    QList<QWidget *> testi = schermo->findChildren<QWidget *>();
    testi.prepend(schermo);
    for (QWidget *w : std::as_const(testi)) {
        if (w != schermo && !w->testAttribute(Qt::WA_SetFont))
            continue; // it takes the font of its parent
        QFont font = w->font();
        if (font.pointSizeF() > 0)
            font.setPointSizeF(font.pointSizeF() * f);
        else
            font.setPixelSize(qMax(1, qRound(font.pixelSize() * f)));
        w->setFont(font);
    }
    schermo->resize(adattata);
    const QSize intera = adattata.grownBy(cornice);
    schermo->move(area.x() + (area.width() - intera.width()) / 2, area.y() + (area.height() - intera.height()) / 2);
}
