// The results file against tests/data/risultati.txt (fields, damaged rows,
// missing files), appending to it, a whole exercise kept in it, the chart's
// bars and the screen's keys.
#include "exercise/frmoperativo.h"
#include "fakes/attesi.h"
#include "fakes/cartella.h"
#include "fakes/mondo.h"
#include "results/filerisultati.h"
#include "results/frmrisultati.h"
#include "results/grafico.h"
#include "results/registra.h"
#include "ui/rigaopzioni.h"
#include "ui/sceltafile.h"

#include <QLabel>
#include <QPushButton>

namespace {

QString testo(QString t)
{
    return t.replace(QLatin1String("\\r"), QLatin1String("\r")).replace(QLatin1String("\\n"), QLatin1String("\n"))
        .replace(QLatin1String("<BOM>"), QChar(0xFEFF));
}

// The lines of tests/data/risultati.txt that start with `parola`, without it.
QStringList voci(const QString &parola)
{
    QStringList v;
    for (const QString &r : righeAttese(QStringLiteral("risultati.txt")))
        if (r.startsWith(parola + u' '))
            v << r.mid(parola.size() + 1);
    return v;
}

Risultato esempio(int giorno, int esatte)
{
    Risultato r{QDateTime(QDate(2026, 9, giorno), QTime(10, 0)), QStringLiteral("unità, decine"), 2, 1,
                QStringLiteral("Trova il numero"), QStringLiteral("Usa i simboli ordinati"), esatte, 20 - esatte, 200, {}};
    for (int i = 1; i <= kRigheRisultato; ++i)
        r.righe << QStringLiteral("  %1 h = u   %2 (sec.   1)").arg(i).arg(giorno);
    return r;
}

struct SceltaFinta : ISceltaFile {
    QString verso;
    QString salvaCome(const QString &, const QString &) override { return verso; }
};

} // namespace

