#pragma once
// The colour lists of the options panel and the way colours are kept in the
// settings: decimal text of red + 256 * green + 65536 * blue.
#include <QColor>
#include <QString>
#include <QStringList>
#include <array>

struct Rgb {
    int r, g, b;
};

namespace ColoriOpzioni {

constexpr int kNumeroColori = 11;

// By index 0..10: the page colours, the text colours and the light and dark
// member of each scanning pair.
extern const std::array<Rgb, kNumeroColori> sfondo;
extern const std::array<Rgb, kNumeroColori> caratteri;
extern const std::array<Rgb, kNumeroColori> scansioneChiaro;
extern const std::array<Rgb, kNumeroColori> scansioneScuro;

// "Bianco" .. "Rosso", captions of the page and text colour lists.
QStringList nomi();
// "Da bianco chiaro a scuro" .. , captions of the scanning list.
QStringList nomiScansione();

} // namespace ColoriOpzioni

// 255, 224, 192 -> "12640511"
QString TestoColore(const Rgb &c);
// "12640511" -> QColor(255, 224, 192); `altrimenti` when the text is no colour.
QColor ColoreDaTesto(const QString &testo, const QColor &altrimenti = QColor(Qt::white));
