#include "content/catalogo.h"

#include <array>

namespace {

// The symbol texts carry their own blanks: the exercise screen and the
// worksheets print them side by side with the counts, so the widths are part
// of the layout and must not be trimmed or evened out.
struct VoceCatalogo {
    const char16_t *simboli[4];
    qint16 classePosizioni;
    const char16_t *nomiUnita; // Label6(2)
};

constexpr std::array<VoceCatalogo, 12> catalogo{{
    {{u" u ", u" d ", u" c ", u" m "}, 2, u" unità,    decimi, centesimi, millesimi"},
    {{u"    ", u" h  ", u" da ", u" u  "}, 1, u"centinaia, decine, unità"},
    {{u" k ", u" h ", u" da", u" u "}, 2, u" migliaia,    centinaia, decine, unità"},
    {{u"  m ", u" dm ", u" cm ", u" mm "}, 2, u" metri,    decimetri, centimetri, millimetri"},
    {{u"     ", u"  hm ", u" dam ", u"   m "}, 1, u" ettometri, decametri, metri"},
    {{u" km ", u" hm ", u" dam ", u" m"}, 2, u" chilometri,    ettometri, decametri, metri"},
    {{u"  g ", u" dg ", u" cg ", u" mg"}, 2, u" grammi,    decigrammi, centigrammi, milligrammi"},
    {{u"     ", u"  hg ", u" dag ", u"   g "}, 1, u" ettogrammi, decagrammi, grammi"},
    {{u"  kg", u"  hg", u" dag", u"   g"}, 2, u" chilogrammi    ettogrammi, decagrammi, grammi"},
    {{u"  t", u"  q", u" Mg", u" kg"}, 2, u" tonnellate,    quintali, miriagrammi, chilogrammi"},
    {{u"  l", u" dl", u" cl", u" ml"}, 2, u" litri,    decilitri, centilitri, millilitri"},
    {{u"  ", u"  hl", u" dal", u"   l"}, 1, u" ettolitri, decalitri, litri"},
}};

// Levels 1..3 are the number systems, the rest are measures.
constexpr qint16 ultimoLivelloNumeri = 3;

} // namespace

QString NomiArgomento(qint16 livello)
{
    if (livello < 1 || livello > qint16(catalogo.size()))
        return {};
    return QString::fromUtf16(catalogo[std::size_t(livello - 1)].nomiUnita);
}

void SceltaSimboli(qint16 livello, TopicInstallato &topic, TitoliInizio &titoli)
{
    if (livello >= 1 && livello <= qint16(catalogo.size())) {
        const VoceCatalogo &voce = catalogo[std::size_t(livello - 1)];
        for (int p = 1; p <= 4; ++p)
            topic.Simboli[std::size_t(p)] = QString::fromUtf16(voce.simboli[p - 1]);
        topic.ClassePosizioni = voce.classePosizioni;

        const bool numeri = livello <= ultimoLivelloNumeri;
        titoli.caption = (numeri ? QStringLiteral("SISTEMA DECIMALE: ")
                                 : QStringLiteral("SISTEMA METRICO: "))
                         + QStringLiteral("composizione");
        titoli.Label6[0] = numeri ? QStringLiteral("SISTEMA DECIMALE ")
                                  : QStringLiteral("SISTEMA METRICO");
        titoli.Label6[1] = numeri ? QStringLiteral("COMPOSIZIONE DEI NUMERI")
                                  : QStringLiteral("COMPOSIZIONE DELLE MISURE");
        titoli.Label6[2] = NomiArgomento(livello);
    }
    // Rewritten even when the level is unknown: the menu follows whatever
    // names line the start screen is showing.
    titoli.mnuSchede = QStringLiteral("Stampa schede: ") + titoli.Label6[2];
}
