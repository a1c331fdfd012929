#pragma once
#include <QStringList>

// An exercise whose twentieth item has just ended, as the exercise screen
// shows it. Whoever keeps it only reads it: the exercise goes on untouched.
struct EsercizioFinito {
    // This run's own answers: the screen's counters carry on over
    // "Ricomincia", these start again with every run.
    int esatte = 0;
    int errate = 0;
    int secondi = 0;     // the total the screen shows
    QStringList righe;   // the twenty record lines, as composed
};
