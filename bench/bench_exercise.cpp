// The exercise screen's two busiest moments, from the key event to the
// repainted window: "Verifica" on an answer, and "Avanti" to the next item.
// Both should stay far below what a pupil could notice (a few milliseconds).
#include "conqt.h"
#include "content/catalogo.h"
#include "exercise/frmoperativo.h"
#include "fakes/fakes.h"
#include "stato/stato.h"
#include "ui/rigaopzioni.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QTest>

#include <benchmark/benchmark.h>
#include <memory>

namespace {

struct Banco {
    FakeClock clock;
    FakeRandom random;
    FakeSound suono;
    FakeScreens schermi;
    FakeMessageBox box;
    Stato stato;
    std::unique_ptr<frmOperativo> w;

    Banco()
    {
        stato.servizi = {.clock = &clock, .random = &random, .messaggi = &box, .suono = &suono, .schermi = &schermi};
        SceltaSimboli(3, stato.topic, stato.titoli);
        stato.settings.TipoEsercizio = 1;
        stato.settings.OrdineSimboli = 1;
        stato.settings.ValoreMassimo = 9;
        w = std::make_unique<frmOperativo>(stato);
        w->show();
        if (!QTest::qWaitForWindowActive(w.get()))
            qWarning("the window did not become active: focus-driven keys may not arrive");
        QApplication::processEvents();
    }

    static void tasto(Qt::Key k, const QString &testo = {})
    {
        QWidget *f = QApplication::focusWidget();
        QKeyEvent giu(QEvent::KeyPress, k, Qt::NoModifier, testo);
        QApplication::sendEvent(f, &giu);
        QKeyEvent su(QEvent::KeyRelease, k, Qt::NoModifier, testo);
        QApplication::sendEvent(f, &su);
    }

    // Every draw at 0 makes each item ask for "11".
    void preparaRisposta()
    {
        if (stato.record.NumeroEsercizio >= 19)
            w->Ricomincia();
        else
            tasto(Qt::Key_A, QStringLiteral("a"));
        tasto(Qt::Key_1, QStringLiteral("1"));
        tasto(Qt::Key_1, QStringLiteral("1"));
        w->tastierino()->bottone(12)->setFocus();
        QApplication::processEvents();
    }
};

void BM_Verifica(benchmark::State &state)
{
    Banco b;
    for (auto _ : state) {
        state.PauseTiming();
        b.preparaRisposta();
        state.ResumeTiming();
        Banco::tasto(Qt::Key_Return, QStringLiteral("\r"));
        QApplication::processEvents();
    }
}
BENCHMARK(BM_Verifica)->Unit(benchmark::kMicrosecond);

void BM_Avanti(benchmark::State &state)
{
    Banco b;
    for (auto _ : state) {
        state.PauseTiming();
        b.preparaRisposta();
        Banco::tasto(Qt::Key_Return, QStringLiteral("\r"));
        b.w->tastierino()->bottone(13)->setFocus();
        QApplication::processEvents();
        state.ResumeTiming();
        Banco::tasto(Qt::Key_Return, QStringLiteral("\r"));
        QApplication::processEvents();
    }
}
BENCHMARK(BM_Avanti)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    return EseguiConQt(argc, argv);
}
