#pragma once
// The exercise record file NomeFile + "Esercizio.dat" in the current folder:
// one byte a character (Windows-1252), CR LF line ends.
#include <QString>
#include <functional>

class QIODevice;
struct Stato;

// NomeFile + "Esercizio" (the screen adds ".dat" when it opens the file).
QString NomeFileEsercizio(const Stato &s);

// Writes NumeroEsercizio and StampaRidotta, then RigheScheda(1..NumeroEsercizio)
// each followed by RigheRiserva. Replaces the file atomically; a failure is
// reported on the message box and leaves the old file whole. A line index
// above 60 throws ErroreIntervallo.
void SalvaEsercizio(Stato &s);

// Reads the file back into NumeroEsercizio, StampaRidotta and RigheScheda
// (from the shared counter NumeroOperazioni on); `mostra(i, testo)` is told
// every line stored at index i. A missing file or a bad first line shows
// "Nessun esercizio eseguito presente".
void CaricaEsercizio(Stato &s, const std::function<void(int, const QString &)> &mostra);

// The reading itself, on any device: false when the first line is not two
// whole numbers (nothing after it is read then).
bool CaricaEsercizioDa(QIODevice &dati, Stato &s, const std::function<void(int, const QString &)> &mostra);
