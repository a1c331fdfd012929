#include "ui/qtpiattaforma.h"

#include <QtTest>

class TestQtPiattaforma : public QObject
{
    Q_OBJECT
private slots:
    // The generator reseeds from the clock on every item: the same instant
    // must give the same draws, and the draws must stay inside [0, 1).
    void stessoSemeStesseEstrazioni_data()
    {
        QTest::addColumn<double>("seme");
        QTest::newRow("midnight") << 0.0;
        QTest::newRow("ten o'clock") << 36000.25;
        QTest::newRow("last second") << 86399.99;
    }
    void stessoSemeStesseEstrazioni()
    {
        QFETCH(double, seme);
        QtRandom a, b;
        a.Randomize(seme);
        b.Randomize(seme);
        for (int i = 0; i < 1000; ++i) {
            const double x = a.Rnd();
            QCOMPARE(x, b.Rnd());
            QVERIFY(x >= 0.0 && x < 1.0);
        }
    }

    void semiVicinDannoEstrazioniDiverse()
    {
        QtRandom a, b;
        a.Randomize(36000.00);
        b.Randomize(36000.01);
        QVERIFY(a.Rnd() != b.Rnd());
    }

    void orologioNelGiorno()
    {
        const double t = QtClock().Timer();
        QVERIFY(t >= 0.0 && t < 86400.0);
    }
};

QTEST_GUILESS_MAIN(TestQtPiattaforma)
#include "tst_qtpiattaforma.moc"
