#pragma once
// The voice through speech-dispatcher, the speech service of Linux desktops,
// in Italian. Nothing of it is loaded while the voice is off: libspeechd is
// opened with QLibrary, and the connection made, by a worker thread of its
// own, when prepara() asks (once the first screen is on view) or at the first
// utterance. The GUI thread only hands over the newest text. With no service
// the program stays silent and says so once on the terminal.
#include "ui/lavoro.h"
#include "ui/voce.h"

class VoceSpeechd final : public IVoce
{
public:
    VoceSpeechd();
    ~VoceSpeechd() override;
    VoceSpeechd(const VoceSpeechd &) = delete;
    VoceSpeechd &operator=(const VoceSpeechd &) = delete;

    void di(const QString &testo, int velocita, int dopoMs = 0) override;
    void prepara();

    // Connected and able to speak; false before the worker has tried, or when
    // it could not. For the tests and the figures in bench/.
    bool pronta() const;
    // Waits up to `ms` for the worker to have sent everything asked so far.
    bool attendi(int ms) const;

    struct Condiviso;

private:
    Lavoro<Condiviso> lavoro_;
};
