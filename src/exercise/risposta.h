#pragma once
// How the pupil's answer is built on the keypad: the text rules alone, so
// that the screen only has to show the result and set its keys.
#include <QString>

// Clicked or fired digits stop at this length, separators included.
constexpr int LunghezzaMassima = 9;
// Digits typed on the keyboard stop earlier. The two limits have always
// differed and are kept apart on purpose.
constexpr int LunghezzaDigitata = 7;

struct Risposta {
    QString testo;         // the answer as built so far (empty: nothing yet)
    bool virgola = false;  // a comma has been entered on this item

    // What the answer display shows: "?" while nothing has been entered.
    QString mostrato() const { return testo.isEmpty() ? QStringLiteral("?") : testo; }
};

// A whole-number answer shown as the generator shows numbers, thousands
// grouped ("1234" and "1.2345" give "1.234" and "12.345"). The dots already
// in the text are groupings, never decimals.
QString Riformatta(const QString &testo);

// A digit appended, regrouped unless the answer holds a comma, then cut to
// its first `limite` characters when it has that many or more.
void AggiungiCifra(Risposta &r, QChar cifra, int limite);
// The on-screen "," key: ignored once a comma has been entered; an empty
// answer becomes "0,".
void VirgolaCliccata(Risposta &r);
// The typed comma. On an empty answer it is refused and false is returned:
// the keypad then goes back to its state at the start of the item.
bool VirgolaDigitata(Risposta &r);
// The last character removed; what is left is regrouped unless it holds a
// comma, and the comma flag follows what is left. Nothing to remove: no change.
void Cancella(Risposta &r);

// Right when the two texts are equal once their blanks are trimmed: no
// numeric comparison, so "1234" is not "1.234".
bool RispostaGiusta(const QString &attesa, const QString &data);
