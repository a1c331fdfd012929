#include "content/algoritmi.h"
#include "content/catalogo.h"
#include "content/formatta.h"
#include "fakes/fakes.h"

#include <QtTest>

class TestContent : public QObject
{
    Q_OBJECT
private slots:
    // Every answer text is checked under a locale with the opposite
    // separators: the keypad offers only ",".
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }

    // Each group drawn at its last entry (which also catches a wrong first
    // one) and most at their first, alone and through the mixed order (the
    // irregular layouts are in the worksheets' and exercises' data); order 0,
    // which draws no template and builds the one the item holds, unless it is
    // out of the table. Template 1 also pins the number drawn: 4 repeats it.
    void modello_data()
    {
        QTest::addColumn<int>("livello");
        QTest::addColumn<int>("ordine");
        QTest::addColumn<QList<int>>("cifre");
        QTest::addColumn<int>("modello");
        QTest::addColumn<QString>("domanda");
        QTest::addColumn<QString>("simbolo");
        QTest::addColumn<QString>("numero");
        const QList<int> c = {2, 13, 4, 7}, d = {1, 4, 5, 6};
        QTest::newRow("1") << 2 << 1 << d << 1 << " 4 h     5 da " << " da " << "45";
        QTest::newRow("12 mixed, nine and ten") << 2 << 3 << QList<int>{1, 1, 9, 10} << 12 << " 9 da   10 u  " << " da " << "10";
        QTest::newRow("46 mixed, binary noise") << 3 << 3 << c << 46 << " 4 da   7 u " << " k " << "0,047";
        QTest::newRow("47") << 12 << 2 << QList<int>{9, 5, 4, 9} << 47 << " 4 dal   5  hl" << " dal" << "54";
        QTest::newRow("71") << 2 << 2 << d << 71 << " 4 h     6 u     5 da " << " u  " << "456";
        QTest::newRow("72 mixed") << 11 << 3 << QList<int>{3, 4, 1, 1} << 72 << " 4 dl   3  l" << " dl" << "34";
        QTest::newRow("182") << 3 << 2 << c << 182 << " 4 da  13 h    7 u " << " k " << "1,347";
        QTest::newRow("order 0 builds 41") << 3 << 0 << c << 41 << "13 h    4 da" << " k " << "1,34";
        QTest::newRow("order 0, 0 left alone") << 3 << 0 << c << 0 << "prima" << "prima" << "prima";
        QTest::newRow("order 0, 183 left alone") << 3 << 0 << c << 183 << "prima" << "prima" << "prima";
    }
    void modello()
    {
        QFETCH(int, livello);
        QFETCH(int, ordine);
        QFETCH(QList<int>, cifre);
        QFETCH(int, modello);
        const auto [gruppo, primo, quanti] = modello <= 12 ? std::tuple(1, 1, 12)
                                           : modello <= 46 ? std::tuple(1, 13, 34)
                                           : modello <= 71 ? std::tuple(2, 47, 25) : std::tuple(2, 72, 111);
        FakeClock clock;
        FakeRandom random;
        TopicInstallato topic;
        TitoliInizio titoli;
        SceltaSimboli(qint16(livello), topic, titoli);
        Item item;
        qint16 tipo = 0;
        const auto accoda = [&](int k, int n) { random.valori.push_back(FakeRandom::per(k, n)); };
        for (int volta = 0; volta < 2; ++volta) {
            random.valori.clear();
            item.NumeroModello = qint16(ordine ? 0 : modello);
            item.TestoDomanda = item.TestoSimboli = item.TestoNumero = QStringLiteral("prima");
            for (int k : cifre)
                accoda(k, 19);
            if (ordine == 3)
                accoda(gruppo, 2);
            accoda(modello - primo + 1, quanti);
            accoda(1, quanti);
            Generatore{clock, random, {}}.genera(19, qint16(ordine), topic, item, tipo);
            // Nothing past the template is drawn (order 0 draws none at all).
            QCOMPARE(random.valori.size(), std::size_t(ordine ? 1 : 2));
        }
        // Reseeded on every call, even when the clock has not moved.
        QCOMPARE(random.semi, QList<double>(2, clock.adesso));
        QCOMPARE(int(item.NumeroModello), modello);
        QCOMPARE(int(tipo), ordine == 3 ? gruppo : 0);
        QTEST(item.TestoDomanda, "domanda");
        QTEST(item.TestoSimboli, "simbolo");
        QTEST(item.TestoNumero, "numero");
    }

    void numero_data()
    {
        QTest::addColumn<double>("valore");
        QTest::addColumn<QString>("atteso");
        QTest::addColumn<bool>("messaggio");
        QTest::newRow("zero") << 0.0 << "0" << false;
        QTest::newRow("just below overflow") << 2147483647.5 << "2.147.483.647,5" << false;
        QTest::newRow("2^31") << 2147483648.0 << "" << true;
    }
    void numero()
    {
        QFETCH(double, valore);
        QFETCH(bool, messaggio);
        FakeMessageBox box;
        QTEST(FormattaNumero(valore, &box), "atteso");
        QTEST(FormattaNumero(valore, nullptr), "atteso");
        QCOMPARE(box.mostrati, messaggio ? QStringList{"Numero troppo grande! | Errore di overflow (!)"} : QStringList());
    }
};

QTEST_GUILESS_MAIN(TestContent)
#include "tst_content.moc"
