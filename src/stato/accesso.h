#pragma once
// How a pupil reaches the keys: scanning, input filters, highlight. Kept in
// NomeFile + "Accesso.dat" beside the settings file; the defaults are the
// program's behaviour with no such file.
#include <QByteArray>
#include <QList>
#include <optional>

struct ImpostazioniAccesso {
    bool automatica = false;     // the highlight moves by itself; one switch chooses
    double intervallo = 1.0;     // seconds on each key
    double primo = 1.0;          // extra seconds on the first key of a row and after a choice
    int giri = 3;                // loops with no press before the scan stops
    double accettazione = 0.0;   // seconds a press must be held before it counts
    // Seconds within which a second press of the same key is ignored. Empty:
    // the system's double-click rule, on mouse presses only, as always.
    std::optional<double> ripetizione;
    bool spessa = false;         // a thick frame around the highlighted key
    bool gruppi = true;          // long rows (the keypad) scanned group first, then key
    bool voce = false;           // questions, outcomes and keys spoken aloud
    bool voceTasti = true;       // with the voice on: each key named as the highlight reaches it
    int velocita = 0;            // speech rate, -100..100

    // Lines the program does not know, kept as they were read.
    QList<QByteArray> altreRighe;
};
