#include "content/catalogo.h"
#include "fakes/fakes.h"
#include "printing/schede.h"
#include "settings/stato.h"

#include <QtTest>

namespace {
QString b(int n)
{
    return QString(n, QLatin1Char(' '));
}
} // namespace

class TestSchede : public QObject
{
    Q_OBJECT
    FakeClock clock_;
    FakeRandom random_;
    Stato s_;

private slots:
    void rigaNumero_data()
    {
        QTest::addColumn<QString>("domanda");
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("simboli");
        QTest::addColumn<QString>("alunni");
        QTest::addColumn<QString>("docenti");
        const QString d1 = " 2 k   13 h    4 da"; // 19 characters
        QTest::newRow("one-letter unit gets a blank before it")
            << d1 << "3.340" << " u " << b(11) + d1 + " = ......      u"
            << b(11) + d1 + " = ......      u" + b(3) + b(10) + "(R. 3.340)";
        const QString d2 = "13 h    4 da"; // 12
        QTest::newRow("two-letter unit, decimal answer")
            << d2 << "1,34" << " da" << b(18) + d2 + " = ......     da" << b(18) + d2 + " = ......     da" + b(3) + b(11) + "(R. 1,34)";
        QTest::newRow("blank unit of a three-position topic")
            << d2 << "0,054" << "    " << b(18) + d2 + " = ......     " << b(18) + d2 + " = ......     " + b(3) + b(10) + "(R. 0,054)";
        QTest::newRow("answer regrouped by thousands")
            << d2 << "21.109" << " u  " << b(18) + d2 + " = ......      u" << b(18) + d2 + " = ......      u" + b(3) + b(9) + "(R. 21.109)";
        const QString lunga = "19 k   19 h   19 da   19 u   19"; // 31: no padding, not cut
        QTest::newRow("question past column 30")
            << lunga << "45" << "dam" << lunga + " = ......     dam" << lunga + " = ......     dam" + b(3) + b(13) + "(R. 45)";
    }
    void rigaNumero()
    {
        QFETCH(QString, domanda);
        QFETCH(QString, numero);
        QFETCH(QString, simboli);
        const RigaScheda r = RigaNumero(domanda, numero, simboli);
        QTEST(r.alunni, "alunni");
        QTEST(r.docenti, "docenti");
    }

    void rigaSimbolo_data()
    {
        QTest::addColumn<QString>("domanda");
        QTest::addColumn<QString>("numero");
        QTest::addColumn<QString>("simboli");
        QTest::addColumn<QString>("alunni");
        QTest::addColumn<QString>("docenti");
        const QString d = " 4 h     5 da"; // 13
        const QString a = b(17) + d + " = " + b(11) + "45  ... ";
        QTest::newRow("two-letter symbol keeps its leading blank") << d << "45" << " da " << a << a + b(10) + "(R. da)";
        QTest::newRow("one-letter symbol, wider gap") << d << "45" << " u " << a << a + b(11) + "(R. u)";
        QTest::newRow("blank symbol") << d << "45" << "    " << a << a + b(10) + "(R.)";
        QTest::newRow("no blanks at all") << d << "45" << "dam" << a << a + b(10) + "(R.dam)";
        const QString n = "0,054"; // printed as it stands
        QTest::newRow("decimal number") << d << n << " k " << b(17) + d + " = " + b(8) + n + "  ... "
                                        << b(17) + d + " = " + b(8) + n + "  ... " + b(11) + "(R. k)";
        const QString lungo = "12345678901234"; // 14: no padding
        QTest::newRow("number past 13 columns") << d << lungo << " u " << b(17) + d + " = " + lungo + "  ... "
                                                << b(17) + d + " = " + lungo + "  ... " + b(11) + "(R. u)";
    }
    void rigaSimbolo()
    {
        QFETCH(QString, domanda);
        QFETCH(QString, numero);
        QFETCH(QString, simboli);
        const RigaScheda r = RigaSimbolo(domanda, numero, simboli);
        QTEST(r.alunni, "alunni");
        QTEST(r.docenti, "docenti");
    }

