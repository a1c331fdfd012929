#pragma once
// Alarms on the fake clock: time passes only when a test says so, and every
// alarm due on the way rings at its own time, earliest first.
#include "access/sveglia.h"
#include "fakes/fakes.h"
#include <QCoreApplication>
#include <initializer_list>

class FakeSveglia final : public ISveglia
{
public:
    explicit FakeSveglia(FakeClock &c) : c_(c) {}
    void punta(double secondi) override { scade = c_.adesso + secondi; }
    void ferma() override { scade = -1; }
    bool puntata() const override { return scade >= 0; }
    double scade = -1;

private:
    FakeClock &c_;
};

inline void avanza(FakeClock &c, std::initializer_list<FakeSveglia *> sveglie, double fino)
{
    for (int giri = 0; giri < 100000; ++giri) {
        FakeSveglia *prima = nullptr;
        for (FakeSveglia *s : sveglie)
            if (s->puntata() && s->scade <= fino + 1e-9 && (!prima || s->scade < prima->scade))
                prima = s;
        if (!prima)
            break;
        c.adesso = std::max(c.adesso, prima->scade);
        prima->ferma();
        if (prima->suona)
            prima->suona();
        QCoreApplication::processEvents();
    }
    c.adesso = std::max(c.adesso, fino);
}
