#pragma once
#include "content/errori.h"
#include <QString>
#include <array>

// The sheet buffers shared by the record file, the printout and the worksheets.
struct SheetBuffers {
    std::array<QString, 61> RigheScheda;   // last previewed or loaded lines
    std::array<QString, 61> RigheRiserva;  // written beside every line, never assigned
    std::array<QString, 61> RigheDocenti;  // teachers' lines of the worksheet
    qint16 NumeroOperazioni = 0;           // shared counter (see the record file)
    qint16 StampaRidotta = 0;
    // The printer choice has had its first combo click of the run (the one
    // raised by its own opening), which only arms this flag.
    bool SceltaStampanteArmata = false;
};
