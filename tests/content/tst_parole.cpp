#include "content/algoritmi.h"
#include "content/catalogo.h"
#include "content/parole.h"
#include "fakes/estrazioni.h"

#include <QRegularExpression>
#include <QtTest>

namespace {

// The item of `topic` drawn with template and counts as "M c1 c2 c3 c4".
Item item(int livello, const QString &voce, TopicInstallato &topic, TitoliInizio &titoli)
{
    SceltaSimboli(qint16(livello), topic, titoli);
    FakeClock orologio;
    FakeRandom caso;
    const int ordine = voce.section(u' ', 0, 0).toInt() <= 46 ? 1 : 2;
    caso.valori = estrazioni({voce}, topic.ClassePosizioni, ordine, 1, 19);
    Item it;
    qint16 tipo = 0;
    Generatore{orologio, caso, {}}.genera(19, qint16(ordine), topic, it, tipo);
    return it;
}

} // namespace

class TestParole : public QObject
{
    Q_OBJECT
private slots:
    // tests/data/parole.txt: numbers, counts, keys, unit names, sentences.
    void parole()
    {
        const QStringList attese = righeAttese(QStringLiteral("parole.txt"));
        QStringList viste;
        for (const QString &riga : attese) {
            const QString tipo = riga.section(u' ', 0, 0);
            const QString dato = riga.section(QLatin1String(" => "), 0, 0).mid(tipo.size() + 1);
            QString detto;
            if (tipo == QLatin1String("numero")) {
                detto = NumeroInParole(dato.toLongLong());
            } else if (tipo == QLatin1String("testo")) {
                detto = TestoInParole(dato);
            } else if (tipo == QLatin1String("quantita")) {
                detto = Quantita(qint16(dato.section(u' ', 0, 0).toInt()), dato.section(u' ', 1));
            } else if (tipo == QLatin1String("tasto")) {
                detto = ParolaTasto(dato);
            } else if (tipo == QLatin1String("unita")) {
                TopicInstallato t;
                TitoliInizio ti;
                SceltaSimboli(qint16(dato.toInt()), t, ti);
                const std::array<QString, 5> n = NomiUnita(ti.Label6[2], t.ClassePosizioni);
                QStringList l;
                for (int p = 1; p <= 4; ++p)
                    l << (n[std::size_t(p)].isEmpty() ? QStringLiteral("-") : n[std::size_t(p)]);
                detto = l.join(QStringLiteral(" | "));
            } else if (tipo == QLatin1String("domanda") || tipo == QLatin1String("correzione")) {
                TopicInstallato t;
                TitoliInizio ti;
                const Item it = item(dato.section(u' ', 0, 0).toInt(), dato.section(u' ', 1, 5), t, ti);
                const bool numero = dato.endsWith(QLatin1String("numero"));
                detto = tipo == QLatin1String("domanda") ? FraseDomanda(it, t, ti.Label6[2], numero)
                                                         : FraseCorrezione(it, t, ti.Label6[2], numero);
            } else {
                viste << riga;
                continue;
            }
            viste << riga.section(QLatin1String(" => "), 0, 0) + QStringLiteral(" => ") + detto;
        }
        CONFRONTA_RIGHE(viste, attese);
    }

    // Every template on every topic, both kinds: each symbol shown has a
    // spoken name, a blank one is never said, and no figure is left for the
    // engine to read digit by digit.
    void ogniDomanda()
    {
        static const QRegularExpression male(QStringLiteral("[0-9]|^[,. ]|, ,|,,|  |\\. \\.|, \\."));
        for (int livello = 1; livello <= 12; ++livello) {
            TopicInstallato t;
            TitoliInizio ti;
            SceltaSimboli(qint16(livello), t, ti);
            const std::array<QString, 5> nomi = NomiUnita(ti.Label6[2], t.ClassePosizioni);
            for (int p = 1; p <= 4; ++p)
                QVERIFY2(nomi[std::size_t(p)].isEmpty() == t.Simboli[std::size_t(p)].trimmed().isEmpty(),
                         qPrintable(QStringLiteral("topic %1 position %2").arg(livello).arg(p)));
            for (int m = 1; m <= 182; ++m) {
                const bool tre = m <= 12 || (m >= 47 && m <= 71);
                if (tre != (t.ClassePosizioni == 1))
                    continue;
                const Item it = item(livello, QStringLiteral("%1 1 2 3 4").arg(m), t, ti);
                for (bool numero : {true, false})
                    for (const QString &f : {FraseDomanda(it, t, ti.Label6[2], numero),
                                             FraseCorrezione(it, t, ti.Label6[2], numero)})
                        QVERIFY2(!male.match(f).hasMatch(),
                                 qPrintable(QStringLiteral("topic %1 template %2: %3").arg(livello).arg(m).arg(f)));
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestParole)
#include "tst_parole.moc"
