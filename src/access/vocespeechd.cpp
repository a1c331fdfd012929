#include "access/vocespeechd.h"
#include "ui/libreria.h"

#include <QDebug>
#include <QLibrary>

#include <libspeechd.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>

namespace {

// The entry points the voice needs, resolved when the voice is first wanted.
struct Speechd {
    decltype(&spd_open2) apri = nullptr;
    decltype(&spd_close) chiudi = nullptr;
    decltype(&spd_say) di = nullptr;
    decltype(&spd_cancel) annulla = nullptr;
    decltype(&spd_set_language) lingua = nullptr;
    decltype(&spd_set_voice_rate) velocita = nullptr;

    bool carica(QLibrary &l)
    {
        return Risolutore(l)
            (apri, "spd_open2")
            (chiudi, "spd_close")
            (di, "spd_say")
            (annulla, "spd_cancel")
            (lingua, "spd_set_language")
            (velocita, "spd_set_voice_rate")
            .tutte();
    }
};

} // namespace

struct VoceSpeechd::Condiviso {
    std::mutex m;
    std::condition_variable cv;
    // Under m: what the GUI thread asks for, newest only.
    QByteArray testo;
    int velocita = 0, dopoMs = 0;
    std::uint64_t richieste = 0, servite = 0;
    bool preparare = false, fine = false, finito = false, tentata = false;
    bool provata = false, pronta = false; // the connection tried, and made
    // The worker's own.
    QLibrary libreria{QStringLiteral("speechd"), 2};
    Speechd spd;
    SPDConnection *connessione = nullptr;
    int velocitaImpostata = 0;

    void collega()
    {
        QByteArray motivo = "libreria libspeechd non trovata";
        if (spd.carica(libreria)) {
            char *errore = nullptr;
            // Started on demand when installed but not running, as every
            // speech-dispatcher client does.
            connessione = spd.apri("composizione", "voce", nullptr, SPD_MODE_SINGLE, nullptr, 1, &errore);
            // The library explains at length, over several lines: the first says it.
            if (!connessione)
                motivo = errore ? QByteArray(errore).trimmed().split('\n').value(0) : QByteArray("servizio assente");
            std::free(errore);
        }
        if (connessione) {
            spd.lingua(connessione, "it");
            spd.velocita(connessione, velocitaImpostata);
        } else {
            qWarning("voce non disponibile: %s", motivo.constData());
        }
        std::lock_guard lk(m);
        provata = true;
        pronta = connessione != nullptr;
    }

    void pronuncia(const QByteArray &t, int v)
    {
        if (!connessione)
            return;
        if (v != velocitaImpostata && spd.velocita(connessione, v) == 0)
            velocitaImpostata = v;
        spd.annulla(connessione);
        spd.di(connessione, SPD_TEXT, t.constData());
    }
};

namespace {

void lavora(std::shared_ptr<VoceSpeechd::Condiviso> c)
{
    std::unique_lock lk(c->m);
    for (;;) {
        c->cv.wait(lk, [&] { return c->fine || c->preparare || c->richieste != c->servite; });
        if (c->fine)
            break;
        if (!c->tentata) {
            c->tentata = true;
            lk.unlock();
            c->collega();
            lk.lock();
        }
        c->preparare = false;
        if (c->richieste == c->servite)
            continue;
        // A text that waits for a sound to end is dropped when a newer one comes first.
        const std::uint64_t numero = c->richieste;
        if (c->dopoMs > 0 && c->cv.wait_for(lk, std::chrono::milliseconds(c->dopoMs),
                                            [&] { return c->fine || c->richieste != numero; }))
            continue;
        const QByteArray testo = c->testo;
        const int velocita = c->velocita;
        lk.unlock();
        c->pronuncia(testo, velocita);
        lk.lock();
        c->servite = numero;
        c->cv.notify_all();
    }
    if (c->connessione)
        c->spd.chiudi(c->connessione);
    c->finito = true;
    c->cv.notify_all();
}

} // namespace

VoceSpeechd::VoceSpeechd() : lavoro_(lavora) {}

VoceSpeechd::~VoceSpeechd() = default;

void VoceSpeechd::prepara()
{
    lavoro_.chiedi([](Condiviso &c) {
        c.preparare = true;
        return true;
    });
}

void VoceSpeechd::di(const QString &testo, int velocita, int dopoMs)
{
    lavoro_.chiedi([&](Condiviso &c) {
        if (c.provata && !c.pronta)
            return false;
        c.testo = testo.toUtf8();
        c.velocita = velocita;
        c.dopoMs = dopoMs;
        ++c.richieste;
        return true;
    });
}

bool VoceSpeechd::pronta() const
{
    std::lock_guard lk(lavoro_.c->m);
    return lavoro_.c->pronta;
}

bool VoceSpeechd::attendi(int ms) const
{
    const auto &c = lavoro_.c;
    std::unique_lock lk(c->m);
    return c->cv.wait_for(lk, std::chrono::milliseconds(ms),
                          [&] { return c->provata && (!c->pronta || c->servite == c->richieste); });
}
