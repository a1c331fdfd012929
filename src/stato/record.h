#pragma once
#include "content/errori.h"
#include <QString>
#include <array>

// One printable fixed-pitch line per item (indices 0..60, items use 1..20).
struct ExerciseRecord {
    std::array<QString, 61> RigheEsercizio;
    qint16 NumeroEsercizio = 0;

    QString &riga(int i) { return voce(RigheEsercizio, i); }
    const QString &riga(int i) const { return voce(RigheEsercizio, i); }
};
