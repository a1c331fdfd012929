#include "content/algoritmi.h"
#include "content/catalogo.h"
#include "fakes/fakes.h"

#include <QtTest>

namespace {

struct Banco {
    FakeClock clock;
    FakeRandom random;
    TopicInstallato topic;
    TitoliInizio titoli;
    Item item;
    qint16 tipo = 0;
    QList<qint16> mostrati;

    explicit Banco(int livello) { SceltaSimboli(qint16(livello), topic, titoli); }
    void accoda(QList<int> valori, int n)
    {
        for (int k : valori)
            random.valori.push_back(FakeRandom::per(k, n));
    }
    void genera(int massimo, int ordine)
    {
        Generatore g{clock, random, [this](qint16 n) { mostrati.append(n); }};
        g.genera(qint16(massimo), qint16(ordine), topic, item, tipo);
    }
};

} // namespace

class TestAlgoritmi : public QObject
{
    Q_OBJECT

private slots:
    void modello_data()
    {
        QTest::addColumn<int>("livello");
        QTest::addColumn<QList<int>>("cifre");
        QTest::addColumn<int>("modello");
        QTest::addColumn<QString>("domanda");
        QTest::addColumn<QString>("simbolo");
        QTest::addColumn<QString>("numero");
        const QList<int> c = {2, 13, 4, 7}, d = {1, 4, 5, 6};
        QTest::newRow("1 hundreds-tens to tens") << 2 << d << 1 << " 4 h     5 da " << " da " << "45";
        QTest::newRow("4 repeats 1") << 2 << d << 4 << " 4 h     5 da " << " da " << "45";
        QTest::newRow("5 repeats 2") << 2 << d << 5 << " 4 h     5 da " << " u  " << "450";
        QTest::newRow("19 ordered to units") << 3 << c << 19 << " 2 k   13 h    4 da" << " u " << "3.340";
        QTest::newRow("23 largest value") << 3 << QList<int>{19, 19, 19, 19} << 23 << "19 k   19 h   19 da  19 u " << " u " << "21.109";
        QTest::newRow("41 target above shown") << 3 << c << 41 << "13 h    4 da" << " k " << "1,34";
        QTest::newRow("46 thousandths") << 3 << QList<int>{1, 1, 5, 6} << 46 << " 5 da   6 u " << " k " << "0,056";
        QTest::newRow("55 blank symbol, topic 2") << 2 << QList<int>{9, 5, 4, 9} << 55 << " 4 da    5 h  " << "    " << "0,54";
        QTest::newRow("55 blank symbol, topic 5") << 5 << QList<int>{9, 5, 4, 9} << 55 << " 4 dam    5  hm " << "     " << "0,54";
        QTest::newRow("55 blank symbol, topic 12") << 12 << QList<int>{9, 5, 4, 9} << 55 << " 4 dal   5  hl" << "  " << "0,54";
        QTest::newRow("71 last of three") << 2 << d << 71 << " 4 h     6 u     5 da " << " u  " << "456";
        QTest::newRow("72 litres") << 11 << QList<int>{3, 4, 1, 1} << 72 << " 4 dl   3  l" << " dl" << "34";
        QTest::newRow("103 lone first symbol") << 3 << c << 103 << " k    4 da  13 h    7 u " << " u " << "3.347";
        QTest::newRow("126 four blanks") << 3 << c << 126 << " 7 u      2 k   13 h " << " h " << "33,07";
        QTest::newRow("139 out of run") << 3 << c << 139 << " 4 da   7 u   13 h " << " k " << "1,347";
        QTest::newRow("145 no blanks") << 3 << c << 145 << " 7 u  4 da   2 k " << " h " << "20,47";
        QTest::newRow("146 after the odd one") << 3 << c << 146 << " 7 u    4 da   2 k " << " da" << "204,7";
        QTest::newRow("168 lone first count") << 3 << c << 168 << " 2 4 da  13 h    7 u " << " k " << "3,347";
        QTest::newRow("182 last template") << 3 << c << 182 << " 4 da  13 h    7 u " << " k " << "1,347";
    }
    void modello()
    {
        QFETCH(int, livello);
        QFETCH(QList<int>, cifre);
        QFETCH(int, modello);
        const auto [ordine, primo, quanti] = modello <= 12 ? std::tuple(1, 1, 12)
                                           : modello <= 46 ? std::tuple(1, 13, 34)
                                           : modello <= 71 ? std::tuple(2, 47, 25)
                                                           : std::tuple(2, 72, 111);
        Banco b(livello);
        b.accoda(cifre, 19);
        b.accoda({modello - primo + 1}, quanti);
        b.genera(19, ordine);
        QCOMPARE(b.mostrati, QList<qint16>{qint16(modello)});
        QTEST(b.item.TestoDomanda, "domanda");
        QTEST(b.item.TestoSimboli, "simbolo");
        QTEST(b.item.TestoNumero, "numero");
    }