    // Every line draws its item, reseeds once more and, for the mixed kind,
    // draws its own form; pupils' lines and teachers' lines land at 1..count.
    void genera_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("conteggio");
        QTest::addColumn<QString>("forme"); // N number line, S symbol line
        QTest::newRow("numbers, 10") << 1 << 10 << QString(10, 'N');
        QTest::newRow("symbols, 20") << 2 << 20 << QString(20, 'S');
        QTest::newRow("mixed, 30") << 3 << 30 << QString("NSSNNNSNSSSSNNSNSNSNNNNSSSNSNS");
    }
    void genera()
    {
        QFETCH(int, tipo);
        QFETCH(int, conteggio);
        QFETCH(QString, forme);
        s_ = Stato();
        random_ = FakeRandom();
        s_.servizi.clock = &clock_;
        s_.servizi.random = &random_;
        s_.settings.TipoEsercizio = qint16(tipo);
        s_.settings.OrdineSimboli = 1;
        s_.settings.ValoreMassimo = 9;
        SceltaSimboli(3, s_.topic, s_.titoli);
        for (int i = 0; i < 61; ++i) {
            s_.record.RigheEsercizio[std::size_t(i)] = "old";
            s_.fogli.RigheDocenti[std::size_t(i)] = "old";
        }
        // Per line: four counts and a template for the item, then the form
        // (drawn only for the mixed kind).
        for (const QChar f : forme) {
            random_.valori.insert(random_.valori.end(), 5, 0.0);
            if (tipo == 3)
                random_.valori.push_back(f == 'N' ? 0.2 : 0.7);
        }
        random_.dopo = 0.9; // any extra draw would show

        GeneraRigheScheda(s_, conteggio);

        // With every count and template draw at 0, all items are the same.
        const Item &it = s_.item;
        const RigaScheda n = RigaNumero(it.TestoDomanda, it.TestoNumero, it.TestoSimboli);
        const RigaScheda sy = RigaSimbolo(it.TestoDomanda, it.TestoNumero, it.TestoSimboli);
        QVERIFY(n.alunni != sy.alunni);
        for (int k = 1; k <= conteggio; ++k) {
            const RigaScheda &atteso = forme[k - 1] == 'N' ? n : sy;
            QCOMPARE(s_.record.RigheEsercizio[std::size_t(k)], atteso.alunni);
            QCOMPARE(s_.fogli.RigheDocenti[std::size_t(k)], atteso.docenti);
        }
        for (int k : {0, conteggio + 1, 60}) {
            QCOMPARE(s_.record.RigheEsercizio[std::size_t(k)], QStringLiteral("old"));
            QCOMPARE(s_.fogli.RigheDocenti[std::size_t(k)], QStringLiteral("old"));
        }
        QVERIFY(random_.valori.empty());
        if (tipo == 3)
            QCOMPARE(s_.TipoCorrente, qint16(forme.back() == 'N' ? 1 : 2));
        QCOMPARE(random_.semi.size(), 2 * conteggio);
        for (double seme : random_.semi)
            QCOMPARE(seme, clock_.adesso);
    }

    void generaOltreIlBuffer()
    {
        s_ = Stato();
        s_.servizi.clock = &clock_;
        s_.servizi.random = &random_;
        s_.settings = Settings{};
        s_.settings.TipoEsercizio = 1;
        s_.settings.OrdineSimboli = 2;
        s_.settings.ValoreMassimo = 19;
        SceltaSimboli(1, s_.topic, s_.titoli);
        QVERIFY_THROWS_EXCEPTION(ErroreIntervallo, GeneraRigheScheda(s_, 61));
        QVERIFY(!s_.record.RigheEsercizio[60].isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSchede)
#include "tst_schede.moc"
