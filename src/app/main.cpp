#include "app/gestoreschermi.h"
#include "settings/stato.h"
#include "ui/qtpiattaforma.h"

#include <QApplication>

#include "ui/qtsuono.h"
#include "ui/qtstampante.h"

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("composizione"));

    Stato stato;
    QtClock orologio;
    QtRandom caso;
    QtMessageBox messaggi;
    stato.servizi.clock = &orologio;
    stato.servizi.random = &caso;
    stato.servizi.messaggi = &messaggi;
    QtSound suono;
    // Loaded now, so that the first right answer does not wait for it.
    suono.carica(QCoreApplication::applicationDirPath() + QStringLiteral("/positivo.wav"));
    stato.servizi.suono = &suono;
    QtPrinter stampante;
    stato.servizi.stampante = &stampante;

    int esito = 0;
    {
        GestoreSchermi schermi(stato);
        stato.servizi.schermi = &schermi;
        QObject::connect(&schermi, &GestoreSchermi::tuttiChiusi, &app, &QCoreApplication::quit,
                         Qt::QueuedConnection);
        schermi.apri(Schermo::Inizio);
        esito = app.exec();
        // Screens unloaded on the way out go before the state they work on.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        stato.servizi.schermi = nullptr;
    }
    return esito;
}
