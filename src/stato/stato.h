#pragma once
// The program-wide state: owned by main, handed by reference to every screen.
// Screens share state only through it.
#include "content/algoritmi.h"
#include "content/item.h"
#include "content/topic.h"
#include "stato/record.h"
#include "stato/accesso.h"
#include "stato/esito.h"
#include "stato/fogli.h"
#include "stato/settings.h"
#include <functional>

class IClock;
class IRandom;
class IMessageBox;
class ISound;
class IVoce;
class IPrinter;
class IScreens;
class ISceltaFile;

// The system behind the program; none of these is owned by the state.
struct Servizi {
    IClock *clock = nullptr;
    IRandom *random = nullptr;
    IMessageBox *messaggi = nullptr;
    ISound *suono = nullptr;
    IVoce *voce = nullptr;
    IPrinter *stampante = nullptr;
    IScreens *schermi = nullptr;
    ISceltaFile *file = nullptr;
};

struct Stato {
    Settings settings;
    ImpostazioniAccesso accesso;
    TopicInstallato topic;
    TitoliInizio titoli;
    Item item;
    qint16 TipoCorrente = 0;
    ExerciseRecord record;
    SheetBuffers fogli;

    // Told the template number of every generated item (Label7 of the exercise screen).
    std::function<void(qint16)> mostraNumeroModello;
    // Told of every exercise whose twentieth item has ended, once.
    std::function<void(const EsercizioFinito &)> esercizioFinito;

    Servizi servizi;

    // Says `testo` when the voice is on; silent otherwise. Callers that build
    // a sentence first ask accesso.voce, so that a silent exercise builds none.
    void parla(const QString &testo, int dopoMs = 0);
    // How many times the program has spoken so far.
    quint64 detti = 0;

    // The item generator on this state.
    void generaItem()
    {
        Generatore g{*servizi.clock, *servizi.random, mostraNumeroModello};
        g.genera(settings.ValoreMassimo, settings.OrdineSimboli, topic, item, TipoCorrente);
    }
};
