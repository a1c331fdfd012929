#include "app/programma.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace {

// Calls `poi` once, just after the first paint of `w`: what the first screen
// does not show waits until the pupil can see the program.
class DopoPrimoDisegno : public QObject
{
public:
    DopoPrimoDisegno(QWidget *w, std::function<void()> poi) : QObject(w), poi_(std::move(poi))
    {
        w->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Paint) {
            o->removeEventFilter(this);
            QTimer::singleShot(0, parent(), poi_);
            deleteLater();
        }
        return false;
    }

private:
    std::function<void()> poi_;
};

} // namespace

Programma::Programma() : schermi_(stato)
{
    stato.servizi.clock = &orologio_;
    stato.servizi.random = &caso_;
    stato.servizi.messaggi = &messaggi_;
    suono_.carica(QCoreApplication::applicationDirPath() + QStringLiteral("/positivo.wav"));
    stato.servizi.suono = &suono_;
    stampante_.setMessaggi(&messaggi_);
    stato.servizi.stampante = &stampante_;
    stato.servizi.schermi = &schermi_;
    QCoreApplication::instance()->installEventFilter(&unaPressione_);
    QObject::connect(&schermi_, &GestoreSchermi::tuttiChiusi, QCoreApplication::instance(),
                     &QCoreApplication::quit, Qt::QueuedConnection);
}

Programma::~Programma()
{
    // Screens unloaded on the way out go before the state they work on.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    stato.servizi.schermi = nullptr;
}

void Programma::avvia()
{
    schermi_.apri(Schermo::Inizio);
    // The sound is made ready in the background once the start screen is
    // painted, long before the first right answer can ask for it.
    if (QWidget *inizio = schermi_.schermo(Schermo::Inizio))
        new DopoPrimoDisegno(inizio, [this] { suono_.prepara(); });
}
