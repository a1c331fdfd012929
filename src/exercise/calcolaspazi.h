#pragma once
// The fixed-pitch line that every item leaves in the exercise record, and the
// times printed on it. Pure text rules: the screen feeds them its state.
//
// A line reads: the question right-aligned to column 31, " = ", the given
// part right-aligned in 7 columns, the wrong attempts (each right-aligned in
// 11 columns and marked "*"), and the final answer ending at column 95 (96
// for a correction, which carries "^") followed by its seconds.
#include <QString>

// n blanks; the empty text for n <= 0.
QString Spazi(int n);

// The text without its leading and trailing blanks (blanks only, not tabs).
QString Trim(const QString &testo);

// The four paddings of the current line.
struct SpaziRiga {
    QString SpaziQuesito;  // right-aligns the question in 31 columns
    QString SpaziErrata;   // right-aligns a wrong answer in 11 columns
    QString SpaziNumero;   // brings a number answer to column 95
    QString SpaziSimboli;  // brings a symbol answer to column 95
};

// `rigaCorrente` is the item's line as it stands at the call, so attempts
// already written on it move the final answer no further than column 95.
SpaziRiga CalcolaSpazi(const QString &testoDomanda, const QString &rispostaData,
                       const QString &rigaCorrente, const QString &testoNumero,
                       const QString &testoSimboli);

// The blanks before the given part of a number item: the trimmed symbol
// right-aligned in 7 columns (only 1 and 2 letters are padded).
QString RientroSimbolo(const QString &simbolo);
// The blanks before the given part of a symbol item: the trimmed number
// right-aligned in 7 columns, except that a one-character number is not
// padded at all.
QString RientroNumero(const QString &numero);

// The start of an item's line: padding, question, " = ", padding, given part.
QString InizioRiga(const QString &spaziQuesito, const QString &domanda, const QString &rientro,
                   const QString &dato);

// What each outcome appends to the line. A right answer gets a blank of its
// own before " (sec."; a correction does not.
QString CodaErrata(const QString &spaziErrata, const QString &risposta);
QString CodaEsatta(const QString &spazi, const QString &risposta, const QString &testoTempo);
QString CodaCorrezione(const QString &spazi, const QString &corretta, const QString &testoTempo);

// Blanks that right-align the seconds in 4 columns (4 blanks when the text
// is empty or longer than 4).
QString RiempimentoTempo(const QString &testoTempo);

// Whole seconds between two readings of the seconds-since-midnight timer,
// capped at 99. No correction is made across midnight.
int TempoParziale(float inizio, float fine);
// The exercise total after adding one item, capped at 999.
int TempoTotale(int totale, int parziale);
