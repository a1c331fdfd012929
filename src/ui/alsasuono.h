#pragma once
// The right-answer sound through ALSA, the sound layer every Linux desktop
// has: PulseAudio and PipeWire take ALSA programs through their plugins, and
// a machine without a sound server plays on the card directly.
//
// Nothing of it is loaded at start: libasound is opened with QLibrary, and
// the file read, by a worker thread of its own, either when prepara() asks
// (once the first screen is on view) or at the first suona(). The GUI thread
// only hands over requests, so a right answer never waits for the sound, and
// no device, no library or no file just means silence.
#include "ui/lavoro.h"
#include "ui/suono.h"
#include <cstdint>

class AlsaSound final : public ISound
{
public:
    AlsaSound();
    ~AlsaSound() override;
    AlsaSound(const AlsaSound &) = delete;
    AlsaSound &operator=(const AlsaSound &) = delete;

    void carica(const QString &percorso) override;
    // A second request while the sound plays starts it again from the top.
    void suona() override;
    int durataMs() const override;

    // Loads the library, its configuration and the file in the background,
    // so that the first suona() only has to open the device.
    void prepara();

    // When the last playback started, on std::chrono::steady_clock in
    // nanoseconds: the device (or sound server) had the first samples and was
    // running. 0 while nothing has played. For the figures in bench/.
    std::int64_t ultimoAvvioNs() const;

    struct Condiviso;

private:
    Lavoro<Condiviso> lavoro_;
    // The length of the file last asked about: read once, not at every answer.
    mutable QString misurato_;
    mutable int durataMs_ = 0;
};
