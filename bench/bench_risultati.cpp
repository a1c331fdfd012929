// The results file of a folder used every day for a school year (2,000
// exercises, twenty record lines each): the results screen opened on it,
// from nothing to its first paint, should stay under 200 ms; one row appended
// at the end of an exercise under 20 ms.
#include "conqt.h"
#include "fakes/cartella.h"
#include "fakes/fakes.h"
#include "results/filerisultati.h"
#include "results/frmrisultati.h"
#include "stato/stato.h"

#include <QApplication>
#include <QFile>

#include <benchmark/benchmark.h>

namespace {

constexpr int kAnno = 2000;

// An exercise as the screen writes them: record lines of 107 columns, some
// with wrong answers.
Risultato esercizio(int n)
{
    Risultato r{QDateTime(QDate(2025, 9, 15), QTime(9, 0)).addSecs(qint64(n) * 4 * 3600), QStringLiteral("migliaia,    centinaia, decine, unità"),
                3, 1, QStringLiteral("Trova il numero"), QStringLiteral("Usa i simboli ordinati"), 12 + n % 9, n % 7, 150 + n % 200, {}};
    for (int i = 1; i <= kRigheRisultato; ++i)
        r.righe << QStringLiteral("%1 k   %2 h   %3 da   %4 u =       u      %5*%6 (sec.  %7)")
                       .arg(i % 9 + 1, 20).arg(n % 9 + 1).arg(i % 7 + 1).arg(i % 5 + 1).arg(n % 1000, 11)
                       .arg(QStringLiteral("1.234"), 40).arg(i % 60, 2);
    return r;
}

// The year's file, made once, in the current folder.
QByteArray anno()
{
    static const QByteArray dati = [] {
        QByteArray d = IntestazioneCsv();
        for (int n = 0; n < kAnno; ++n)
            d += RigaCsv(esercizio(n));
        return d;
    }();
    return dati;
}

void BM_ApriRisultati(benchmark::State &state)
{
    CartellaDiProva c;
    FakeMessageBox box;
    Stato stato;
    stato.servizi.messaggi = &box;
    stato.settings.NomeFile = QStringLiteral("composizione");
    scriviFile(NomeFileRisultati(stato.settings.NomeFile), anno());
    for (auto _ : state) {
        FrmRisultati w(stato);
        w.show();
        w.repaint();
        if (w.letti().risultati.size() != kAnno)
            state.SkipWithError("the year's rows were not all read");
        state.PauseTiming();
        w.hide();
        state.ResumeTiming();
    }
    state.counters["bytes"] = double(anno().size());
}
BENCHMARK(BM_ApriRisultati)->Unit(benchmark::kMillisecond);

void BM_AggiungiRisultato(benchmark::State &state)
{
    CartellaDiProva c;
    const QString nome = NomeFileRisultati(QStringLiteral("composizione"));
    const Risultato r = esercizio(kAnno);
    for (auto _ : state) {
        state.PauseTiming();
        scriviFile(nome, anno());
        state.ResumeTiming();
        if (!AggiungiRisultato(nome, r))
            state.SkipWithError("the row was not appended");
    }
}
BENCHMARK(BM_AggiungiRisultato)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    return EseguiConQt(argc, argv);
}
