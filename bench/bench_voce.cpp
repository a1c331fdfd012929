// The voice's figures, on a speech-dispatcher of the bench's own (its sound
// device ALSA's "null", which takes samples as fast as they come):
//  - from an item shown to its first spoken samples handed to the sound
//    device, for the first item of an exercise and for the twenty that follow;
//  - what an utterance costs the interface thread, with the service and
//    with none.
// The program is driven as a pupil at the keyboard drives it: start screen,
// Return three times, each answer typed, "Verifica", "Avanti".
#include "app/programma.h"
#include "pilota.h"
#include "content/parole.h"
#include "fakes/serviziovoce.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

void attendi(int ms)
{
    const auto fine = std::chrono::steady_clock::now() + std::chrono::milliseconds(ms);
    while (std::chrono::steady_clock::now() < fine)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

QDateTime adesso()
{
    return QDateTime::currentDateTime();
}

// Microseconds a call of di() takes on the calling thread, over many calls.
double costoDi(IVoce &v)
{
    constexpr int n = 2000;
    const auto t0 = std::chrono::steady_clock::now();
    for (int i = 0; i < n; ++i)
        v.di(QStringLiteral("Quattro centinaia, cinque decine. Quante decine sono?"), 0);
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - t0).count() / n;
}

} // namespace

int main(int argc, char **argv)
{
    ServizioVoce servizio;
    if (!servizio.avvia()) {
        std::printf("speech-dispatcher is not installed or did not start: no figures\n");
        return 0;
    }
    servizio.isola();
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QApplication app(argc, argv);
    Programma p;
    p.stato.accesso.voce = true;
    p.avvia();
    attendi(300);
    if (!p.voce().attendi(10000) || !p.voce().pronta()) {
        std::printf("the voice did not connect\n");
        return 1;
    }
    // Kind, order, "Vai": the first item is shown and read.
    tasto(Qt::Key_Return, QStringLiteral("\r"));
    tasto(Qt::Key_Return, QStringLiteral("\r"));
    std::vector<QPair<QDateTime, QString>> mostrati;
    tasto(Qt::Key_Return, QStringLiteral("\r"));
    mostrati.push_back({adesso(), FraseDomanda(p.stato.item, p.stato.topic, p.stato.titoli.Label6[2], true)});
    for (int i = 0; i < 20 && p.schermi().schermo(Schermo::Operativo); ++i) {
        attendi(800);
        for (QChar c : p.stato.item.TestoNumero)
            tasto(c == u',' ? Qt::Key_Comma : Qt::Key(Qt::Key_0 + c.digitValue()), QString(c));
        tasto(Qt::Key_V, QStringLiteral("v"));
        tasto(Qt::Key_Return, QStringLiteral("\r"));
        attendi(800);
        tasto(Qt::Key_Return, QStringLiteral("\r")); // "Avanti"
        mostrati.push_back({adesso(), FraseDomanda(p.stato.item, p.stato.topic, p.stato.titoli.Label6[2], true)});
    }
    attendi(1500);

    const auto ricevuti = servizio.righe(QRegularExpression(QStringLiteral("Queueing message \\|(.*)\\| with priority")));
    const auto suoni = servizio.righe(QRegularExpression(QStringLiteral("speak_queue (Sending) \\d+ samples to audio")));
    std::vector<double> ms;
    for (const auto &[quando, testo] : mostrati) {
        const auto r = std::find_if(ricevuti.begin(), ricevuti.end(),
                                    [&](const auto &x) { return x.second == testo && x.first >= quando.addMSecs(-5); });
        if (r == ricevuti.end())
            continue;
        const auto s = std::find_if(suoni.begin(), suoni.end(), [&](const auto &x) { return x.first >= r->first; });
        if (s != suoni.end())
            ms.push_back(double(quando.msecsTo(s->first)));
    }
    if (ms.size() < 2) {
        std::printf("too few questions reached the sound device (%zu)\n", ms.size());
        return 1;
    }
    std::printf("Item shown -> its first spoken samples handed to the sound device (ms, log resolution 1 ms):\n");
    std::printf("  first item of the exercise   %6.0f\n", ms.front());
    std::vector<double> resto(ms.begin() + 1, ms.end());
    std::sort(resto.begin(), resto.end());
    std::printf("  next %2zu items                median %6.0f, max %6.0f\n", resto.size(), resto[resto.size() / 2],
                resto.back());
    std::printf("Cost of one utterance on the interface thread (us): with the service %.2f", costoDi(p.voce()));
    qputenv("SPEECHD_ADDRESS", "unix_socket:" + servizio.percorso(QStringLiteral("nessuno")).toUtf8());
    VoceSpeechd assente;
    const auto t0 = std::chrono::steady_clock::now();
    assente.di(QStringLiteral("prova"), 0);
    const double primo = std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - t0).count();
    assente.attendi(10000);
    std::printf(", with none: first %.1f, then %.2f\n", primo, costoDi(assente));
    return 0;
}
