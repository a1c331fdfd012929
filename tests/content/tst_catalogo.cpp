#include "content/catalogo.h"

#include <QtTest>

class TestCatalogo : public QObject
{
    Q_OBJECT

private slots:
    void voce_data()
    {
        QTest::addColumn<int>("livello");
        QTest::addColumn<QStringList>("simboli");
        QTest::addColumn<int>("classe");
        QTest::addColumn<QString>("nomi");
        auto riga = [](int n, QStringList s, int c, const char *nomi) {
            QTest::addRow("topic %d", n) << n << s << c << QString::fromUtf8(nomi);
        };
        riga(1, {" u ", " d ", " c ", " m "}, 2, " unità,    decimi, centesimi, millesimi");
        riga(2, {"    ", " h  ", " da ", " u  "}, 1, "centinaia, decine, unità");
        riga(3, {" k ", " h ", " da", " u "}, 2, " migliaia,    centinaia, decine, unità");
        riga(4, {"  m ", " dm ", " cm ", " mm "}, 2, " metri,    decimetri, centimetri, millimetri");
        riga(5, {"     ", "  hm ", " dam ", "   m "}, 1, " ettometri, decametri, metri");
        riga(6, {" km ", " hm ", " dam ", " m"}, 2, " chilometri,    ettometri, decametri, metri");
        riga(7, {"  g ", " dg ", " cg ", " mg"}, 2, " grammi,    decigrammi, centigrammi, milligrammi");
        riga(8, {"     ", "  hg ", " dag ", "   g "}, 1, " ettogrammi, decagrammi, grammi");
        riga(9, {"  kg", "  hg", " dag", "   g"}, 2, " chilogrammi    ettogrammi, decagrammi, grammi");
        riga(10, {"  t", "  q", " Mg", " kg"}, 2, " tonnellate,    quintali, miriagrammi, chilogrammi");
        riga(11, {"  l", " dl", " cl", " ml"}, 2, " litri,    decilitri, centilitri, millilitri");
        riga(12, {"  ", "  hl", " dal", "   l"}, 1, " ettolitri, decalitri, litri");
    }
    void voce()
    {
        QFETCH(int, livello);
        QFETCH(QStringList, simboli);
        QFETCH(int, classe);
        QFETCH(QString, nomi);
        TopicInstallato topic;
        TitoliInizio titoli;
        SceltaSimboli(qint16(livello), topic, titoli);
        QCOMPARE(QStringList(topic.Simboli.begin() + 1, topic.Simboli.end()), simboli);
        QCOMPARE(int(topic.ClassePosizioni), classe);
        QCOMPARE(titoli.Label6[2], nomi);
        QCOMPARE(titoli.mnuSchede, QStringLiteral("Stampa schede: ") + nomi);

        const QStringList titoli3 = livello <= 3
            ? QStringList{"SISTEMA DECIMALE: composizione", "SISTEMA DECIMALE ", "COMPOSIZIONE DEI NUMERI"}
            : QStringList{"SISTEMA METRICO: composizione", "SISTEMA METRICO", "COMPOSIZIONE DELLE MISURE"};
        QCOMPARE((QStringList{titoli.caption, titoli.Label6[0], titoli.Label6[1]}), titoli3);
    }

    void livelloSconosciuto_data()
    {
        QTest::addColumn<int>("livello");
        QTest::newRow("zero") << 0;
        QTest::newRow("thirteen") << 13;
        QTest::newRow("negative") << -1;
    }
    void livelloSconosciuto()
    {
        QFETCH(int, livello);
        TopicInstallato topic;
        TitoliInizio titoli;
        SceltaSimboli(2, topic, titoli);
        titoli.Label6[2] = QStringLiteral("scritta a mano");
        const TopicInstallato primaTopic = topic;
        const TitoliInizio prima = titoli;

        SceltaSimboli(qint16(livello), topic, titoli);
        QCOMPARE(topic.Simboli, primaTopic.Simboli);
        QCOMPARE(topic.ClassePosizioni, primaTopic.ClassePosizioni);
        QCOMPARE(titoli.caption, prima.caption);
        QCOMPARE(titoli.Label6, prima.Label6);
        QCOMPARE(titoli.mnuSchede, QStringLiteral("Stampa schede: scritta a mano"));
    }
};

QTEST_GUILESS_MAIN(TestCatalogo)
#include "tst_catalogo.moc"
