#include "ui/alsasuono.h"
#include "ui/libreria.h"
#include "ui/wav.h"

#include <QLibrary>

#include <alsa/asoundlib.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>

namespace {

using Orologio = std::chrono::steady_clock;

// The few entry points of libasound the sound needs, resolved at first use:
// linking the library would make every start pay for loading it.
struct Alsa {
    decltype(&snd_lib_error_set_handler) gestoreErrori = nullptr;
    decltype(&snd_config_update) leggiConfigurazione = nullptr;
    decltype(&snd_pcm_open) apri = nullptr;
    decltype(&snd_pcm_set_params) parametri = nullptr;
    decltype(&snd_pcm_writei) scrivi = nullptr;
    decltype(&snd_pcm_recover) recupera = nullptr;
    decltype(&snd_pcm_wait) attendi = nullptr;
    decltype(&snd_pcm_state) stato = nullptr;
    decltype(&snd_pcm_start) avvia = nullptr;
    decltype(&snd_pcm_delay) ritardo = nullptr;
    decltype(&snd_pcm_drop) ferma = nullptr;
    decltype(&snd_pcm_close) chiudi = nullptr;

    bool carica(QLibrary &l)
    {
        return Risolutore(l)
            (gestoreErrori, "snd_lib_error_set_handler")
            (leggiConfigurazione, "snd_config_update")
            (apri, "snd_pcm_open")
            (parametri, "snd_pcm_set_params")
            (scrivi, "snd_pcm_writei")
            (recupera, "snd_pcm_recover")
            (attendi, "snd_pcm_wait")
            (stato, "snd_pcm_state")
            (avvia, "snd_pcm_start")
            (ritardo, "snd_pcm_delay")
            (ferma, "snd_pcm_drop")
            (chiudi, "snd_pcm_close")
            .tutte();
    }
};

// ALSA reports a machine without a sound card on stderr, line after line;
// silence is the answer the program wants there.
void silenzio(const char *, int, const char *, int, const char *, ...) {}

} // namespace

struct AlsaSound::Condiviso {
    std::mutex m;
    std::condition_variable cv;
    // Under m: what the GUI thread asks for.
    QString percorso;
    bool preparare = false, fine = false, finito = false;
    std::uint64_t richieste = 0, servite = 0;
    std::atomic<std::int64_t> avvioNs{0};
    // The worker's own.
    QLibrary libreria{QStringLiteral("asound"), 2};
    Alsa alsa;
    bool alsaPronta = false, alsaTentata = false;
    QString letto;
    SuonoWav campioni;

    bool continua()
    {
        std::lock_guard lk(m);
        return !fine && richieste == servite;
    }

    void prepara(const QString &file)
    {
        if (file != letto) {
            campioni = LeggiFileWav(file);
            letto = file;
        }
        // With nothing to play, nothing of ALSA is loaded.
        if (!alsaTentata && !campioni.dati.isEmpty()) {
            alsaTentata = true;
            alsaPronta = alsa.carica(libreria);
            if (alsaPronta) {
                alsa.gestoreErrori(silenzio);
                // Reading the configuration (and the sound server's plugin it
                // names) is most of the cost of a first open.
                alsa.leggiConfigurazione();
            }
        }
    }

    bool segnaAvvio(snd_pcm_t *pcm)
    {
        if (alsa.stato(pcm) != SND_PCM_STATE_RUNNING)
            return false;
        avvioNs = std::chrono::duration_cast<std::chrono::nanoseconds>(Orologio::now().time_since_epoch()).count();
        return true;
    }

    void riproduci()
    {
        const SuonoWav &s = campioni;
        if (!alsaPronta || s.dati.isEmpty())
            return;
        snd_pcm_t *pcm = nullptr;
        // Non-blocking: a card that another program holds is silence, not a wait.
        if (alsa.apri(&pcm, "default", SND_PCM_STREAM_PLAYBACK, SND_PCM_NONBLOCK) < 0)
            return;
        const auto frames = snd_pcm_uframes_t(s.dati.size() / s.bytePerFrame());
        // Whatever the device does, the worker is free again soon after the sound's own length.
        const auto scadenza = Orologio::now() + std::chrono::microseconds(frames * 1000000 / s.frequenza) +
                              std::chrono::seconds(1);
        if (alsa.parametri(pcm, s.bit == 8 ? SND_PCM_FORMAT_U8 : SND_PCM_FORMAT_S16_LE, SND_PCM_ACCESS_RW_INTERLEAVED, s.canali, s.frequenza, 1, 100000) >= 0) {
            const char *p = s.dati.constData();
            snd_pcm_uframes_t resto = frames;
            bool avviato = false;
            while (resto > 0 && continua() && Orologio::now() < scadenza) {
                const snd_pcm_sframes_t n = alsa.scrivi(pcm, p, resto);
                if (n == -EAGAIN) {
                    alsa.attendi(pcm, 20);
                } else if (n < 0) {
                    if (alsa.recupera(pcm, int(n), 1) < 0)
                        break;
                } else {
                    p += n * snd_pcm_sframes_t(s.bytePerFrame());
                    resto -= snd_pcm_uframes_t(n);
                    avviato = avviato || segnaAvvio(pcm);
                }
            }
            // A sound shorter than the device's buffer does not start by itself.
            if (!avviato && resto == 0 && alsa.avvia(pcm) >= 0)
                segnaAvvio(pcm);
            // Played out before closing, unless a new request or the end comes first.
            snd_pcm_sframes_t attesa = 0;
            while (alsa.ritardo(pcm, &attesa) >= 0 && attesa > 0 && Orologio::now() < scadenza) {
                std::unique_lock lk(m);
                if (cv.wait_for(lk, std::chrono::milliseconds(20), [&] { return fine || richieste != servite; }))
                    break;
            }
        }
        alsa.ferma(pcm);
        alsa.chiudi(pcm);
    }
};

namespace {

void lavora(std::shared_ptr<AlsaSound::Condiviso> c)
{
    std::unique_lock lk(c->m);
    for (;;) {
        c->cv.wait(lk, [&] { return c->fine || c->preparare || c->richieste != c->servite; });
        if (c->fine)
            break;
        const QString file = c->percorso;
        const bool suonare = c->richieste != c->servite;
        c->servite = c->richieste;
        c->preparare = false;
        lk.unlock();
        c->prepara(file);
        if (suonare)
            c->riproduci();
        lk.lock();
    }
    c->finito = true;
    c->cv.notify_all();
}

} // namespace

AlsaSound::AlsaSound() : lavoro_(lavora) {}

AlsaSound::~AlsaSound() = default;

void AlsaSound::carica(const QString &percorso)
{
    std::lock_guard lk(lavoro_.c->m);
    lavoro_.c->percorso = percorso;
}

void AlsaSound::prepara()
{
    lavoro_.chiedi([](Condiviso &c) {
        c.preparare = true;
        return true;
    });
}

void AlsaSound::suona()
{
    lavoro_.chiedi([](Condiviso &c) {
        if (c.percorso.isEmpty())
            return false;
        ++c.richieste;
        return true;
    });
}

int AlsaSound::durataMs() const
{
    QString percorso;
    {
        std::lock_guard lk(lavoro_.c->m);
        percorso = lavoro_.c->percorso;
    }
    if (percorso != misurato_) {
        misurato_ = percorso;
        durataMs_ = DurataWavMs(percorso);
    }
    return durataMs_;
}

std::int64_t AlsaSound::ultimoAvvioNs() const
{
    return lavoro_.c->avvioNs;
}
