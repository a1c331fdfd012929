#pragma once
// The settings file NomeFile + ".dat" in the current folder. Two formats share
// it and each writer replaces it whole: a levels line (level and digit count)
// and eleven appearance lines. Reads never fail loudly: they fall back.
#include "stato/settings.h"
#include <QByteArray>

// The executable's name without folder and extension ("composizione").
QString NomeFileDaEseguibile(const QString &percorsoEseguibile);

// Reads Livello and NumeroCifre from strNomeFile + ".dat". On any failure both
// become 1 and false is returned.
bool LeggiLivelli(Settings &s, const QString &strNomeFile);

// Replaces the settings file with the levels line of `s`.
bool ScriviLivelli(const Settings &s);

// Reads the eleven appearance values; on any failure all eleven take the
// defaults of AspettoPredefinito and false is returned. Nothing is written.
bool LeggiImpostazioni(Settings &s);

// The two readers on the file's bytes, with the same fall-backs.
bool LeggiLivelliDa(const QByteArray &dati, Settings &s);
bool LeggiImpostazioniDa(const QByteArray &dati, Settings &s);

// Replaces the settings file with the eleven appearance lines of `s`.
bool ScriviImpostazioni(const Settings &s);

// The appearance used when the file cannot be read.
void AspettoPredefinito(Settings &s);

// Opens FileName for reading and closes it again; reports and changes nothing.
void VerificaEsistenzaFile(const QString &FileName);
