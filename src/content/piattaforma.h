#pragma once
// The small seams between the program's rules and the system, so that tests
// can drive time, chance and dialogs. Qt implementations live in ui/.
#include <QString>

class IClock
{
public:
    virtual ~IClock() = default;
    // Seconds since midnight, with fractions.
    virtual double Timer() const = 0;
};

class IRandom
{
public:
    virtual ~IRandom() = default;
    virtual void Randomize(double seed) = 0;
    // Uniform in [0, 1).
    virtual double Rnd() = 0;
};

class IMessageBox
{
public:
    enum class Icona { Nessuna, Critica };
    virtual ~IMessageBox() = default;
    // Modal, one OK button. An empty title means the program's own title.
    virtual void mostra(const QString &testo, const QString &titolo = {}, Icona icona = Icona::Nessuna) = 0;
};
