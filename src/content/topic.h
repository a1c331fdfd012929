#pragma once
#include <QString>
#include <array>

// The topic installed by SceltaSimboli: symbol texts 1..4 (index 0 unused).
struct TopicInstallato {
    std::array<QString, 5> Simboli;
    qint16 ClassePosizioni = 0;
};

// The captions SceltaSimboli writes on the start screen; other screens read
// Label6[2] (the line of unit names).
struct TitoliInizio {
    QString caption;                 // form caption of FrmInizio
    std::array<QString, 3> Label6;   // Label6(0..2)
    QString mnuSchede;               // "Stampa schede: " + Label6(2)
};
