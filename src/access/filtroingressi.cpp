#include "access/filtroingressi.h"

#include "access/sveglia.h"
#include "content/piattaforma.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

FiltroIngressi::FiltroIngressi(const ImpostazioniAccesso &a, IClock &orologio, ISveglia &sveglia)
    : a_(a), orologio_(orologio), sveglia_(sveglia), regole_(a)
{
    sveglia_.suona = [this] { scade(); };
}

FiltroIngressi::~FiltroIngressi()
{
    sveglia_.suona = nullptr;
}

bool FiltroIngressi::trattiene() const
{
    return regole_.scadenza().has_value();
}

bool FiltroIngressi::eventFilter(QObject *o, QEvent *e)
{
    if (reinvio_ || !o->isWidgetType())
        return false;
    auto *w = static_cast<QWidget *>(o);
    switch (e->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        // A key reaches the focus first; its way up to the parents, and the
        // copies the screens send on themselves, were decided there.
        return w == QApplication::focusWidget() && tastiera(w, e);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        return qobject_cast<QAbstractButton *>(w) && mouse(w, e);
    default:
        return false;
    }
}

bool FiltroIngressi::tastiera(QWidget *w, QEvent *e)
{
    auto *k = static_cast<QKeyEvent *>(e);
    const auto chiave = quintptr(k->key());
    if (e->type() == QEvent::KeyRelease)
        return !k->isAutoRepeat() && !regole_.rilasciato(chiave);
    if (k->isAutoRepeat())
        return !regole_.ripetuto(chiave);
    // With no window of its own a key is never held back for coming soon:
    // typing "33" quickly is two presses.
    return decidi(chiave, w, e);
}

bool FiltroIngressi::mouse(QWidget *w, QEvent *e)
{
    const auto chiave = quintptr(w);
    if (e->type() == QEvent::MouseButtonRelease)
        return !regole_.rilasciato(chiave);
    if (e->type() == QEvent::MouseButtonDblClick) {
        // The second press of a double click. With the system's rule it is
        // dropped; with a window of the teacher's it is a press like any other.
        if (!a_.ripetizione)
            return true;
        auto *m = static_cast<QMouseEvent *>(e);
        QMouseEvent premuto(QEvent::MouseButtonPress, m->position(), m->scenePosition(), m->globalPosition(),
                            m->button(), m->buttons(), m->modifiers());
        if (!decidi(chiave, w, &premuto)) {
            reinvio_ = true;
            QCoreApplication::sendEvent(w, &premuto);
            reinvio_ = false;
        }
        return true;
    }
    return decidi(chiave, w, e);
}

// True when the event must not pass now.
bool FiltroIngressi::decidi(quintptr chiave, QWidget *w, QEvent *e)
{
    switch (regole_.premuto(chiave, orologio_.Timer())) {
    case RegolePressioni::Esito::Passa:
        return false;
    case RegolePressioni::Esito::Scarta:
        return true;
    case RegolePressioni::Esito::Attendi:
        destinatario_ = w;
        trattenuto_.reset(e->clone());
        sveglia_.punta(*regole_.scadenza() - orologio_.Timer());
        return true;
    }
    return false;
}

void FiltroIngressi::scade()
{
    // The alarm rang: the press is due, even if the timer ran a hair early.
    const std::optional<double> scadenza = regole_.scadenza();
    if (!scadenza || !regole_.scaduta(std::max(orologio_.Timer(), *scadenza)))
        return;
    std::unique_ptr<QEvent> e = std::move(trattenuto_);
    QWidget *w = destinatario_ ? destinatario_.data() : QApplication::focusWidget();
    if (!e || !w)
        return;
    reinvio_ = true;
    QCoreApplication::sendEvent(w, e.get());
    reinvio_ = false;
}
