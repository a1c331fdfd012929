#pragma once
// Plain PCM wave files of 8 or 16 bits, as assets/genera_positivo.py makes
// them: what the sound needs to hand the samples to the device.
#include <QByteArray>
#include <QString>

struct SuonoWav {
    int bit = 0; // 8 (unsigned) or 16 (signed, little endian); 0: nothing to play
    unsigned canali = 0, frequenza = 0;
    QByteArray dati; // whole frames only

    unsigned bytePerFrame() const { return canali * unsigned(bit) / 8; }
};

// The RIFF chunks are walked for "fmt " and "data"; a file cut short keeps
// what it has. Anything else (another encoding, a damaged header) is silence.
SuonoWav LeggiWav(const QByteArray &file);
// The file at `percorso`, read as above; silence when it cannot be read.
SuonoWav LeggiFileWav(const QString &percorso);

// How long the file at `percorso` plays, in milliseconds; 0 when it cannot.
int DurataWavMs(const QString &percorso);
