#include "ui/caratteri.h"

#include <QFontDatabase>
#include <QStringList>

namespace {

// Where Arial is not installed its metric twin is asked for by name: the same
// look, without the font configuration's fallback search at start-up.
QString famiglia()
{
    static const QString f = [] {
        // The installed families by name: asking for an alias would run the
        // font configuration's substitution rules, the slow part.
        const QStringList installate = QFontDatabase::families();
        for (const char *nome : {"Arial", "Liberation Sans"})
            if (installate.contains(QLatin1String(nome)))
                return QString::fromLatin1(nome);
        return QStringLiteral("Arial");
    }();
    return f;
}

QFont arial(bool grassetto)
{
    QFont f(famiglia());
    f.setStyleHint(QFont::SansSerif);
    f.setBold(grassetto);
    return f;
}

} // namespace

QFont FontArial(int punti, bool grassetto)
{
    QFont f = arial(grassetto);
    f.setPointSize(punti);
    return f;
}

QFont FontArialPixel(int pixel, bool grassetto)
{
    QFont f = arial(grassetto);
    f.setPixelSize(pixel);
    return f;
}
