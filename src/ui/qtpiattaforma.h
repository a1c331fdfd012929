#pragma once
#include "content/piattaforma.h"
#include <random>

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
    std::mt19937_64 gen_{std::random_device{}()};
};

class QtMessageBox final : public IMessageBox
{
public:
    void mostra(const QString &testo, const QString &titolo, Icona icona) override;
};
