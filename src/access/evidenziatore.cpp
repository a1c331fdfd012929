#include "access/evidenziatore.h"

#include "access/scansioneautomatica.h"
#include "ui/rigaopzioni.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include <array>
#include <functional>
#include <cmath>

namespace {

double lineare(double c)
{
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double luminanza(const QColor &c)
{
    return 0.2126 * lineare(c.redF()) + 0.7152 * lineare(c.greenF()) + 0.0722 * lineare(c.blueF());
}

class Cornice : public QWidget
{
public:
    explicit Cornice(QWidget *parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("corniceEvidenziazione"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }
    ColoriCornice colori;
    int margine() const { return Evidenziatore::kSpessore + (colori.dentro != colori.fuori ? Evidenziatore::kBordo : 0); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        // Only the ring is painted: the key shows through the middle.
        QPainter p(this);
        const auto anello = [&p](const QRect &r, int spessore, const QColor &c) {
            QPainterPath percorso;
            percorso.setFillRule(Qt::OddEvenFill);
            percorso.addRect(r);
            percorso.addRect(r.adjusted(spessore, spessore, -spessore, -spessore));
            p.fillPath(percorso, c);
        };
        const int bordo = margine() - Evidenziatore::kSpessore;
        if (bordo > 0)
            anello(rect(), bordo, colori.fuori);
        anello(rect().adjusted(bordo, bordo, -bordo, -bordo), Evidenziatore::kSpessore, colori.dentro);
    }
};

QColor sfondoTasto(const QWidget *w)
{
    if (const RigaOpzioni *r = RigaOpzioni::di(w))
        return r->opzioni().fuoco;
    return w->palette().color(QPalette::Button);
}

QColor sfondoPagina(const QWidget *w)
{
    const QWidget *p = w->parentWidget() ? w->parentWidget() : w;
    return p->palette().color(p->backgroundRole());
}

} // namespace

double Contrasto(const QColor &a, const QColor &b)
{
    const double la = luminanza(a), lb = luminanza(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

namespace {

// Strong colours first, then the greys between black and white: a mid grey
// is what stands out when the key is dark and the page light.
QColor migliore(const std::function<double(const QColor &)> &contrasto)
{
    static const std::array<QRgb, 6> forti{0x000000, 0xFFFFFF, 0x0000C0, 0xFFFF00, 0xC00000, 0x00FFFF};
    QColor meglio;
    double record = -1.0;
    const auto prova = [&](const QColor &c) {
        const double v = contrasto(c);
        if (v > record + 1e-9) {
            record = v;
            meglio = c;
        }
    };
    for (QRgb c : forti)
        prova(QColor(c));
    for (int g = 8; g < 255; g += 8)
        prova(QColor(g, g, g));
    return meglio;
}

} // namespace

ColoriCornice ColoreCornice(const QColor &tasto, const QColor &pagina)
{
    const QColor uno = migliore([&](const QColor &c) { return std::min(Contrasto(c, tasto), Contrasto(c, pagina)); });
    if (Contrasto(uno, tasto) >= 3.0 && Contrasto(uno, pagina) >= 3.0)
        return {uno, uno};
    return {migliore([&](const QColor &c) { return Contrasto(c, tasto); }),
            migliore([&](const QColor &c) { return Contrasto(c, pagina); })};
}

Evidenziatore::Evidenziatore(const ImpostazioniAccesso &a) : a_(a)
{
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *ora) { segui(ora); });
}

Evidenziatore::~Evidenziatore()
{
    delete cornice_.data();
}

QWidget *Evidenziatore::cornice() const
{
    return cornice_ && cornice_->isVisible() ? cornice_.data() : nullptr;
}

void Evidenziatore::segui(QWidget *tasto)
{
    if (tasto_)
        tasto_->removeEventFilter(this);
    tasto_ = a_.spessa && ScansioneAutomatica::tasto(tasto) ? tasto : nullptr;
    if (!tasto_) {
        if (cornice_)
            cornice_->hide();
        return;
    }
    tasto_->installEventFilter(this);
    if (!cornice_ || cornice_->parentWidget() != tasto_->window()) {
        delete cornice_.data();
        cornice_ = new Cornice(tasto_->window());
    }
    static_cast<Cornice *>(cornice_.data())->colori = ColoreCornice(sfondoTasto(tasto_), sfondoPagina(tasto_));
    posa();
}

void Evidenziatore::posa()
{
    if (!tasto_ || !cornice_)
        return;
    const int s = static_cast<Cornice *>(cornice_.data())->margine();
    const QPoint alto = tasto_->mapTo(tasto_->window(), QPoint(0, 0));
    cornice_->setGeometry(QRect(alto, tasto_->size()).adjusted(-s, -s, s, s));
    cornice_->setVisible(tasto_->isVisible());
    cornice_->raise();
    cornice_->update();
}

bool Evidenziatore::eventFilter(QObject *o, QEvent *e)
{
    if (o == tasto_ && (e->type() == QEvent::Move || e->type() == QEvent::Resize || e->type() == QEvent::Show ||
                        e->type() == QEvent::Hide))
        posa();
    return false;
}
