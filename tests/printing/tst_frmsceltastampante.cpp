#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "printing/frmsceltastampante.h"
#include "settings/stato.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

class TestSceltaStampante : public QObject
{
    Q_OBJECT
    const QString predefinita = QStringLiteral("La stampante predefinita è \r\n");
    const QString scelta = QStringLiteral("La stampante scelta è \r\n");

    static void scegli(frmSceltaStampante &f, int i)
    {
        f.Combo1->setCurrentIndex(i);
        emit f.Combo1->activated(i);
    }

private slots:
    // One run of the program: the screen is opened, used, closed and opened
    // again, with the first-click flag living across the openings.
    void sessione_data()
    {
        QTest::addColumn<QStringList>("stampanti");
        QTest::addColumn<QList<int>>("primaApertura");   // picks on the first opening
        QTest::addColumn<QString>("correnteDopoPrima");
        QTest::addColumn<QString>("label2DopoPrima");
        QTest::addColumn<QString>("correnteRiaperta");  // after merely reopening
        const QStringList tre{"Ufficio", "Aula 2", "PDF"};
        QTest::newRow("opening alone chooses nothing") << tre << QList<int>{} << "PDF" << "" << "Ufficio";
        QTest::newRow("a pick makes it current") << tre << QList<int>{1} << "Aula 2" << "Aula 2" << "Ufficio";
        QTest::newRow("the same pick twice refreshes") << tre << QList<int>{2, 2} << "PDF" << "PDF" << "Ufficio";
        QTest::newRow("last pick wins") << tre << QList<int>{1, 0} << "Ufficio" << "Ufficio" << "Ufficio";
        QTest::newRow("no printers") << QStringList{} << QList<int>{} << "PDF" << "" << "PDF";
    }
    void sessione()
    {
        QFETCH(QStringList, stampanti);
        QFETCH(QList<int>, primaApertura);
        FakePrinter p;
        p.stampanti = stampanti;
        FakeScreens schermi;
        Stato s;
        s.servizi.stampante = &p;
        s.servizi.schermi = &schermi;
        {
            frmSceltaStampante f(s);
            QCOMPARE(f.Combo1->count(), stampanti.size());
            for (int i = 0; i < stampanti.size(); ++i)
                QCOMPARE(f.Combo1->itemText(i), stampanti[i]);
            QCOMPARE(f.Combo1->currentIndex(), stampanti.isEmpty() ? -1 : 0);
            QCOMPARE(f.Label1->text(), predefinita + "PDF");
            QCOMPARE(f.Label2->text(), QString());
            QCOMPARE(s.fogli.SceltaStampanteArmata, !stampanti.isEmpty());
            for (int i : primaApertura)
                scegli(f, i);
            QTEST(p.corrente, "correnteDopoPrima");
            QFETCH(QString, label2DopoPrima);
            QCOMPARE(f.Label2->text(), label2DopoPrima.isEmpty() ? QString() : scelta + label2DopoPrima);
            QCOMPARE(f.Command2->text(), QStringLiteral("C H I U D I"));
            QTest::mouseClick(f.Command2, Qt::LeftButton);
            QCOMPARE(schermi.chiamate.size(), 1);
            QCOMPARE(schermi.chiamate[0].second, Schermo::SceltaStampante);
            QCOMPARE(schermi.chiamate[0].first, QStringLiteral("chiudi"));
        }
        // Opening again: selecting the first entry is now a real choice, and
        // the default label shows the printer in use.
        frmSceltaStampante f(s);
        QTEST(p.corrente, "correnteRiaperta");
        QCOMPARE(f.Label1->text(), predefinita + p.corrente);
        if (!stampanti.isEmpty())
            QCOMPARE(f.Label2->text(), scelta + stampanti[0]);
    }

    void sceltaSenzaCorrispondenza()
    {
        FakePrinter p;
        p.stampanti = {"A", "B"};
        p.corrente = "A";
        Stato s;
        s.servizi.stampante = &p;
        frmSceltaStampante f(s);
        p.stampanti = {"A"}; // B went away after the list was made
        scegli(f, 1);
        QCOMPARE(p.corrente, QStringLiteral("A"));
        QCOMPARE(f.Label2->text(), scelta + "A");
    }
};

QTEST_MAIN(TestSceltaStampante)
#include "tst_frmsceltastampante.moc"
