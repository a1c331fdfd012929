#pragma once
// When a press counts: held long enough (acceptance time), and not a second
// press of the same key too soon after one that counted (repeat window).
// A key is any identity: a key code, or the on-screen key under the mouse.
#include "stato/accesso.h"
#include <QHash>
#include <QSet>
#include <optional>

class RegolePressioni
{
public:
    enum class Esito { Passa, Scarta, Attendi };

    explicit RegolePressioni(const ImpostazioniAccesso &a) : a_(a) {}

    // A fresh press (not the keyboard's repeat) of `chiave` at `t` seconds.
    Esito premuto(quintptr chiave, double t);
    // Its release: whether it passes (only when its press counted).
    bool rilasciato(quintptr chiave);
    // The keyboard's repeat while the key is held: passes once the press counted.
    bool ripetuto(quintptr chiave) const;
    // When the waiting press will count, if it is still held then.
    std::optional<double> scadenza() const;
    // At that time: the key whose press now counts.
    std::optional<quintptr> scaduta(double t);

private:
    const ImpostazioniAccesso &a_;
    QHash<quintptr, double> contata_;  // when each key's last counted press counted
    QSet<quintptr> scartate_;          // held keys whose press did not count
    std::optional<quintptr> attesa_;
    double scadenza_ = 0.0;
};
