#include "content/parole.h"
#include "content/algoritmi.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

const char *const unita[20] = {"zero",    "uno",     "due",         "tre",      "quattro",
                               "cinque",  "sei",     "sette",       "otto",     "nove",
                               "dieci",   "undici",  "dodici",      "tredici",  "quattordici",
                               "quindici", "sedici", "diciassette", "diciotto", "diciannove"};
const char *const decine[10] = {"", "", "venti", "trenta", "quaranta", "cinquanta", "sessanta", "settanta",
                                "ottanta", "novanta"};

QString finoA99(int n)
{
    if (n < 20)
        return QString::fromLatin1(unita[n]);
    QString t = QString::fromLatin1(decine[n / 10]);
    const int u = n % 10;
    if (u == 0)
        return t;
    // "ventuno", "trentotto": the ten loses its vowel before a vowel.
    if (u == 1 || u == 8)
        t.chop(1);
    return t + QString::fromLatin1(unita[u]);
}

QString finoA999(int n)
{
    const int c = n / 100, r = n % 100;
    QString t;
    if (c > 0)
        t = (c == 1 ? QString() : QString::fromLatin1(unita[c])) + QStringLiteral("cento");
    if (r == 0)
        return c > 0 ? t : QString();
    // "centotto", "centottanta", but "centouno".
    if (c > 0 && (r == 8 || r / 10 == 8))
        t.chop(1);
    return t + finoA99(r);
}

bool femminile(const QString &plurale)
{
    return plurale.endsWith(u'e') || plurale.endsWith(QStringLiteral("aia")) || plurale.endsWith(u'à');
}

QString singolare(const QString &plurale)
{
    QString s = plurale;
    if (s.endsWith(QStringLiteral("aia")) || s.endsWith(QStringLiteral("ali")))
        s.back() = s.endsWith(u'a') ? u'o' : u'e';
    else if (s.endsWith(u'e'))
        s.back() = u'a';
    else if (s.endsWith(u'i'))
        s.back() = u'o';
    return s;
}

QString conMaiuscola(QString s)
{
    if (!s.isEmpty())
        s[0] = s[0].toUpper();
    return s;
}

// The position whose symbol is the item's target: the answer of a symbol
// item, and the unit a number item asks for. 0 when none matches.
qint16 posizioneBersaglio(const Item &item, const TopicInstallato &topic)
{
    for (qint16 p = 1; p <= 4; ++p)
        if (topic.Simboli[std::size_t(p)] == item.TestoSimboli)
            return p;
    return 0;
}

} // namespace

QString NumeroInParole(qint64 n)
{
    if (n < 0 || n > 999999)
        return QString::number(n);
    if (n == 0)
        return QStringLiteral("zero");
    const int migliaia = int(n / 1000), resto = int(n % 1000);
    QString t = migliaia == 0 ? QString()
                : migliaia == 1 ? QStringLiteral("mille")
                                : finoA999(migliaia) + QStringLiteral("mila");
    t += finoA999(resto);
    // A compound ending in "tre" takes the accent: "ventitré", "centotré".
    if (n > 20 && t.endsWith(QStringLiteral("tre")))
        t.back() = u'é';
    return t;
}

QString TestoInParole(const QString &testo)
{
    static const QRegularExpression numero(QStringLiteral("^(\\d{1,3}(?:\\.\\d{3})*|\\d+)(?:,(\\d+))?$"));
    const QString t = testo.trimmed();
    const QRegularExpressionMatch m = numero.match(t);
    if (!m.hasMatch())
        return testo;
    QString intera = m.captured(1);
    intera.remove(u'.');
    if (intera.size() > 6)
        return testo;
    QString parole = NumeroInParole(intera.toLongLong());
    const QString decimali = m.captured(2);
    if (decimali.isEmpty() || decimali.size() > 6)
        return decimali.isEmpty() ? parole : testo;
    parole += QStringLiteral(" virgola");
    // "0,047": each leading zero is said, then the rest as one number.
    qsizetype i = 0;
    for (; i < decimali.size() - 1 && decimali[i] == u'0'; ++i)
        parole += QStringLiteral(" zero");
    return parole + u' ' + NumeroInParole(decimali.mid(i).toLongLong());
}

