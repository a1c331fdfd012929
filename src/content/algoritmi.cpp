#include "content/algoritmi.h"
#include "content/errori.h"
#include "content/formatta.h"
#include "content/piattaforma.h"

#include <QVarLengthArray>
#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace {

// Templates 1..182, each "shown positions in question order > target".
// Groups: 1..12 ordered on three positions, 13..46 ordered on four,
// 47..71 not ordered on three, 72..182 not ordered on four. The repeats
// (1 = 4, 2 = 5) and the oddly ordered entries are deliberate and stay: they
// decide how often each form of item comes up.
constexpr std::array<std::string_view, 182> modelli{
    "23>3", "23>4", "34>4", "23>3", "23>4", "24>4", "234>4", "23>2", "24>2", "24>3",
    "34>2", "34>3", "12>2", "12>3", "12>4", "13>3", "13>4", "14>4", "123>4", "123>3",
    "124>4", "134>4", "1234>4", "12>1", "13>1", "13>2", "14>1", "14>2", "14>3", "123>1",
    "123>2", "124>1", "124>2", "124>3", "134>1", "134>2", "134>3", "1234>1", "1234>2", "1234>3",
    "23>1", "24>1", "234>1", "234>2", "234>3", "34>1", "32>3", "32>4", "42>4", "432>4",
    "324>4", "342>4", "43>4", "423>4", "32>1", "32>2", "42>2", "42>3", "43>2", "43>3",
    "243>2", "243>3", "423>2", "423>3", "432>2", "432>3", "324>2", "324>3", "342>2", "342>3",
    "243>4", "21>2", "21>3", "21>4", "31>3", "31>4", "41>4", "132>3", "132>4", "312>3",
    "312>4", "321>3", "321>4", "231>3", "231>4", "213>3", "213>4", "142>4", "412>4", "421>4",
    "214>4", "241>4", "143>4", "413>4", "431>4", "341>4", "314>4", "3124>4", "3142>4", "4123>4",
    "4213>4", "1243>4", "1324>4", "2143>4", "2413>4", "21>1", "31>1", "31>2", "41>1", "41>2",
    "41>3", "132>1", "132>2", "312>1", "312>2", "321>1", "321>2", "231>1", "231>2", "213>1",
    "213>2", "142>1", "142>2", "142>3", "412>1", "412>2", "412>3", "421>1", "421>2", "421>3",
    "214>1", "214>2", "214>3", "241>1", "241>2", "241>3", "143>1", "143>2", "342>1", "143>3",
    "413>1", "413>2", "413>3", "431>1", "431>2", "431>3", "341>1", "341>2", "341>3", "314>1",
    "314>2", "314>3", "3124>1", "3124>2", "3124>3", "3142>1", "3142>2", "3142>3", "4123>1", "4123>2",
    "4123>3", "4213>1", "4213>2", "4213>3", "1243>1", "1243>2", "1243>3", "1324>1", "1324>2", "1324>3",
    "2143>1", "2143>2", "2143>3", "2413>1", "2413>2", "2413>3", "42>1", "43>1", "243>1", "423>1",
    "432>1", "324>1",
};

// Where the question text does not follow the plain "groups joined by two
// blanks" rule. Layout codes: a digit p is the group of position p (count and
// symbol), "cp" the count of p alone, "sp" the symbol of p alone, "_" the
// two-blank separator. The value still counts every shown position.
struct Disposizione {
    qint16 modello;
    std::string_view codici;
};
constexpr std::array<Disposizione, 4> disposizioniFuoriRegola{{
    {103, "s1_3_2_4"},
    {126, "4__1_2"},
    {145, "43_1"},
    {168, "c13_2_4"},
}};

struct Gruppo {
    qint16 primo;
    int quanti;
};
constexpr Gruppo ordinatiTre{1, 12}, ordinatiQuattro{13, 34};
constexpr Gruppo sparsiTre{47, 25}, sparsiQuattro{72, 111};

constexpr std::array<qint16, 4> potenze{1000, 100, 10, 1}; // weight of positions 1..4

// Int(Rnd * n) + 1
int estrai(IRandom &random, int n)
{
    return int(std::floor(random.Rnd() * n)) + 1;
}

qint16 prodotto16(qint16 a, qint16 b)
{
    const int r = int(a) * int(b);
    if (r > 32767 || r < -32768)
        throw ErroreOverflow("16-bit overflow");
    return qint16(r);
}

QString testoConteggioNuovo(qint16 c)
{
    return c <= 9 ? QLatin1Char(' ') + QString::number(c) : QString::number(c);
}

