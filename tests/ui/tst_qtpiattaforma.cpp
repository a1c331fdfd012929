#include "ui/qtpiattaforma.h"

#include <QtTest>

class TestQtPiattaforma : public QObject
{
    Q_OBJECT
private slots:
    // The generator reseeds from a millisecond clock on every item and every
    // worksheet line: the same seed twice must not repeat the draws.
    void stessoSemeNuoveEstrazioni_data()
    {
        QTest::addColumn<double>("seme");
        QTest::newRow("midnight") << 0.0;
        QTest::newRow("ten o'clock") << 36000.25;
        QTest::newRow("last second") << 86399.99;
    }
    void stessoSemeNuoveEstrazioni()
    {
        QFETCH(double, seme);
        QtRandom a;
        QSet<double> visti;
        for (int i = 0; i < 1000; ++i) {
            a.Randomize(seme);
            const double x = a.Rnd();
            QVERIFY(x >= 0.0 && x < 1.0);
            visti.insert(x);
        }
        QVERIFY(visti.size() > 990);
    }

    void orologioNelGiorno()
    {
        const double t = QtClock().Timer();
        QVERIFY(t >= 0.0 && t < 86400.0);
    }
};

QTEST_GUILESS_MAIN(TestQtPiattaforma)
#include "tst_qtpiattaforma.moc"
