#include "ui/wav.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>

SuonoWav LeggiWav(const QByteArray &b)
{
    if (b.size() < 12 || !b.startsWith("RIFF") || b.mid(8, 4) != "WAVE")
        return {};
    const auto u16 = [&](qsizetype i) { return qFromLittleEndian<quint16>(b.constData() + i); };
    const auto u32 = [&](qsizetype i) { return qFromLittleEndian<quint32>(b.constData() + i); };
    SuonoWav c;
    quint16 tipo = 0;
    for (qsizetype i = 12; i + 8 <= b.size();) {
        const qsizetype inizio = i + 8;
        const qsizetype n = std::min<qsizetype>(u32(i + 4), b.size() - inizio);
        if (b.mid(i, 4) == "fmt " && n >= 16) {
            tipo = u16(inizio);
            c.canali = u16(inizio + 2);
            c.frequenza = u32(inizio + 4);
            c.bit = u16(inizio + 14);
        } else if (b.mid(i, 4) == "data") {
            c.dati = b.mid(inizio, n);
        }
        i = inizio + n + (n & 1); // chunks are padded to an even length
    }
    if (tipo != 1 || c.canali == 0 || c.canali > 8 || c.frequenza == 0 || c.frequenza > 384000 ||
        (c.bit != 8 && c.bit != 16))
        return {};
    c.dati.truncate(c.dati.size() - c.dati.size() % c.bytePerFrame());
    return c;
}

SuonoWav LeggiFileWav(const QString &percorso)
{
    QFile f(percorso);
    // A sound is a second or two: anything far larger is no sound of ours.
    return f.open(QIODevice::ReadOnly) && f.size() <= 16 * 1024 * 1024 ? LeggiWav(f.readAll()) : SuonoWav{};
}

int DurataWavMs(const QString &percorso)
{
    const SuonoWav s = LeggiFileWav(percorso);
    if (s.dati.isEmpty() || s.frequenza == 0)
        return 0;
    return int(qint64(s.dati.size() / s.bytePerFrame()) * 1000 / s.frequenza);
}
