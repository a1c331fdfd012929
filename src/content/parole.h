#pragma once
// What the voice says, in Italian words: numbers as a pupil reads them aloud,
// the question of an item, its correction, and the name of a key. Speech
// engines read "3.347" digit by digit or with a "punto", and "0,047" in
// several ways; so every number is written out here, and the text sent to
// the engine has no figures left in it.
#include "content/item.h"
#include "content/topic.h"
#include <QString>
#include <array>

// 0..999999: "tremilatrecentoquarantasette"; other values as figures.
QString NumeroInParole(qint64 n);
// A number as the program writes it ("3.347", "0,047", " 13"): "zero virgola
// zero quarantasette". Anything that is not such a number comes back as it is.
QString TestoInParole(const QString &testo);

// The unit names of the topic's positions 1..4, taken from its names line
// (the start screen's Label6(2)); empty where a position has none, as the
// blank first position of a three-position topic.
std::array<QString, 5> NomiUnita(const QString &rigaNomi, qint16 classePosizioni);
// "una decina", "un centinaio", "quattro centinaia".
QString Quantita(qint16 conteggio, const QString &nomePlurale);

// The question of the item as it is shown: its pieces, then what is asked,
// the number in the target unit (`numero`) or the symbol.
QString FraseDomanda(const Item &item, const TopicInstallato &topic, const QString &rigaNomi, bool numero);
// The right answer, shown by the program after a wrong one.
QString FraseCorrezione(const Item &item, const TopicInstallato &topic, const QString &rigaNomi, bool numero);
// A key's caption or name as a word: "3" "tre", "," "virgola", "SI" "sì";
// figures inside a name are written out ("cifre da zero a quattro").
QString ParolaTasto(const QString &testo);

namespace Frasi {
inline const QString esatto = QStringLiteral("Esatto");
inline const QString errato = QStringLiteral("Errato. Ti aiuto?");
inline const QString intervengo = QStringLiteral("Intervengo io");
inline const QString simboloVuoto = QStringLiteral("simbolo vuoto");
} // namespace Frasi
