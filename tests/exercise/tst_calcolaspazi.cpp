#include "exercise/calcolaspazi.h"

#include <QTest>

namespace {

QString b(int n)
{
    return QString(n, QLatin1Char(' '));
}

} // namespace

class TstCalcolaSpazi : public QObject
{
    Q_OBJECT
private slots:
    void rientri_data();
    void rientri();
    void righe_data();
    void righe();
    void tempi_data();
    void tempi();
};

void TstCalcolaSpazi::rientri_data()
{
    QTest::addColumn<QString>("testo");
    QTest::addColumn<int>("perSimbolo");
    QTest::addColumn<int>("perNumero");

    QTest::newRow("one character") << " u " << 6 << 0; // a one-digit number stays unaligned
    QTest::newRow("two characters") << " da " << 5 << 5;
    QTest::newRow("three characters") << " dam " << 0 << 4;
    QTest::newRow("six characters") << "21.109" << 0 << 1;
    QTest::newRow("seven characters") << "0,01234" << 0 << 0;
    QTest::newRow("eight characters") << "12.345,6" << 0 << 0;
    QTest::newRow("blank symbol") << "    " << 0 << 0;
}

void TstCalcolaSpazi::rientri()
{
    QFETCH(QString, testo);
    QFETCH(int, perSimbolo);
    QFETCH(int, perNumero);
    QCOMPARE(RientroSimbolo(testo), b(perSimbolo));
    QCOMPARE(RientroNumero(testo), b(perNumero));
}

// Whole lines as an item leaves them: start, wrong attempts, then the right
// answer or the correction, each step measured against the line so far.
void TstCalcolaSpazi::righe_data()
{
    QTest::addColumn<bool>("numero");       // a find-the-number item
    QTest::addColumn<QString>("domanda");
    QTest::addColumn<QString>("testoNumero");
    QTest::addColumn<QString>("testoSimboli");
    QTest::addColumn<QStringList>("errate");
    QTest::addColumn<bool>("corretta");     // ended by a correction
    QTest::addColumn<QString>("secondi");
    QTest::addColumn<QString>("attesa");

    const QString d19 = " 2 k   13 h    4 da";
    QTest::newRow("number right at once") << true << d19 << "3.340" << " u " << QStringList{} << false << "7"
                                          << b(12) + d19 + " = " + b(6) + "u" + b(49) + "3.340  (sec.   7)";
    QTest::newRow("number right after two wrong") << true << d19 << "3.340" << " u " << QStringList{"3340", " 12 "}
                                                  << false << "12"
                                                  << b(12) + d19 + " = " + b(6) + "u" + b(7) + "3340*" + b(9) + "12*"
                                                         + b(25) + "3.340  (sec.  12)";
    QTest::newRow("number corrected") << true << d19 << "3.340" << " u " << QStringList{"3340"} << true << "99"
                                      << b(12) + d19 + " = " + b(6) + "u" + b(7) + "3340*" + b(37) + "^3.340 (sec.  99)";
    QTest::newRow("symbol right at once") << false << "13 h    4 da" << "1,34" << " k " << QStringList{} << false << "3"
                                          << b(19) + "13 h    4 da = " + b(3) + "1,34" + b(53) + "k  (sec.   3)";
    QTest::newRow("symbol with one-digit number") << false << " 5 da" << "5" << " da" << QStringList{"h"} << false
                                                  << "10"
                                                  << b(26) + " 5 da = 5" + b(10) + "h*" + b(46) + "da  (sec.  10)";
    QTest::newRow("symbol corrected to a blank symbol") << false << " 4 h  " << "0,4" << "    " << QStringList{"u"}
                                                        << true << "5"
                                                        << b(25) + " 4 h   = " + b(4) + "0,4" + b(10) + "u*" + b(42)
                                                               + "^ (sec.   5)";
    const QString lunga = "19 k   19 h   19 da   19 u   19 x"; // 33 characters
    QTest::newRow("attempts past column 95 push the answer") << true << lunga << "1.234" << " da" << QStringList(5, "123.456.7")
                                                             << false << "1"
                                                             << lunga + " = " + b(5) + "da" + QString(b(2) + "123.456.7*").repeated(5)
                                                                    + "1.234  (sec.   1)";
}

void TstCalcolaSpazi::righe()
{
    QFETCH(bool, numero);
    QFETCH(QString, domanda);
    QFETCH(QString, testoNumero);
    QFETCH(QString, testoSimboli);
    QFETCH(QStringList, errate);
    QFETCH(bool, corretta);
    QFETCH(QString, secondi);
    QFETCH(QString, attesa);

    QString riga;
    SpaziRiga s = CalcolaSpazi(domanda, {}, riga, testoNumero, testoSimboli);
    riga = numero ? InizioRiga(s.SpaziQuesito, domanda, RientroSimbolo(testoSimboli), testoSimboli)
                  : InizioRiga(s.SpaziQuesito, domanda, RientroNumero(testoNumero), testoNumero);
    for (const QString &e : errate) {
        s = CalcolaSpazi(domanda, e, riga, testoNumero, testoSimboli);
        riga += CodaErrata(s.SpaziErrata, e);
    }
    const QString giusta = numero ? testoNumero : testoSimboli;
    s = CalcolaSpazi(domanda, giusta, riga, testoNumero, testoSimboli);
    const QString &spazi = numero ? s.SpaziNumero : s.SpaziSimboli;
    riga += corretta ? CodaCorrezione(spazi, giusta, secondi) : CodaEsatta(spazi, giusta, secondi);
    QCOMPARE(riga, attesa);
}

void TstCalcolaSpazi::tempi_data()
{
    QTest::addColumn<double>("inizio");
    QTest::addColumn<double>("fine");
    QTest::addColumn<int>("totalePrima");
    QTest::addColumn<int>("parziale");
    QTest::addColumn<int>("totale");
    QTest::addColumn<QString>("riempimento");

    QTest::newRow("fractions cut, not rounded") << 36000.0 << 36007.9 << 0 << 7 << 7 << "   ";
    QTest::newRow("98.99 s stays 98") << 36000.0 << 36098.99 << 10 << 98 << 108 << "  ";
    QTest::newRow("150 s capped at 99") << 36000.0 << 36150.0 << 0 << 99 << 99 << "  ";
    QTest::newRow("total capped at 999") << 0.0 << 50.0 << 990 << 50 << 999 << "  ";
    QTest::newRow("past midnight not corrected") << 86399.0 << 1.0 << 100 << -86398 << -86298 << "";
}

void TstCalcolaSpazi::tempi()
{
    QFETCH(double, inizio);
    QFETCH(double, fine);
    QFETCH(int, totalePrima);
    QFETCH(int, parziale);
    QFETCH(int, totale);
    QFETCH(QString, riempimento);
    QCOMPARE(TempoParziale(float(inizio), float(fine)), parziale);
    QCOMPARE(TempoTotale(totalePrima, parziale), totale);
    // "-86398" is longer than the field: the padding falls back to 4 blanks.
    QCOMPARE(RiempimentoTempo(QString::number(parziale)), riempimento.isEmpty() ? b(4) : riempimento);
}

QTEST_APPLESS_MAIN(TstCalcolaSpazi)
#include "tst_calcolaspazi.moc"
