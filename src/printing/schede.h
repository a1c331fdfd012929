#pragma once
// Worksheet lines: pupils' lines into RigheEsercizio, teachers' into RigheDocenti.
#include <QString>

struct Stato;

// For IndiceRiga 1..conteggio: one generated item laid out as a
// find-the-number or find-the-symbol line (NuovaRiga).
void GeneraRigheScheda(Stato &s, int conteggio);
