#pragma once
// The settings of the access panel, one line each: what the teacher reads
// (name, value in Italian, explanation) and how "−" and "+" step the value.
#include "stato/accesso.h"
#include <QString>

namespace VociAccesso {

constexpr int kNumero = 11;

QString nome(int voce);
QString spiegazione(int voce);
// The value as the panel shows it: "1,0 s", "automatica", "3".
QString valore(const ImpostazioniAccesso &a, int voce);
// One step down (verso < 0) or up along the values offered for the line;
// a value read from the file between two of them steps to the next one.
// At either end the value stays.
void passo(ImpostazioniAccesso &a, int voce, int verso);

} // namespace VociAccesso
