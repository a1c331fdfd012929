#pragma once
// The two printouts on the current printer (Stato::servizi.stampante).
#include <QString>

struct Stato;
class IPrinter;

// "Courier New" or "Courier", whichever the printer's font list names first;
// empty when it names neither.
QString CercaCarattere(IPrinter &p);

// The exercise done, one page. Shows "Devi installare il font Courier o il
// font Courier New" and prints nothing when no fixed-pitch font is found.
void StampaEsercizio(Stato &s);

// The worksheet in RigheScheda, one page, for TipoScheda 1 (pupils) or 2
// (teachers). label1/label2 are the kind and order in words shown on screen.
// Any printer error shows "Problema di stampa nella stampante utilizzata.".
void StampaScheda(Stato &s, qint16 tipoScheda, const QString &label1, const QString &label2);
