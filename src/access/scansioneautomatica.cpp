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

// What a key is scanned within: its row, or the window for loose buttons.
const QObject *ambito(const QWidget *w)
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
            n += r->pronto(i);
        return std::max(n, 1);
    }
    int n = 1;
    for (QWidget *c = prossimo(w); c != w && n < 1000; c = prossimo(c))
        ++n;
    return n;
}

void ScansioneAutomatica::metti(QWidget *w, Qt::FocusReason perche)
{
    mioPasso_ = true;
    w->setFocus(perche);
    mioPasso_ = false;
}

void ScansioneAutomatica::aiGruppi(RigaOpzioni *r, int g, Qt::FocusReason perche)
{
    for (int n = 0; n < r->quantiGruppi() && !r->gruppoAttivo(g); ++n)
        g = (g + 1) % r->quantiGruppi();
    metti(r->gruppo(g), perche);
}

void ScansioneAutomatica::nelGruppo(RigaOpzioni *r, int g)
{
    // Into the group at the key last chosen or shown, when it is there.
    const int ricordato = r->indice(ricordato_);
    if (ricordato >= 0 && r->ordine(g).contains(ricordato) && r->pronto(ricordato)) {
        metti(r->bottone(ricordato));
        return;
    }
    for (int i : r->ordine(g))
        if (r->pronto(i)) {
            metti(r->bottone(i));
            return;
        }
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
    const bool nuovo = ambito(prima) != ambito(ora);
    // A key of a row with groups, brought forward by the screen or the
    // mouse: the scan takes up its group, to start from that key inside it.
    RigaOpzioni *r = RigaOpzioni::di(ora);
    if (r && a_.gruppi && r->indice(ora) >= 0 && r->gruppoDi(ora) >= 0) {
        ricordato_ = ora;
        aiGruppi(r, r->gruppoDi(ora), Qt::OtherFocusReason);
    }
    riparti(nuovo);
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
    ++passi_;
    RigaOpzioni *r = RigaOpzioni::di(w);
    const int g = r && a_.gruppi ? r->gruppoDi(w) : -1;
    int giro = 0; // the steps of one loop
    if (g >= 0 && w == r->gruppo(g)) {
        aiGruppi(r, (g + 1) % r->quantiGruppi());
        for (int h = 0; h < r->quantiGruppi(); ++h)
            giro += r->gruppoAttivo(h);
    } else if (g >= 0) {
        // Inside a group: once round its keys with no press, back to the groups.
        const QList<int> &o = r->ordine(g);
        for (int i : o)
            giro += r->pronto(i);
        if (passi_ >= giro) {
            aiGruppi(r, g);
            passi_ = 0;
            sveglia_.punta(a_.intervallo);
            return;
        }
        qsizetype k = o.indexOf(r->indice(w));
        for (qsizetype n = 0; n < o.size(); ++n) {
            k = (k + 1) % o.size();
            if (r->pronto(o[k]))
                break;
        }
        metti(r->bottone(o[k]));
        sveglia_.punta(a_.intervallo);
        return;
    } else {
        if (r) {
            mioPasso_ = true;
            r->passo();
            mioPasso_ = false;
        } else {
            metti(prossimo(w));
        }
        QWidget *ora = QApplication::focusWidget();
        giro = quanti(ora ? ora : w);
    }
    if (passi_ >= a_.giri * std::max(giro, 1))
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
    RigaOpzioni *r = RigaOpzioni::di(w);
    const int g = r && a_.gruppi ? r->gruppoDi(w) : -1;
    if (g >= 0 && w == r->gruppo(g)) {
        nelGruppo(r, g);
    } else {
        scegli(w);
        // A key of a group chosen, and the focus still on it: back to the
        // first group. Inside a group the scan starts at its first key, the
        // one most often wanted; only a key the screen itself brings forward
        // ("Avanti" after a right answer) is started from.
        QWidget *ora = QApplication::focusWidget();
        if (g >= 0 && ora && RigaOpzioni::di(ora) == r && r->indice(ora) >= 0) {
            ricordato_ = nullptr;
            aiGruppi(r, 0, Qt::OtherFocusReason);
        }
    }
    riparti(true);
    return true;
}
