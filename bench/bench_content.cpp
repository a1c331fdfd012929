// Item generation and number formatting: both run for every shown item and
// for every line of a worksheet, so they should stay well under a microsecond.
#include "content/algoritmi.h"
#include "content/catalogo.h"
#include "content/formatta.h"
#include "ui/qtpiattaforma.h"

#include <benchmark/benchmark.h>
#include <array>
#include <cstdint>

namespace {

void BM_GeneraItem(benchmark::State &state)
{
    QtClock clock;
    QtRandom random;
    TopicInstallato topic;
    TitoliInizio titoli;
    SceltaSimboli(3, topic, titoli);
    Item item;
    qint16 tipo = 0;
    const Generatore g{clock, random, {}};
    const qint16 ordine = qint16(state.range(0));
    for (auto _ : state) {
        g.genera(19, ordine, topic, item, tipo);
        benchmark::DoNotOptimize(item.TestoNumero.constData());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_GeneraItem)->Arg(1)->Arg(2)->Arg(3);

// Reseeding is part of every item; this isolates the rest of the work.
class OrologioFisso final : public IClock
{
public:
    double Timer() const override { return 36000.0; }
};

// A source that reseeds in constant time, to show the generator's own cost
// apart from the engine's reseeding.
class CasualeLeggero final : public IRandom
{
public:
    void Randomize(double seed) override { stato_ = std::uint64_t(seed * 1000.0); }
    double Rnd() override
    {
        std::uint64_t z = (stato_ += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return double((z ^ (z >> 31)) >> 11) * 0x1.0p-53;
    }

private:
    std::uint64_t stato_ = 0;
};

template <typename Casuale>
void BM_GeneraItemOrologioFisso(benchmark::State &state)
{
    OrologioFisso clock;
    Casuale random;
    TopicInstallato topic;
    TitoliInizio titoli;
    SceltaSimboli(3, topic, titoli);
    Item item;
    qint16 tipo = 0;
    const Generatore g{clock, random, {}};
    for (auto _ : state) {
        g.genera(19, 3, topic, item, tipo);
        benchmark::DoNotOptimize(item.TestoNumero.constData());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK_TEMPLATE(BM_GeneraItemOrologioFisso, QtRandom);
BENCHMARK_TEMPLATE(BM_GeneraItemOrologioFisso, CasualeLeggero);

void BM_FormattaNumero(benchmark::State &state)
{
    const std::array<double, 8> valori{0.0, 0.5, 45.0, 1450.0, 1234.5, 21109.0, 19.019, 1340.0 / 1000};
    std::size_t i = 0;
    for (auto _ : state) {
        QString t = FormattaNumero(valori[i], nullptr);
        benchmark::DoNotOptimize(t.constData());
        i = (i + 1) % valori.size();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_FormattaNumero);

} // namespace

BENCHMARK_MAIN();