    // Every template of a group is reachable, and each item takes exactly the
    // expected number of draws.
    void estrazione_data()
    {
        QTest::addColumn<int>("ordine");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("livello");
        QTest::addColumn<int>("primo");
        QTest::addColumn<int>("quanti");
        QTest::newRow("ordered, three") << 1 << 0 << 2 << 1 << 12;
        QTest::newRow("ordered, four") << 1 << 0 << 3 << 13 << 34;
        QTest::newRow("not ordered, three") << 2 << 0 << 8 << 47 << 25;
        QTest::newRow("not ordered, four") << 2 << 0 << 11 << 72 << 111;
        QTest::newRow("mixed drawn ordered") << 3 << 1 << 12 << 1 << 12;
        QTest::newRow("mixed drawn not ordered") << 3 << 2 << 1 << 72 << 111;
    }
    void estrazione()
    {
        QFETCH(int, ordine);
        QFETCH(int, tipo);
        QFETCH(int, primo);
        QFETCH(int, quanti);
        QFETCH(int, livello);
        Banco b(livello);
        for (int k = 1; k <= quanti; ++k) {
            b.random.valori.clear();
            b.accoda({1, 1, 1, 1}, 9);
            if (tipo)
                b.accoda({tipo}, 2);
            b.accoda({k, 1}, quanti); // the last value must stay unread
            b.genera(9, ordine);
            QCOMPARE(int(b.item.NumeroModello), primo + k - 1);
            QCOMPARE(b.random.valori.size(), std::size_t(1));
            QCOMPARE(int(b.tipo), tipo);
        }
        // Reseeded on every call, even when the clock has not moved.
        QCOMPARE(b.random.semi, QList<double>(quanti, b.clock.adesso));
    }

    void conteggi_data()
    {
        QTest::addColumn<int>("massimo");
        QTest::addColumn<double>("rnd");
        QTest::addColumn<QString>("testo");
        QTest::newRow("lowest") << 9 << 0.0 << " 1";
        QTest::newRow("one digit top") << 9 << 0.9999 << " 9";
        QTest::newRow("ten has no blank") << 19 << FakeRandom::per(10, 19) << "10";
        QTest::newRow("two digit top") << 19 << 0.9999 << "19";
    }
    void conteggi()
    {
        QFETCH(int, massimo);
        QFETCH(double, rnd);
        Banco b(3);
        b.random.dopo = rnd;
        b.genera(massimo, 1);
        for (std::size_t p = 1; p <= 4; ++p) {
            QTEST(b.item.TestoCifre[p], "testo");
            QCOMPARE(QString::number(b.item.Cifre[p]), b.item.TestoCifre[p].trimmed());
        }
    }

    // Unknown order or class, or a template number out of the table, leave
    // the template and the texts alone; the counts are drawn all the same.
    void fuoriIntervallo_data()
    {
        QTest::addColumn<int>("ordine");
        QTest::addColumn<int>("classe");
        QTest::addColumn<int>("modello");
        QTest::addColumn<int>("tipo");
        QTest::newRow("order 0") << 0 << 2 << 5 << 0;
        QTest::newRow("order 4") << 4 << 1 << 5 << 0;
        QTest::newRow("class 0") << 1 << 0 << 5 << 0;
        QTest::newRow("mixed, class 3") << 3 << 3 << 5 << 2;
        QTest::newRow("template 0") << 0 << 2 << 0 << 0;
        QTest::newRow("template 183") << 0 << 2 << 183 << 0;
    }
    void fuoriIntervallo()
    {
        QFETCH(int, ordine);
        QFETCH(int, classe);
        QFETCH(int, modello);
        Banco b(3);
        b.topic.ClassePosizioni = qint16(classe);
        b.item.NumeroModello = qint16(modello);
        b.item.TestoDomanda = b.item.TestoSimboli = b.item.TestoNumero = QStringLiteral("prima");
        b.accoda({3, 4, 5, 6}, 9);
        b.random.dopo = 0.75;
        b.genera(9, ordine);
        QCOMPARE(b.mostrati, QList<qint16>{qint16(modello)});
        QTEST(int(b.tipo), "tipo");
        QCOMPARE(b.item.TestoCifre[4], QStringLiteral(" 6"));
        // An unchanged number inside the table is still built (template 5 targets units).
        const bool tenuto = modello < 1 || modello > 182;
        QCOMPARE(b.item.TestoSimboli, tenuto ? QStringLiteral("prima") : b.topic.Simboli[4]);
        QCOMPARE(b.item.TestoDomanda == QStringLiteral("prima"), tenuto);
        QCOMPARE(b.item.TestoNumero == QStringLiteral("prima"), tenuto);
    }
};

QTEST_GUILESS_MAIN(TestAlgoritmi)
#include "tst_algoritmi.moc"
