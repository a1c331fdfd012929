#pragma once
#include <QString>

class IMessageBox;

// Composed value (whole thousandths, never negative) or a typed answer ->
// the text the pupil sees and types: thousands grouped with
// ".", decimals after "," copied, never rounded. Always Italian separators,
// whatever the system locale, because the keypad offers only ",".
// On overflow (whole part beyond 32 bits) shows "Numero troppo grande!" on
// `box` (if given) and returns an empty text.
QString FormattaNumero(double n, IMessageBox *box);
