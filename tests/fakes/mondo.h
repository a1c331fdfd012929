#pragma once
// The program's state on the test doubles, and its screens opened on it as
// the screen manager opens them: shown and in front.
#include "content/catalogo.h"
#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "fakes/utente.h"
#include "stato/stato.h"
#include <memory>

struct Mondo {
    FakeClock orologio;
    FakeRandom caso;
    FakeMessageBox messaggi;
    FakeSound suono;
    FakeVoce voce;
    FakePrinter stampante;
    FakeScreens schermi;
    Stato stato;

    // On topic `livello` (none for 0), counts up to 19, the program's files
    // named "prova...".
    explicit Mondo(int livello = 3)
    {
        stato.servizi = {.clock = &orologio, .random = &caso, .messaggi = &messaggi, .suono = &suono,
                         .voce = &voce, .stampante = &stampante, .schermi = &schermi};
        stato.settings.NomeFile = QStringLiteral("prova");
        stato.settings.ValoreMassimo = 19;
        SceltaSimboli(qint16(livello), stato.topic, stato.titoli);
    }
    // The step "+<seconds>" of a script: time passes.
    bool tempo(const QString &passo) { return passo.startsWith(u'+') && (orologio.adesso += passo.toDouble(), true); }

    template <typename F> std::unique_ptr<F> apri()
    {
        auto w = std::make_unique<F>(stato);
        w->show();
        if (!QTest::qWaitForWindowActive(w.get()))
            qWarning("%s did not come to the front", w->metaObject()->className());
        return w;
    }
};
