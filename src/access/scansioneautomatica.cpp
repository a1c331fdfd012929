#include "access/scansioneautomatica.h"

#include "access/filtroingressi.h"
#include "access/sveglia.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPushButton>

namespace {

bool interruttore(int tasto)
{
    return tasto == Qt::Key_Space || tasto == Qt::Key_Return || tasto == Qt::Key_Enter;
}

// The group a key is scanned in: its row, or the window for loose buttons.
const QObject *gruppo(const QWidget *w)
{
    if (!w)
        return nullptr;
    if (const RigaOpzioni *r = RigaOpzioni::di(w))
        return r;
    return w->window();
}

bool raggiungibile(const QWidget *w)
{
    return w->isEnabled() && w->isVisible() && (w->focusPolicy() & Qt::TabFocus);
}

} // namespace

ScansioneAutomatica::ScansioneAutomatica(const ImpostazioniAccesso &a, ISveglia &sveglia, const FiltroIngressi *filtro)
    : a_(a), sveglia_(sveglia), filtro_(filtro)
{
    sveglia_.suona = [this] { suona(); };
    connect(qApp, &QApplication::focusChanged, this, &ScansioneAutomatica::fuocoCambiato);
}

ScansioneAutomatica::~ScansioneAutomatica()
{
    sveglia_.suona = nullptr;
}

bool ScansioneAutomatica::tasto(const QWidget *w)
{
    return w && (RigaOpzioni::di(w) || qobject_cast<const QAbstractButton *>(w) || qobject_cast<const QComboBox *>(w));
}

QWidget *ScansioneAutomatica::prossimo(QWidget *w)
{
    for (QWidget *c = w->nextInFocusChain(); c && c != w; c = c->nextInFocusChain())
        if (c->window() == w->window() && raggiungibile(c) && tasto(c))
            return c;
    return w;
}

int ScansioneAutomatica::quanti(QWidget *w)
{
    if (const RigaOpzioni *r = RigaOpzioni::di(w)) {
        int n = 0;
        for (int i = 0; i < r->count(); ++i)
            n += r->bottone(i)->isEnabled() && !r->bottone(i)->isHidden();
        return std::max(n, 1);
    }
    int n = 1;
    for (QWidget *c = prossimo(w); c != w && n < 1000; c = prossimo(c))
        ++n;
    return n;
}

void ScansioneAutomatica::fuocoCambiato(QWidget *prima, QWidget *ora)
{
    if (mioPasso_ || !a_.automatica)
        return;
    if (!tasto(ora)) {
        sveglia_.ferma();
        return;
    }
    // A new row, frame or screen gives the pupil time to find the first key.
    riparti(gruppo(prima) != gruppo(ora));
}

void ScansioneAutomatica::riparti(bool primo)
{
    ferma_ = false;
    passi_ = 0;
    sveglia_.punta(a_.intervallo + (primo ? a_.primo : 0.0));
}

void ScansioneAutomatica::suona()
{
    QWidget *w = QApplication::focusWidget();
    if (!a_.automatica || !tasto(w))
        return;
    // A press being held may yet count: the key must not move from under it.
    if (filtro_ && filtro_->trattiene()) {
        sveglia_.punta(a_.intervallo);
        return;
    }
    mioPasso_ = true;
    if (RigaOpzioni *r = RigaOpzioni::di(w))
        r->passo();
    else
        prossimo(w)->setFocus(Qt::TabFocusReason);
    mioPasso_ = false;
    ++passi_;
    if (passi_ >= a_.giri * quanti(QApplication::focusWidget() ? QApplication::focusWidget() : w))
        ferma_ = true;
    else
        sveglia_.punta(a_.intervallo);
}

void ScansioneAutomatica::scegli(QWidget *w)
{
    if (RigaOpzioni *r = RigaOpzioni::di(w)) {
        r->invio(r->indice(w));
    } else if (auto *b = qobject_cast<QAbstractButton *>(w)) {
        confine([b] { b->click(); });
    } else if (auto *c = qobject_cast<QComboBox *>(w); c && c->count() > 0) {
        // One switch cannot open a list: each press picks the next entry.
        const int i = (c->currentIndex() + 1) % c->count();
        c->setCurrentIndex(i);
        confine([c, i] { emit c->activated(i); });
    }
}

bool ScansioneAutomatica::eventFilter(QObject *o, QEvent *e)
{
    if (e->type() != QEvent::KeyPress && e->type() != QEvent::KeyRelease)
        return false;
    auto *k = static_cast<QKeyEvent *>(e);
    if (!a_.automatica || !interruttore(k->key()) || o != QApplication::focusWidget())
        return false;
    if (e->type() == QEvent::KeyRelease) {
        if (k->isAutoRepeat())
            return inghiottiti_.contains(k->key());
        return inghiottiti_.remove(k->key());
    }
    auto *w = static_cast<QWidget *>(o);
    if (!tasto(w))
        return false;
    inghiottiti_.insert(k->key());
    // A switch held down chooses once.
    if (k->isAutoRepeat())
        return true;
    if (ferma_) {
        riparti(true);
        return true;
    }
    scegli(w);
    riparti(true);
    return true;
}
