#pragma once
#include <QString>

// Asynchronous playback of one short wave file.
class ISound
{
public:
    virtual ~ISound() = default;
    // Loads the file once; a missing file or no audio device makes play() silent.
    virtual void carica(const QString &percorso) = 0;
    // Starts playing and returns at once.
    virtual void suona() = 0;
    // How long the loaded file plays, in milliseconds; 0 when it cannot.
    virtual int durataMs() const = 0;
};
