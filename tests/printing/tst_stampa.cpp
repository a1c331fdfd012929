#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "printing/stampa.h"
#include "settings/stato.h"

#include <QtTest>

namespace {
// One printed line as "x y font size[b] |text|".
QString descrivi(const FakePrinter::Evento &e)
{
    return QStringLiteral("%1 %2 %3 %4%5 |%6|").arg(e.x).arg(e.y).arg(e.font).arg(e.dimensione).arg(e.grassetto ? "b" : "").arg(e.testo);
}
QStringList descrivi(const QList<FakePrinter::Evento> &l)
{
    QStringList r;
    for (const auto &e : l)
        r << descrivi(e);
    return r;
}
} // namespace

class TestStampa : public QObject
{
    Q_OBJECT
    FakePrinter p_;
    FakeMessageBox box_;
    Stato s_;

private slots:
    void init()
    {
        p_ = FakePrinter();
        box_.mostrati.clear();
        s_ = Stato();
        s_.settings.NomeFile = QStringLiteral("comp");
        s_.servizi.stampante = &p_;
        s_.servizi.messaggi = &box_;
        for (int i = 0; i < 61; ++i) {
            s_.record.RigheEsercizio[std::size_t(i)] = QStringLiteral("esercizio %1").arg(i);
            s_.fogli.RigheScheda[std::size_t(i)] = QStringLiteral("scheda %1").arg(i);
        }
    }

    void cercaCarattere_data()
    {
        QTest::addColumn<QStringList>("fonts");
        QTest::addColumn<QString>("atteso");
        QTest::newRow("courier new only") << QStringList{"Arial", "Courier New"} << "Courier New";
        QTest::newRow("courier listed first wins") << QStringList{"Courier", "Arial", "Courier New"} << "Courier";
        QTest::newRow("courier new listed first wins") << QStringList{"Courier New", "Courier"} << "Courier New";
        QTest::newRow("case and blanks count") << QStringList{"courier new", "COURIER", "Courier ", " Courier New"} << "";
        QTest::newRow("lookalike names") << QStringList{"Courier New Bold", "Courier 10 Pitch"} << "";
        QTest::newRow("empty list") << QStringList{} << "";
    }
    void cercaCarattere()
    {
        QFETCH(QStringList, fonts);
        p_.fonts = fonts;
        QTEST(CercaCarattere(p_), "atteso");
    }

    void nessunFontNessunaStampa()
    {
        p_.fonts = {"Arial", "DejaVu Sans Mono"};
        s_.record.NumeroEsercizio = 20;
        s_.fogli.NumeroOperazioni = 30;
        StampaEsercizio(s_);
        StampaScheda(s_, 1, "a", "b");
        QCOMPARE(box_.mostrati.size(), 2);
        for (const auto &m : box_.mostrati) {
            QCOMPARE(m.testo, QStringLiteral("Devi installare il font Courier o il font Courier New"));
            QCOMPARE(m.titolo, QString());
        }
        QVERIFY(p_.eventi.isEmpty());
    }

    // Lines 1..10 from 2000 by 400, then a gap: line 11 at 9000.
    void esercizio_data()
    {
        QTest::addColumn<int>("righe");
        QTest::addColumn<int>("ridotta");
        QTest::addColumn<QString>("font");
        QTest::addColumn<int>("stampate");
        QTest::newRow("10 lines") << 10 << 0 << "Courier New" << 10;
        QTest::newRow("20 lines") << 20 << 0 << "Courier New" << 20;
        QTest::newRow("30 lines") << 30 << 0 << "Courier New" << 30;
        QTest::newRow("20 lines, reduced") << 20 << 1 << "Courier New" << 10;
        QTest::newRow("reduced flag 2 is not 1") << 20 << 2 << "Courier New" << 20;
        QTest::newRow("only Courier") << 20 << 0 << "Courier" << 20;
        QTest::newRow("no lines") << 0 << 0 << "Courier New" << 0;
    }
    void esercizio()
    {
        QFETCH(int, righe);
        QFETCH(int, ridotta);
        QFETCH(QString, font);
        QFETCH(int, stampate);
        p_.fonts = {"Arial", font};
        s_.record.NumeroEsercizio = qint16(righe);
        s_.fogli.StampaRidotta = qint16(ridotta);
        StampaEsercizio(s_);

        // The instruction goes on the device's next line, back at x 1000.
        QStringList attese{"1000 1000 " + font + " 16 |SCUOLA ELEMENTARE DI |",
                           "1000 1384 " + font + " 16 |Componi i seguenti valori|"};
        const int y[] = {2000, 2400, 2800, 3200, 3600, 4000, 4400, 4800, 5200, 5600};
        for (int i = 1; i <= stampate; ++i)
            attese << QStringLiteral("1000 %1 %2 10b |esercizio %3|").arg(i <= 10 ? y[i - 1] : 9000 + (i - 11) * 400).arg(font).arg(i);
        QCOMPARE(descrivi(p_.stampe()), attese);
        QCOMPARE(p_.eventi.last().tipo, FakePrinter::Tipo::FineDocumento);
        QCOMPARE(p_.documentiFiniti, 1);
        QCOMPARE(p_.nomeDocumento, QStringLiteral("compEsercizio"));
        QCOMPARE(s_.fogli.NumeroOperazioni, qint16(righe + 1)); // the record file counts on it
    }

