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
// Printer errors (ErroreStampa) are the caller's to report.
void StampaEsercizio(Stato &s);

// Lines kept from an exercise done earlier, on the exercise printout's page
// and fitted to it alike, with `sotto` (its date) under the header. Printer
// errors (ErroreStampa) are the caller's to report.
void StampaRighe(Stato &s, const QStringList &righe, const QString &sotto);

// The worksheet in RigheScheda, one page, for TipoScheda 1 (pupils) or 2
// (teachers). label1/label2 are the kind and order in words shown on screen.
// Any printer error shows "Problema di stampa nella stampante utilizzata.".
void StampaScheda(Stato &s, qint16 tipoScheda, const QString &label1, const QString &label2);

// The worksheet header: the name and class line, the kind and order, and
// TestoIntestazione.
void IntestazioneScheda(IPrinter &p, const QString &label1, const QString &label2);

// Where line k (1..) of a worksheet stands, in twips from the top: three
// blocks of ten, with room to spare between them.
qint16 YRigaScheda(qint16 k);

// The third header line of a worksheet: a shared text nothing assigns.
inline const QString TestoIntestazione;