class TstRisultati : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped"))); }

    void campo_data()
    {
        QTest::addColumn<QString>("dentro");
        QTest::addColumn<QString>("scritto");
        for (const QString &v : voci(QStringLiteral("campo"))) {
            const qsizetype fine = v.lastIndexOf(u'|');
            QTest::newRow(qPrintable(v.left(fine + 1))) << testo(v.mid(1, fine - 1)) << testo(v.mid(fine + 2));
        }
    }
    void campo()
    {
        QFETCH(QString, dentro);
        QFETCH(QString, scritto);
        QCOMPARE(QString::fromUtf8(CampoCsv(dentro)), scritto);
    }

    // Each file of the table read as the screen reads it; every row read,
    // written again and read back, is the same row.
    void lettura_data()
    {
        QTest::addColumn<QByteArray>("file"); // null: no file at all
        QTest::addColumn<QStringList>("attese");
        QStringList righe = righeAttese(QStringLiteral("risultati.txt")) << QStringLiteral("file");
        QString nome;
        QByteArray file;
        QStringList attese;
        for (const QString &r : righe) {
            if (r.startsWith(QLatin1String("file"))) {
                if (!nome.isEmpty())
                    QTest::newRow(qPrintable(nome)) << file << attese;
                nome = r.section(u' ', 1, 1);
                file = r.endsWith(QLatin1String(" assente")) ? QByteArray() : QByteArray("");
                attese.clear();
            } else if (r.startsWith(u'>')) {
                const QString fine = r.startsWith(QLatin1String(">>")) ? "\n" : r.startsWith(QLatin1String(">|")) ? "" : "\r\n";
                file += testo(r.mid(fine == QLatin1String("\r\n") ? 2 : 3) + fine).toUtf8();
            } else if (!nome.isEmpty() && !r.startsWith(u'#') && !r.isEmpty()) {
                attese << r;
            }
        }
    }
    void lettura()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, attese);
        CartellaDiProva c;
        QVERIFY(file.isNull() || scriviFile(QStringLiteral("r.csv"), file));
        const LetturaRisultati l = LeggiRisultati(QStringLiteral("r.csv"));
        QString letti = QStringLiteral("letti");
        QStringList viste;
        for (const Risultato &r : l.risultati) {
            letti += QStringLiteral(" %1/%2").arg(r.esatte).arg(r.errate);
            QCOMPARE(LeggiRisultatiDa(IntestazioneCsv() + RigaCsv(r)).risultati, QList<Risultato>{r});
        }
        viste << letti << QStringLiteral("scartate %1").arg(l.scartate);
        for (const QString &a : attese.mid(2))
            viste << QStringLiteral("riga1 %1 |%2|").arg(a.section(u' ', 1, 1), l.risultati.value(a.section(u' ', 1, 1).toInt() - 1).righe.value(0));
        CONFRONTA_RIGHE(viste, QStringList(attese).replaceInStrings(QStringLiteral("\\r\\n"), QStringLiteral("\r\n")));
    }

    // A new file starts with the BOM and the header; a file whose last row
    // was cut short gets a line end before the new row; a folder or a full
    // disk in the file's place is a failure told in words, the file as it was.
    void aggiunta_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::addColumn<QByteArray>("prima");
        QTest::addColumn<QString>("errore");
        const QByteArray intera = RigaCsv(esempio(1, 18));
        QTest::newRow("new file") << "r.csv" << QByteArray() << "";
        QTest::newRow("after a whole row") << "r.csv" << (IntestazioneCsv() + intera) << "";
        QTest::newRow("after a torn row") << "r.csv" << (IntestazioneCsv() + intera + intera.left(90)) << "";
        QTest::newRow("a folder in its place") << "cartella" << QByteArray() << "al posto del file c'è una cartella";
        QTest::newRow("full disk") << "/dev/full" << QByteArray() << "il disco è pieno";
    }
    void aggiunta()
    {
        QFETCH(QString, percorso);
        QFETCH(QByteArray, prima);
        QFETCH(QString, errore);
        CartellaDiProva c;
        QVERIFY(prima.isEmpty() || scriviFile(percorso, prima));
        QVERIFY(QDir().mkpath(QStringLiteral("cartella")));
        // A file written over the device by a careless run would pass for a disk with room.
        QVERIFY2(!QFileInfo(QStringLiteral("/dev/full")).isFile(), "/dev/full is a plain file: mknod -m 666 /dev/full c 1 7");
        QString detto;
        QCOMPARE(AggiungiRisultato(percorso, esempio(2, 20), &detto), errore.isEmpty());
        QVERIFY2(detto.contains(errore), qPrintable(detto));
        if (!errore.isEmpty())
            return;
        const QByteArray dopo = leggiFile(percorso);
        const QByteArray testa = prima.isEmpty() ? "\xEF\xBB\xBF" + voci(QStringLiteral("intestazione")).value(0).toUtf8() + "\r\n" : prima;
        QCOMPARE(dopo.left(testa.size()), testa);
        const LetturaRisultati l = LeggiRisultatiDa(dopo);
        QCOMPARE(l.risultati.last(), esempio(2, 20));
        QCOMPARE(l.scartate, prima.endsWith('\n') || prima.isEmpty() ? 0 : 1);
    }

    // Two exercises on the screen, the second after "Ricomincia": items 1 to 3
    // of the first wrong, then shown by "SI", two seconds each item; the
    // second all right, one second each. Each leaves its own row, or, where
    // the file cannot be written, a message, the exercise going on the same.
    void esercizio_data()
    {
        QTest::addColumn<bool>("scrivibile");
        QTest::newRow("file written") << true;
        QTest::newRow("a folder in the file's place") << false;
    }
    void esercizio()
    {
        QFETCH(bool, scrivibile);
        CartellaDiProva c;
        Mondo m;
        m.caso.dopo = 0.37;
        Settings &s = m.stato.settings;
        s.TipoEsercizio = s.OrdineSimboli = s.NumeroCifre = 1;
        s.Livello = 3;
        s.TestoTipoEsercizio = QStringLiteral(" Trova il numero");
        s.TestoOrdineSimboli = QStringLiteral(" Usa i simboli ordinati");
        QVERIFY(scrivibile || QDir().mkdir(QStringLiteral("provaRisultati.csv")));
        CollegaRisultati(m.stato, [] { return QDateTime(QDate(2026, 9, 15), QTime(9, 30, 5, 700)); });
        auto w = m.apri<frmOperativo>();
        QList<QStringList> righe;
        for (int giro = 0; giro < 2; ++giro) {
            for (int voce = 1; voce <= 20; ++voce) {
                m.orologio.adesso += 2 - giro;
                if (giro == 0 && voce <= 3) {
                    w->tastierino()->scegli(0);
                    w->tastierino()->scegli(12);
                    w->aiuto()->scegli(0);
                } else {
                    for (const QChar c : w->rispostaAttesa())
                        if (c.isDigit() || c == u',')
                            w->tastierino()->scegli(c == u',' ? 10 : c.digitValue());
                    w->tastierino()->scegli(12);
                }
                if (voce < 20)
                    w->tastierino()->scegli(13);
            }
            QVERIFY(w->avviso()->bottone(1)->isEnabled());
            righe << QStringList();
            for (int i = 1; i <= 20; ++i)
                righe.last() << m.stato.record.riga(i);
            if (giro == 0)
                w->avviso()->scegli(1);
        }
        QCOMPARE(w->risposteEsatte(), 37);
        QCOMPARE(w->risposteErrate(), 6);
        const LetturaRisultati l = LeggiRisultati(QStringLiteral("provaRisultati.csv"));
        QCOMPARE(m.messaggi.mostrati.size(), scrivibile ? 0 : 2);
        if (!scrivibile) {
            QVERIFY2(m.messaggi.mostrati[0].contains(QDir::current().absoluteFilePath("provaRisultati.csv")), qPrintable(m.messaggi.mostrati[0]));
            return;
        }
        QCOMPARE(l.risultati.size(), 2);
        QCOMPARE(l.scartate, 0);
        const int attese[2][3] = {{17, 6, 40}, {20, 0, 20}};
        for (int giro = 0; giro < 2; ++giro) {
            const Risultato &r = l.risultati[giro];
            QCOMPARE(QList<int>({r.esatte, r.errate, r.secondi}), QList<int>(attese[giro], attese[giro] + 3));
            QCOMPARE(r.righe, righe[giro]);
            QCOMPARE(r.quando, QDateTime(QDate(2026, 9, 15), QTime(9, 30, 5)));
            QCOMPARE(QStringList({r.argomento, QString::number(r.numeroArgomento), QString::number(r.cifre), r.tipo, r.ordine}),
                     QStringList({"migliaia,    centinaia, decine, unità", "3", "1", "Trova il numero", "Usa i simboli ordinati"}));
        }
    }

    // The chart's bars and scale for the rows of tests/data/risultati.txt.
    void grafico_data()
    {
        QTest::addColumn<QStringList>("campi");
        for (const QString &v : voci(QStringLiteral("grafico")))
            QTest::newRow(qPrintable(v)) << v.split(u'|');
    }
    void grafico()
    {
        QFETCH(QStringList, campi);
        QList<Risultato> r;
        for (const QString &c : campi[1].split(u' ', Qt::SkipEmptyParts)) {
            r << esempio(1, c.section(u'/', 0, 0).toInt());
            r.last().errate = c.section(u'/', 1).toInt();
        }
        const DatiGrafico d = CalcolaGrafico(r, campi[0].toInt());
        QString barre;
        for (const DatiGrafico::Barra &b : d.barre)
            barre += QStringLiteral(" %1:%2/%3").arg(b.indice).arg(b.esatte).arg(b.errate);
        QCOMPARE(barre.trimmed() + QStringLiteral(" | ") + QString::number(d.scala), campi[2].trimmed() + QStringLiteral(" | ") + campi[3].trimmed());
    }

    // The screen on three exercises and a torn row: newest first, the skipped
    // row told, the keys moving the choice, its lines printed under the date,
    // the file copied where the teacher says.
    void schermata()
    {
        CartellaDiProva c;
        Mondo m;
        SceltaFinta scelta;
        m.stato.servizi.file = &scelta;
        for (int g : {14, 15, 16})
            QVERIFY(AggiungiRisultato(QStringLiteral("provaRisultati.csv"), esempio(g, g)));
        const QByteArray file = leggiFile(QStringLiteral("provaRisultati.csv"));
        QVERIFY(scriviFile(QStringLiteral("provaRisultati.csv"), file + RigaCsv(esempio(17, 1)).left(60)));
        auto w = m.apri<FrmRisultati>();
        const QString detto = w->findChild<QLabel *>(QStringLiteral("lblStato"))->text();
        QVERIFY2(detto.contains(QLatin1String("3 esercizi nel file")) && detto.contains(QLatin1String("1 riga danneggiata")), qPrintable(detto));
        Utente u{w.get()};
        QCOMPARE(w->scelto(), 2);
        u.esegui(QStringLiteral("Down Down Up Down Down"));
        QCOMPARE(w->scelto(), 0);
        QCOMPARE(w->findChild<QLabel *>(QStringLiteral("LblRiga(20)"))->accessibleName(), "Riga 20: " + esempio(14, 14).righe.last().simplified());
        u.esegui(QStringLiteral("scan:Risultati(2)"));
        const QStringList &p = m.stampante.pagina;
        QCOMPARE(p.size(), 24);
        QCOMPARE(p.mid(0, 3), QStringList({"1000 1000 Courier New 16 |SCUOLA ELEMENTARE DI |",
                                           "1000 1384 Courier New 16 |Componi i seguenti valori|",
                                           "1000 1768 Courier New 11 |Esercizio del 14/09/2026, ore 10:00|"}));
        QCOMPARE(p[3], "1000 2000 Courier New 10b |" + esempio(14, 14).righe[0] + "|");
        QCOMPARE(p[13], "1000 9000 Courier New 10b |" + esempio(14, 14).righe[10] + "|");
        scelta.verso = QDir::current().absoluteFilePath(QStringLiteral("copia.csv"));
        u.esegui(QStringLiteral("scan:Risultati(3)"));
        QCOMPARE(leggiFile(QStringLiteral("copia.csv")), leggiFile(QStringLiteral("provaRisultati.csv")));
        scelta.verso = QDir::currentPath(); // a folder: no file can be written there
        u.esegui(QStringLiteral("scan:Risultati(3)"));
        QCOMPARE(m.messaggi.mostrati.value(0).section(u':', 1), " al posto del file c'è una cartella. | Esporta (!)");
        u.esegui(QStringLiteral("scan:Risultati(4)"));
        QCOMPARE(m.schermi.chiamate, QStringLiteral("chiudi Risultati"));
    }
};

QTEST_MAIN(TstRisultati)
#include "tst_risultati.moc"