// Counts come from 1..19 in practice: their texts are built once and shared,
// which keeps allocations out of the per-item path.
QString testoConteggio(qint16 c)
{
    static const std::array<QString, 100> pronti = [] {
        std::array<QString, 100> t;
        for (qint16 i = 0; i < 100; ++i)
            t[std::size_t(i)] = testoConteggioNuovo(i);
        return t;
    }();
    return c >= 0 && c < 100 ? pronti[std::size_t(c)] : testoConteggioNuovo(c);
}

std::string_view disposizione(qint16 modello, std::string_view posizioni)
{
    for (const Disposizione &d : disposizioniFuoriRegola)
        if (d.modello == modello)
            return d.codici;
    return posizioni;
}

void scriviDomanda(std::string_view codici, bool uniti, const TopicInstallato &topic,
                   const Item &item, QString &domanda)
{
    // Built on the stack and copied once: the question is rewritten for every
    // item and usually fits the capacity the previous one left.
    QVarLengthArray<QChar, 128> testo;
    const auto aggiungi = [&](const QString &s) { testo.append(s.constData(), s.size()); };
    const auto separa = [&] { testo.append(QChar(u' ')); testo.append(QChar(u' ')); };
    for (std::size_t i = 0; i < codici.size(); ++i) {
        const char c = codici[i];
        if (c == '_') {
            separa();
        } else if (c == 'c' || c == 's') {
            const std::size_t p = std::size_t(codici[++i] - '0');
            aggiungi(c == 'c' ? item.TestoCifre[p] : topic.Simboli[p]);
        } else {
            // Plain templates list bare positions: the separators are implied.
            if (uniti && i > 0)
                separa();
            const std::size_t p = std::size_t(c - '0');
            aggiungi(item.TestoCifre[p]);
            aggiungi(topic.Simboli[p]);
        }
    }
    domanda.resize(testo.size());
    std::copy(testo.cbegin(), testo.cend(), domanda.data());
}

} // namespace

QList<PezzoDomanda> PezziDomanda(qint16 modello)
{
    QList<PezzoDomanda> pezzi;
    if (modello < 1 || modello > qint16(modelli.size()))
        return pezzi;
    const std::string_view voce = modelli[std::size_t(modello - 1)];
    const std::string_view codici = disposizione(modello, voce.substr(0, voce.find('>')));
    for (std::size_t i = 0; i < codici.size(); ++i) {
        const char c = codici[i];
        if (c == '_')
            continue;
        if (c == 'c' || c == 's')
            pezzi.append({qint16(codici[++i] - '0'), c == 'c', c == 's'});
        else
            pezzi.append({qint16(c - '0'), true, true});
    }
    return pezzi;
}

void Generatore::genera(qint16 valoreMassimo, qint16 ordineSimboli, const TopicInstallato &topic,
                        Item &item, qint16 &tipoCorrente) const
{
    random.Randomize(clock.Timer());

    for (std::size_t p = 1; p <= 4; ++p) {
        item.Cifre[p] = qint16(estrai(random, valoreMassimo));
        item.TestoCifre[p] = testoConteggio(item.Cifre[p]);
    }

    qint16 tipo = ordineSimboli;
    if (ordineSimboli == 3) {
        tipoCorrente = qint16(estrai(random, 2));
        tipo = tipoCorrente;
    }
    const Gruppo *gruppo = nullptr;
    if (tipo == 1)
        gruppo = topic.ClassePosizioni == 1 ? &ordinatiTre
                 : topic.ClassePosizioni == 2 ? &ordinatiQuattro : nullptr;
    else if (tipo == 2)
        gruppo = topic.ClassePosizioni == 1 ? &sparsiTre
                 : topic.ClassePosizioni == 2 ? &sparsiQuattro : nullptr;
    if (gruppo)
        item.NumeroModello = qint16(estrai(random, gruppo->quanti) - 1 + gruppo->primo);

    if (mostraNumeroModello)
        mostraNumeroModello(item.NumeroModello);

    if (item.NumeroModello < 1 || item.NumeroModello > qint16(modelli.size()))
        return;

    const std::string_view voce = modelli[std::size_t(item.NumeroModello - 1)];
    const std::size_t freccia = voce.find('>');
    const std::string_view posizioni = voce.substr(0, freccia);
    const std::size_t bersaglio = std::size_t(voce[freccia + 1] - '0');

    const std::string_view codici = disposizione(item.NumeroModello, posizioni);
    scriviDomanda(codici, codici == posizioni, topic, item, item.TestoDomanda);
    item.TestoSimboli = topic.Simboli[bersaglio];

    qint16 valore = 0;
    for (const char c : posizioni) {
        const std::size_t p = std::size_t(c - '0');
        valore = somma16(valore, prodotto16(item.Cifre[p], potenze[p - 1]));
    }
    item.TestoNumero = FormattaNumero(double(valore) / potenze[bersaglio - 1], nullptr);
}
