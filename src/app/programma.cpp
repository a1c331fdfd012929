#include "app/programma.h"

#include "access/fileaccesso.h"
#include "results/registra.h"
#include "settings/filesettings.h"
#include "ui/dopoprimodisegno.h"

#include <QCoreApplication>

Programma::Programma()
    : schermi_(stato),
      filtro_(stato.accesso, orologio_, svegliaFiltro_),
      scansione_(stato.accesso, svegliaScansione_, &filtro_),
      evidenziatore_(stato.accesso),
      voceTasti_(stato)
{
    stato.servizi.clock = &orologio_;
    stato.servizi.random = &caso_;
    stato.servizi.messaggi = &messaggi_;
    suono_.carica(QCoreApplication::applicationDirPath() + QStringLiteral("/positivo.wav"));
    stato.servizi.suono = &suono_;
    stato.servizi.voce = &voce_;
    stampante_.setMessaggi(&messaggi_);
    stato.servizi.stampante = &stampante_;
    stato.servizi.schermi = &schermi_;
    stato.servizi.file = &sceltaFile_;
    // Every exercise finished is kept in the folder's results file.
    CollegaRisultati(stato);
    // Each folder keeps its own access file beside its settings file.
    stato.accesso = LeggiAccesso(NomeFileAccesso(NomeFileDaEseguibile(QCoreApplication::applicationFilePath())));
    // The last filter installed sees an event first: presses are filtered
    // before the scan takes them.
    QCoreApplication::instance()->installEventFilter(&voceTasti_);
    QCoreApplication::instance()->installEventFilter(&scansione_);
    QCoreApplication::instance()->installEventFilter(&filtro_);
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
    // So is the voice, when it is on: the first question is spoken at once.
    if (QWidget *inizio = schermi_.schermo(Schermo::Inizio))
        new DopoPrimoDisegno(inizio, [this] {
            suono_.prepara();
            if (stato.accesso.voce)
                voce_.prepara();
        });
}
