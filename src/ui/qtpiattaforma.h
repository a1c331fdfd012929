#pragma once
#include "content/piattaforma.h"
#include <cstdint>

class QWidget;

class QtClock final : public IClock
{
public:
    double Timer() const override;
};

class QtRandom final : public IRandom
{
public:
    void Randomize(double seed) override;
    double Rnd() override;

private:
    // Reseeding folds the seed into the running state instead of restarting
    // from it: the clock ticks in milliseconds and a worksheet reseeds on
    // every line, so two reseeds in the same tick must still draw anew.
    std::uint64_t stato_;

public:
    QtRandom();
};

class QtMessageBox final : public IMessageBox
{
public:
    void mostra(const QString &testo, const QString &titolo, Icona icona) override;
};
