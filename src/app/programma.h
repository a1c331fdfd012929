#pragma once
// The whole program on a running QApplication: the shared state, the system's
// services and the screens. main runs it; bench/bench_avvio measures the
// start-up and memory of the executable that does.
#include "access/evidenziatore.h"
#include "access/filtroingressi.h"
#include "access/scansioneautomatica.h"
#include "access/sveglia.h"
#include "access/vocespeechd.h"
#include "access/vocetasti.h"
#include "app/gestoreschermi.h"
#include "stato/stato.h"
#include "ui/alsasuono.h"
#include "ui/qtpiattaforma.h"
#include "ui/qtstampante.h"
#include "ui/sceltafile.h"

class Programma
{
public:
    Programma();
    ~Programma();
    Programma(const Programma &) = delete;
    Programma &operator=(const Programma &) = delete;

    // Shows the start screen; QCoreApplication::quit follows once no screen is left.
    void avvia();

    Stato stato;
    GestoreSchermi &schermi() { return schermi_; }
    QtPrinter &stampante() { return stampante_; }
    AlsaSound &suono() { return suono_; }
    VoceSpeechd &voce() { return voce_; }

private:
    QtClock orologio_;
    QtRandom caso_;
    QtMessageBox messaggi_;
    AlsaSound suono_;
    VoceSpeechd voce_;
    QtPrinter stampante_;
    QtSceltaFile sceltaFile_;
    GestoreSchermi schermi_;
    QtSveglia svegliaFiltro_, svegliaScansione_;
    FiltroIngressi filtro_;
    ScansioneAutomatica scansione_;
    Evidenziatore evidenziatore_;
    VoceTasti voceTasti_;
};
