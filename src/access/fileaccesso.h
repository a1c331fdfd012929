#pragma once
// The access file, NomeFile + "Accesso.dat" in the current folder: UTF-8 text,
// one "chiave=valore" a line. Reading never fails loudly: what cannot be read
// keeps its default, and lines of other keys come back when it is written.
#include "stato/accesso.h"
#include <QString>

QString NomeFileAccesso(const QString &nomeFile);

ImpostazioniAccesso LeggiAccessoDa(const QByteArray &dati);
QByteArray ScriviAccessoIn(const ImpostazioniAccesso &a);

// A missing or unreadable file gives the defaults.
ImpostazioniAccesso LeggiAccesso(const QString &percorso);
// Replaces the file whole, or leaves it as it was; `errore` says why not.
bool ScriviAccesso(const QString &percorso, const ImpostazioniAccesso &a, QString *errore = nullptr);