std::array<QString, 5> NomiUnita(const QString &rigaNomi, qint16 classePosizioni)
{
    static const QRegularExpression separatori(QStringLiteral("[,\\s]+"));
    const QStringList nomi = rigaNomi.split(separatori, Qt::SkipEmptyParts);
    std::array<QString, 5> perPosizione;
    const int primo = classePosizioni == 1 ? 2 : 1;
    for (int p = primo; p <= 4; ++p)
        perPosizione[std::size_t(p)] = nomi.value(p - primo);
    return perPosizione;
}

QString Quantita(qint16 conteggio, const QString &nomePlurale)
{
    if (conteggio != 1)
        return NumeroInParole(conteggio) + u' ' + nomePlurale;
    // "le centinaia", but "un centinaio": the singular decides the article.
    const QString nome = singolare(nomePlurale);
    if (!nome.endsWith(u'a') && !nome.endsWith(u'à'))
        return QStringLiteral("un ") + nome;
    return (nome.startsWith(u'u') ? QStringLiteral("un'") : QStringLiteral("una ")) + nome;
}

QString FraseDomanda(const Item &item, const TopicInstallato &topic, const QString &rigaNomi, bool numero)
{
    const std::array<QString, 5> nomi = NomiUnita(rigaNomi, topic.ClassePosizioni);
    QStringList pezzi;
    for (const PezzoDomanda &p : PezziDomanda(item.NumeroModello)) {
        const QString &nome = nomi[std::size_t(p.posizione)];
        const qint16 conteggio = item.Cifre[std::size_t(p.posizione)];
        if (p.conteggio && p.simbolo && !nome.isEmpty())
            pezzi << Quantita(conteggio, nome);
        else if (p.conteggio)
            pezzi << NumeroInParole(conteggio);
        else if (!nome.isEmpty())
            pezzi << nome;
    }
    QString frase = conMaiuscola(pezzi.join(QStringLiteral(", "))) + QStringLiteral(". ");
    if (!numero)
        return frase + QStringLiteral("Sono ") + TestoInParole(item.TestoNumero) + QStringLiteral(": quale simbolo?");
    const QString &bersaglio = nomi[std::size_t(posizioneBersaglio(item, topic))];
    if (bersaglio.isEmpty())
        return frase + QStringLiteral("Scrivi il numero.");
    return frase + (femminile(bersaglio) ? QStringLiteral("Quante ") : QStringLiteral("Quanti ")) + bersaglio +
           QStringLiteral(" sono?");
}

QString FraseCorrezione(const Item &item, const TopicInstallato &topic, const QString &rigaNomi, bool numero)
{
    const QString inizio = QStringLiteral("La risposta giusta è ");
    if (numero)
        return inizio + TestoInParole(item.TestoNumero) + u'.';
    const QString nome = NomiUnita(rigaNomi, topic.ClassePosizioni)[std::size_t(posizioneBersaglio(item, topic))];
    return inizio + (nome.isEmpty() ? QStringLiteral("il ") + Frasi::simboloVuoto : nome) + u'.';
}

QString ParolaTasto(const QString &testo)
{
    QString t = testo;
    t.remove(u'&');
    t = t.trimmed();
    if (t == QStringLiteral(","))
        return QStringLiteral("virgola");
    if (t.compare(QStringLiteral("SI"), Qt::CaseInsensitive) == 0 || t == QStringLiteral("Sì"))
        return QStringLiteral("sì");
    static const QRegularExpression cifre(QStringLiteral("\\d+"));
    QString parlato;
    qsizetype da = 0;
    for (const QRegularExpressionMatch &m : cifre.globalMatch(t)) {
        parlato += t.mid(da, m.capturedStart() - da) + NumeroInParole(m.captured().toLongLong());
        da = m.capturedEnd();
    }
    return (parlato + t.mid(da)).toLower();
}
