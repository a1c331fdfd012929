#pragma once
// The results file, NomeFile + "Risultati.csv" in the current folder: one row
// for every exercise finished there, kept for a teacher to follow a class or
// a pupil and to open in a spreadsheet. UTF-8 with a byte order mark, a
// header row, ";" between fields, fields quoted where they must be, rows
// ended by CR LF. QtCore only: the fuzz target reads it without widgets.
#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QStringList>

struct Risultato {
    QDateTime quando;     // local time, to the second
    QString argomento;    // the topic's line of unit names
    int numeroArgomento = 0;
    int cifre = 0;
    QString tipo;         // "Trova il numero", ...
    QString ordine;       // "Usa i simboli ordinati", ...
    int esatte = 0;
    int errate = 0;
    int secondi = 0;
    QStringList righe;    // the twenty record lines

    bool operator==(const Risultato &) const = default;
};

constexpr int kRigheRisultato = 20;

QString NomeFileRisultati(const QString &nomeFile);

// One field as written: quoted when it holds ";", a quote, a line end or
// blanks at either end (a spreadsheet would split it or lose them), quotes
// doubled inside.
QByteArray CampoCsv(const QString &testo);
QByteArray IntestazioneCsv();            // BOM and header row, CR LF ended
QByteArray RigaCsv(const Risultato &r);  // CR LF ended

struct LetturaRisultati {
    QList<Risultato> risultati;  // in the order of the file: oldest first
    int scartate = 0;            // damaged rows skipped
};

// A row that cannot be read (a save cut short, a cell changed to no number)
// is skipped and counted; reading goes on at the next line, so that a torn
// row never takes the rows after it with it.
LetturaRisultati LeggiRisultatiDa(const QByteArray &dati);
LetturaRisultati LeggiRisultati(const QString &percorso); // missing: no rows

// Appends one row in a single write, after a line end if the file does not
// end with one (a torn row stays a row of its own, skipped when read). A
// missing or empty file is made whole with the header, or not at all. On
// failure the file is left as it was, as far as the system allows, and
// `errore` says why, in Italian.
bool AggiungiRisultato(const QString &percorso, const Risultato &r, QString *errore = nullptr);

// Writes a copy of the results file `da` at `verso`, whole or not at all.
// Empty when done, else why not, in Italian.
QString CopiaRisultati(const QString &da, const QString &verso);
