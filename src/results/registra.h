#pragma once
// Keeps every finished exercise in the results file of the current folder.
#include <QDateTime>
#include <functional>

struct Stato;
struct EsercizioFinito;
struct Risultato;

// The row of a finished exercise: its counts and lines, the topic, digits,
// kind and order of the run, at `quando`.
Risultato RisultatoDi(const Stato &s, const EsercizioFinito &e, const QDateTime &quando);

// Sets the state's hook so that every exercise finished is appended to the
// results file. A file that cannot be written is told to the user in a
// message box; the exercise goes on as if nothing had happened.
void CollegaRisultati(Stato &s, std::function<QDateTime()> adesso = &QDateTime::currentDateTime);
