#include "exercise/risposta.h"

#include <QTest>

// The keys a pupil presses, one character each: a digit, "," or "<" (Cancella).
class TstRisposta : public QObject
{
    Q_OBJECT
private slots:
    void sequenze_data();
    void sequenze();
    void confronto_data();
    void confronto();
};

void TstRisposta::sequenze_data()
{
    QTest::addColumn<QString>("tasti");
    QTest::addColumn<bool>("digitati"); // typed on the keyboard rather than clicked
    QTest::addColumn<QString>("mostrato");
    QTest::addColumn<bool>("virgola");

    QTest::newRow("thousands grouped as typed") << "1234" << false << "1.234" << false;
    QTest::newRow("leading zeros dropped") << "007" << false << "7" << false;
    QTest::newRow("clicked digits stop at 9 characters") << "1234567890" << false << "12.345.67" << false;
    QTest::newRow("typed digits stop at 7 characters") << "1234567890" << true << "123.450" << false;
    QTest::newRow("clicked comma on empty gives 0,") << ",5" << false << "0,5" << true;
    QTest::newRow("second comma ignored") << "1,,5" << false << "1,5" << true;
    QTest::newRow("decimals not regrouped") << "1234,567" << false << "1.234,567" << true;
    QTest::newRow("typed comma on empty refused") << "," << true << "?" << false;
    QTest::newRow("clicked comma cut at 9 still sets the flag") << "1234567," << false << "1.234.567" << true;
    QTest::newRow("digit after a cut comma is regrouped") << "1234567,8" << false << "12.345.67" << true;
    QTest::newRow("cancel regroups") << "1234<" << false << "123" << false;
    QTest::newRow("cancel the comma clears the flag") << "1234,<" << false << "1.234" << false;
    QTest::newRow("cancel to empty shows ?") << "5<" << false << "?" << false;
    QTest::newRow("cancel on empty is harmless") << "<<" << true << "?" << false;
    QTest::newRow("cancel keeps a comma still there") << "1,25<" << false << "1,2" << true;
}

void TstRisposta::sequenze()
{
    QFETCH(QString, tasti);
    QFETCH(bool, digitati);
    QFETCH(QString, mostrato);
    QFETCH(bool, virgola);

    Risposta r;
    for (const QChar t : tasti) {
        if (t == u',') {
            if (digitati)
                VirgolaDigitata(r);
            else
                VirgolaCliccata(r);
        } else if (t == u'<') {
            Cancella(r);
        } else {
            AggiungiCifra(r, t, digitati ? LunghezzaDigitata : LunghezzaMassima);
        }
    }
    QCOMPARE(r.mostrato(), mostrato);
    QCOMPARE(r.testo, mostrato == QLatin1String("?") ? QString() : mostrato);
    QCOMPARE(r.virgola, virgola);
}

void TstRisposta::confronto_data()
{
    QTest::addColumn<QString>("attesa");
    QTest::addColumn<QString>("data");
    QTest::addColumn<bool>("giusta");

    QTest::newRow("blanks around both") << " 1.234 " << "1.234" << true;
    QTest::newRow("no numeric comparison") << "1.234" << "1234" << false;
    QTest::newRow("trailing decimal zero differs") << "1,5" << "1,50" << false;
    QTest::newRow("symbol with its blanks") << " da" << "da " << true;
    QTest::newRow("case matters") << " Mg" << " mg" << false;
    QTest::newRow("blank symbol against nothing chosen") << "    " << "" << true;
}

void TstRisposta::confronto()
{
    QFETCH(QString, attesa);
    QFETCH(QString, data);
    QFETCH(bool, giusta);
    QCOMPARE(RispostaGiusta(attesa, data), giusta);
}

QTEST_APPLESS_MAIN(TstRisposta)
#include "tst_risposta.moc"