    void esercizioErrori()
    {
        s_.record.NumeroEsercizio = 20;
        p_.erroreFine = true;
        QVERIFY_THROWS_EXCEPTION(ErroreStampa, StampaEsercizio(s_));
        QCOMPARE(p_.stampe().size(), 22);
        init();
        s_.record.NumeroEsercizio = 61;
        QVERIFY_THROWS_EXCEPTION(ErroreIntervallo, StampaEsercizio(s_));
        QCOMPARE(p_.stampe().size(), 62);
        QCOMPARE(p_.documentiFiniti, 0);
    }

    // Blocks start at 2000, 6400 and 10900; the header's font carries on.
    void scheda_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("righe");
        QTest::addColumn<QString>("font");
        QTest::addColumn<int>("dimensione");
        QTest::newRow("pupils, 10") << 1 << 10 << "Courier New" << 12;
        QTest::newRow("pupils, 20") << 1 << 20 << "Courier New" << 12;
        QTest::newRow("pupils, 30") << 1 << 30 << "Courier New" << 12;
        QTest::newRow("teachers, 30") << 2 << 30 << "Courier New" << 10;
        QTest::newRow("printer has only Courier") << 1 << 30 << "Courier" << 12;
    }
    void scheda()
    {
        QFETCH(int, tipo);
        QFETCH(int, righe);
        QFETCH(QString, font);
        QFETCH(int, dimensione);
        p_.fonts = {font};
        p_.grassetto = true; // as an exercise printout leaves it
        s_.fogli.NumeroOperazioni = qint16(righe);
        StampaScheda(s_, qint16(tipo), QStringLiteral("Trova il numero"), QStringLiteral("Simboli ordinati"));

        QStringList attese{"1000 900 Courier New 13 |Classe          Nome e cognome                     |",
                           "1000 1300 Courier New 12 |Trova il numero        Simboli ordinati|",
                           "1000 1500 Courier New 12 ||"};
        for (int k = 1; k <= righe; ++k)
            attese << QStringLiteral("1000 %1 Courier New %2 |scheda %3|")
                          .arg((k - 1) % 10 * 400 + (k <= 10 ? 2000 : k <= 20 ? 6400 : 10900)).arg(dimensione).arg(k);
        QCOMPARE(descrivi(p_.stampe()), attese);
        QCOMPARE(p_.documentiFiniti, 1);
        QCOMPARE(p_.nomeDocumento, QStringLiteral("compScheda"));
        QVERIFY(box_.mostrati.isEmpty());
    }

    void schedaErrori_data()
    {
        QTest::addColumn<int>("riuscite");
        QTest::addColumn<bool>("erroreFine");
        QTest::addColumn<int>("righe");
        QTest::newRow("fails on the header") << 0 << false << 30;
        QTest::newRow("fails mid page") << 17 << false << 30;
        QTest::newRow("fails sending the page") << -1 << true << 30;
        QTest::newRow("more lines than the buffer") << -1 << false << 61;
    }
    void schedaErrori()
    {
        QFETCH(int, riuscite);
        QFETCH(bool, erroreFine);
        QFETCH(int, righe);
        p_.stampeRiuscite = riuscite;
        p_.erroreFine = erroreFine;
        s_.fogli.NumeroOperazioni = qint16(righe);
        const auto prima = s_.fogli.RigheScheda;
        StampaScheda(s_, 1, "a", "b");
        QCOMPARE(box_.mostrati.size(), 1);
        QCOMPARE(box_.mostrati[0].testo, QStringLiteral("Problema di stampa nella stampante utilizzata."));
        QCOMPARE(p_.documentiFiniti, 0);
        QCOMPARE(s_.fogli.NumeroOperazioni, qint16(righe));
        QVERIFY(s_.fogli.RigheScheda == prima);
    }
};

QTEST_GUILESS_MAIN(TestStampa)
#include "tst_stampa.moc"
