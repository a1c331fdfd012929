#pragma once
// Worksheet lines: pupils' lines into RigheEsercizio, teachers' into RigheDocenti.
#include <QString>

struct Stato;
class IMessageBox;

// For IndiceRiga 1..conteggio: one generated item laid out as a
// find-the-number or find-the-symbol line (NuovaRiga).
void GeneraRigheScheda(Stato &s, int conteggio);

// One worksheet line in its two forms.
struct RigaScheda {
    QString alunni;  // with room for the answer
    QString docenti; // the same, followed by the answer in brackets
};

// Find-the-number line from the generator's three texts: the question ends
// at column 30, dots for the answer, the unit at the right. `box` is told
// about a number too large to format.
RigaScheda RigaNumero(const QString &domanda, const QString &numero, const QString &simboli,
                      IMessageBox *box = nullptr);

// Find-the-symbol line: the number right-aligned in 13 columns, dots for the symbol.
RigaScheda RigaSimbolo(const QString &domanda, const QString &numero, const QString &simboli);
