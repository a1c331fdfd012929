#pragma once
// Test doubles for the program's seams: time, chance, dialogs, sound, screens.
#include "content/piattaforma.h"
#include "ui/schermi.h"
#include "ui/suono.h"
#include "ui/voce.h"
#include <QList>
#include <QRandomGenerator>
#include <QStringList>
#include <deque>

class FakeClock final : public IClock
{
public:
    double adesso = 36000.0; // 10:00
    double Timer() const override { return adesso; }
};

// Every utterance, in order; one said after a sound as "text (dopo il suono)".
class FakeVoce final : public IVoce
{
public:
    QStringList detti;
    void di(const QString &testo, int, int dopoMs) override
    {
        detti << (dopoMs > 0 ? testo + QStringLiteral(" (dopo il suono)") : testo);
    }
};

// Returns the queued values in order, then `dopo` for ever (or, given a
// generator, its values); records every seed.
class FakeRandom final : public IRandom
{
public:
    std::deque<double> valori;
    double dopo = 0.0;
    QRandomGenerator *generatore = nullptr;
    QList<double> semi;
    void Randomize(double seed) override { semi.append(seed); }
    double Rnd() override
    {
        const double v = !valori.empty() ? valori.front() : generatore ? generatore->generateDouble() : dopo;
        if (!valori.empty())
            valori.pop_front();
        return v;
    }
    // The value that makes Int(Rnd * n) + 1 come out as k (1..n).
    static double per(int k, int n) { return (k - 1 + 0.5) / n; }
};

// Every message as "text | title (!)": the title when it has one, "(!)" for
// the critical icon.
class FakeMessageBox final : public IMessageBox
{
public:
    QStringList mostrati;
    void mostra(const QString &testo, const QString &titolo, Icona icona) override
    {
        mostrati << testo + (titolo.isEmpty() ? QString() : " | " + titolo) + (icona == Icona::Critica ? " (!)" : "");
    }
};

class FakeSound final : public ISound
{
public:
    int suonati = 0;
    void carica(const QString &) override {}
    void suona() override { ++suonati; }
    int durataMs() const override { return 420; }
};

// Records what the screens ask of the screen manager, as "apri Operativo,
// chiudi Schede"; nothing opens.
class FakeScreens final : public IScreens
{
public:
    QString chiamate;
    void apri(Schermo s) override { scrivi(QStringLiteral("apri "), s); }
    void chiudi(Schermo s) override { scrivi(QStringLiteral("chiudi "), s); }

private:
    void scrivi(const QString &azione, Schermo s)
    {
        static const char *const nomi[] = {"Inizio", "Operativo", "Opzioni", "StampaEsercizio", "Schede", "SceltaStampante", "Autore", "Accesso", "Risultati"};
        chiamate += (chiamate.isEmpty() ? QString() : QStringLiteral(", ")) + azione + QLatin1String(nomi[int(s)]);
    }
};
