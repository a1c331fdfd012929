#pragma once
// Test doubles for the program's seams: time, chance, dialogs, sound, screens.
#include "content/piattaforma.h"
#include "ui/schermi.h"
#include "ui/suono.h"
#include <QList>
#include <QPair>
#include <QStringList>
#include <deque>

class FakeClock final : public IClock
{
public:
    double adesso = 36000.0; // 10:00
    double Timer() const override { return adesso; }
};

// Returns the queued values in order, then `dopo` for ever; records every seed.
class FakeRandom final : public IRandom
{
public:
    std::deque<double> valori;
    double dopo = 0.0;
    QList<double> semi;
    void Randomize(double seed) override { semi.append(seed); }
    double Rnd() override
    {
        if (valori.empty())
            return dopo;
        const double v = valori.front();
        valori.pop_front();
        return v;
    }
    // The value that makes Int(Rnd * n) + 1 come out as k (1..n).
    static double per(int k, int n) { return (k - 1 + 0.5) / n; }
};

class FakeMessageBox final : public IMessageBox
{
public:
    struct Messaggio {
        QString testo, titolo;
        Icona icona;
    };
    QList<Messaggio> mostrati;
    void mostra(const QString &testo, const QString &titolo, Icona icona) override
    {
        mostrati.append({testo, titolo, icona});
    }
};

class FakeSound final : public ISound
{
public:
    int suonati = 0;
    void carica(const QString &) override {}
    void suona() override { ++suonati; }
};

// Records what the screens ask of the screen manager; nothing opens.
class FakeScreens final : public IScreens
{
public:
    QList<QPair<QString, Schermo>> chiamate; // ("apri"|"chiudi", screen)
    void apri(Schermo s) override { chiamate.append({QStringLiteral("apri"), s}); }
    void chiudi(Schermo s) override { chiamate.append({QStringLiteral("chiudi"), s}); }
};
