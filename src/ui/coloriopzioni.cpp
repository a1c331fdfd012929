#include "ui/coloriopzioni.h"

namespace ColoriOpzioni {

const std::array<Rgb, kNumeroColori> sfondo{{
    {255, 255, 255}, {220, 220, 220}, {255, 255, 190}, {250, 220, 160},
    {255, 200, 255}, {250, 210, 255}, {180, 255, 255}, {100, 255, 190},
    {255, 225, 120}, {0, 0, 0}, {255, 119, 136},
}};

// "Bianco" is a light grey on purpose: white letters would vanish on the
// light pages that the teacher usually picks.
const std::array<Rgb, kNumeroColori> caratteri{{
    {200, 200, 200}, {150, 150, 150}, {250, 255, 80}, {255, 190, 110},
    {255, 130, 255}, {200, 150, 255}, {100, 255, 255}, {100, 220, 150},
    {255, 200, 90}, {0, 0, 0}, {255, 0, 0},
}};

const std::array<Rgb, kNumeroColori> scansioneChiaro{{
    {255, 255, 255}, {190, 190, 190}, {255, 255, 120}, {250, 210, 140},
    {255, 200, 255}, {230, 180, 255}, {100, 255, 255}, {100, 220, 150},
    {255, 215, 10}, {70, 70, 70}, {255, 65, 83},
}};

const std::array<Rgb, kNumeroColori> scansioneScuro{{
    {235, 235, 235}, {150, 150, 150}, {250, 255, 80}, {255, 190, 110},
    {255, 50, 255}, {200, 150, 255}, {0, 210, 255}, {100, 200, 150},
    {255, 200, 90}, {0, 0, 0}, {255, 0, 0},
}};

QStringList nomi()
{
    return {QStringLiteral("Bianco"), QStringLiteral("Grigio"), QStringLiteral("Giallo"),
            QStringLiteral("Arancio"), QStringLiteral("Fucsia"), QStringLiteral("Pervinca"),
            QStringLiteral("Azzurro"), QStringLiteral("Verde"), QStringLiteral("Nocciola"),
            QStringLiteral("Nero"), QStringLiteral("Rosso")};
}

QStringList nomiScansione()
{
    QStringList out;
    for (const QString &n : nomi())
        out << QStringLiteral("Da %1 chiaro a scuro").arg(n.toLower());
    return out;
}

} // namespace ColoriOpzioni

QString TestoColore(const Rgb &c)
{
    return QString::number(qint64(c.r) + 256 * qint64(c.g) + 65536 * qint64(c.b));
}

QColor ColoreDaTesto(const QString &testo, const QColor &altrimenti)
{
    bool ok = false;
    const qint64 v = testo.trimmed().toLongLong(&ok);
    if (!ok || v < 0 || v > 0xFFFFFF)
        return altrimenti;
    return QColor(int(v & 0xFF), int((v >> 8) & 0xFF), int((v >> 16) & 0xFF));
}
