#include "app/programma.h"

#include <QCoreApplication>

Programma::Programma() : schermi_(stato)
{
    stato.servizi.clock = &orologio_;
    stato.servizi.random = &caso_;
    stato.servizi.messaggi = &messaggi_;
    // Loaded now, so that the first right answer does not wait for it.
    suono_.carica(QCoreApplication::applicationDirPath() + QStringLiteral("/positivo.wav"));
    stato.servizi.suono = &suono_;
    stato.servizi.stampante = &stampante_;
    stato.servizi.schermi = &schermi_;
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
}
