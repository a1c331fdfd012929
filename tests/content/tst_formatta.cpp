#include "content/formatta.h"
#include "fakes/fakes.h"

#include <QLocale>
#include <QtTest>
#include <cmath>
#include <limits>

class TestFormatta : public QObject
{
    Q_OBJECT

private slots:
    void testo_data()
    {
        QTest::addColumn<double>("valore");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("zero has no tail") << 0.0 << "0";
        QTest::newRow("negative zero") << -0.0 << "0";
        QTest::newRow("half") << 0.5 << "0,5";
        QTest::newRow("small whole") << 45.0 << "45";
        QTest::newRow("thousand grouped") << 1450.0 << "1.450";
        QTest::newRow("grouped with decimal") << 1234.5 << "1.234,5";
        QTest::newRow("largest item value") << 21109.0 << "21.109";
        QTest::newRow("three decimals") << 19.019 << "19,019";
        QTest::newRow("below one") << 0.456 << "0,456";
        QTest::newRow("binary noise dropped") << 1340.0 / 1000 << "1,34";
        QTest::newRow("leading decimal zero") << 56.0 / 1000 << "0,056";
        QTest::newRow("tiny, no exponent") << 0.00001 << "0,00001";
        QTest::newRow("smallest spelled out") << 1e-300 << QStringLiteral("0,") + QString(299, u'0') + u'1';
        QTest::newRow("just below overflow") << 2147483647.5 << "2.147.483.647,5";
        QTest::newRow("negative whole") << -1234.0 << "-1.234";
        // The whole part is floored, the tail copied: a negative fraction
        // takes the next whole number down.
        QTest::newRow("negative fraction") << -1.5 << "-2,5";
        QTest::newRow("lowest whole part") << -2147483648.0 << "-2.147.483.648";
    }
    void testo()
    {
        QFETCH(double, valore);
        QFETCH(QString, atteso);
        FakeMessageBox box;
        QCOMPARE(FormattaNumero(valore, &box), atteso);
        QVERIFY(box.mostrati.isEmpty());
    }

    void separatoriFissi()
    {
        // The keypad offers only ",": the answer text must not follow the
        // machine's locale.
        const QLocale prima;
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        const QString t = FormattaNumero(1234.5, nullptr);
        QLocale::setDefault(prima);
        QCOMPARE(t, QStringLiteral("1.234,5"));
    }

    void fuoriIntervallo_data()
    {
        QTest::addColumn<double>("valore");
        QTest::addColumn<bool>("messaggio");
        QTest::newRow("2^31") << 2147483648.0 << true;
        QTest::newRow("huge") << 1e20 << true;
        QTest::newRow("below -2^31") << -2147483648.5 << true;
        QTest::newRow("NaN") << std::nan("") << false;
        QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << false;
    }
    void fuoriIntervallo()
    {
        QFETCH(double, valore);
        QFETCH(bool, messaggio);
        FakeMessageBox box;
        QCOMPARE(FormattaNumero(valore, &box), QString());
        QCOMPARE(box.mostrati.size(), messaggio ? 1 : 0);
        if (messaggio) {
            QCOMPARE(box.mostrati[0].testo, QStringLiteral("Numero troppo grande!"));
            QCOMPARE(box.mostrati[0].titolo, QStringLiteral("Errore di overflow"));
            QCOMPARE(box.mostrati[0].icona, IMessageBox::Icona::Critica);
        }
        QCOMPARE(FormattaNumero(valore, nullptr), QString());
    }
};

QTEST_GUILESS_MAIN(TestFormatta)
#include "tst_formatta.moc"
