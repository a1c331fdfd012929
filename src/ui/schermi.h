#pragma once

// The screens of the program, by role.
enum class Schermo {
    Inizio,           // FrmInizio
    Operativo,        // frmOperativo
    Opzioni,          // FrmOpzioni
    StampaEsercizio,  // FrmStampaEsercizioTre
    Schede,           // FrmStampaSchedeTre
    SceltaStampante,  // frmSceltaStampante
    Autore,           // about box
    Accesso,          // FrmAccesso
    Risultati         // FrmRisultati
};

// Loads and unloads screens. A screen stays loaded once opened until it is
// unloaded; screens never hold pointers to each other.
class IScreens
{
public:
    virtual ~IScreens() = default;
    // Loads the screen if needed and shows it (the about box modal, the others modeless).
    virtual void apri(Schermo s) = 0;
    // Unloads the screen (no effect when it is not loaded).
    virtual void chiudi(Schermo s) = 0;
};
