#include "fakes/cartella.h"
#include "fakes/fakes.h"
#include "printing/fileesercizio.h"
#include "settings/stato.h"

#include <QDir>
#include <QtTest>

using Righe = QList<QPair<int, QString>>; // (index, text) as told to the screen
Q_DECLARE_METATYPE(Righe)

class TestFileEsercizio : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    FakeMessageBox box_;
    Stato s_;
    const QString dat_ = QStringLiteral("provaEsercizio.dat");

    void scrivi(const QByteArray &dati)
    {
        QFile f(dat_);
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(dati);
    }
    QByteArray leggi()
    {
        QFile f(dat_);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
    }
    Righe caricaRighe()
    {
        Righe r;
        CaricaEsercizio(s_, [&](int i, const QString &t) { r.append({i, t}); });
        return r;
    }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init()
    {
        QFile::remove(dat_);
        QDir(dat_).removeRecursively();
        box_.mostrati.clear();
        s_ = Stato();
        s_.settings.NomeFile = QStringLiteral("prova");
        s_.servizi.messaggi = &box_;
    }

    void salva_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("ridotta");
        QTest::addColumn<QStringList>("righe");
        QTest::addColumn<QByteArray>("byte");
        QTest::newRow("20 items, nothing previewed") << 20 << 0 << QStringList() << QByteArray(" 20  0 \r\n") + QByteArray(20, '\r').replace("\r", "\r\n");
        QTest::newRow("no items") << 0 << 0 << QStringList{"unsaved"} << QByteArray(" 0  0 \r\n");
        QTest::newRow("negative values") << -3 << -1 << QStringList{"unsaved"} << QByteArray("-3 -1 \r\n");
        QTest::newRow("reduced flag") << 2 << 1 << QStringList{"a", "b", "unsaved"} << QByteArray(" 2  1 \r\na\r\nb\r\n");
        QTest::newRow("lines as they stand") << 2 << 0 << QStringList{"   1 h = 1,5", "x, \"y\""}
                                             << QByteArray(" 2  0 \r\n   1 h = 1,5\r\nx, \"y\"\r\n");
        QTest::newRow("one byte a character") << 1 << 0 << QStringList{QString::fromUtf8("unità € è")}
                                              << QByteArray(" 1  0 \r\nunit\xe0 \x80 \xe8\r\n");
        QTest::newRow("largest values") << 60 << 32767 << QStringList() << QByteArray(" 60  32767 \r\n") + QByteArray(60, '\r').replace("\r", "\r\n");
    }
    void salva()
    {
        QFETCH(int, numero);
        QFETCH(int, ridotta);
        QFETCH(QStringList, righe);
        s_.record.NumeroEsercizio = qint16(numero);
        s_.fogli.StampaRidotta = qint16(ridotta);
        for (int i = 0; i < righe.size(); ++i)
            s_.fogli.RigheScheda[std::size_t(i + 1)] = righe[i];
        s_.record.RigheEsercizio[1] = "never saved";
        scrivi("old file, longer than the new one................................");
        SalvaEsercizio(s_);
        QTEST(leggi(), "byte");
        QCOMPARE(s_.fogli.NumeroOperazioni, qint16(qMax(numero, 0) + 1));
        QVERIFY(box_.mostrati.isEmpty());
    }

    void salvaFallito()
    {
        // Line 61 does not exist: the save stops before the old file is touched.
        scrivi(" 3  0 \r\na\r\nb\r\nc\r\n");
        s_.record.NumeroEsercizio = 61;
        QVERIFY_THROWS_EXCEPTION(ErroreIntervallo, SalvaEsercizio(s_));
        QCOMPARE(leggi(), QByteArray(" 3  0 \r\na\r\nb\r\nc\r\n"));
        QCOMPARE(s_.fogli.NumeroOperazioni, qint16(61));
        QFile::remove(dat_);
        // A folder under the file's name cannot be replaced: the user is told.
        QVERIFY(QDir().mkdir(dat_));
        s_.record.NumeroEsercizio = 2;
        SalvaEsercizio(s_);
        QCOMPARE(box_.mostrati.size(), 1);
        QVERIFY(box_.mostrati[0].testo.contains(dat_));
        QVERIFY(QFileInfo(dat_).isDir());
    }

    void carica_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<int>("contatore"); // NumeroOperazioni before the load
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("ridotta");
        QTest::addColumn<Righe>("righe");
        QTest::addColumn<bool>("messaggio");
        QTest::newRow("saved form reads back") << QByteArray(" 2  1 \r\nuno\r\ndue\r\n") << 1 << 2 << 1 << Righe{{1, "uno"}, {2, "due"}} << false;
        QTest::newRow("lines land where the counter stands") << QByteArray(" 2  0 \r\nuno\r\ndue\r\n") << 21 << 2 << 0 << Righe{{21, "uno"}, {22, "due"}} << false;
        QTest::newRow("commas split a line") << QByteArray(" 1  0 \r\n   4 h = 1,5  ... \r\n") << 1 << 1 << 0 << Righe{{1, "4 h = 1"}, {2, "5  ... "}} << false;
        QTest::newRow("quotes keep commas, drop the rest") << QByteArray(" 1  0 \r\n  \"a, b\" tail,c\r\n") << 1 << 1 << 0 << Righe{{1, "a, b"}, {2, "c"}} << false;
        QTest::newRow("first value 0 still reads on") << QByteArray(" 0  0 \r\nx\r\n\r\ny") << 5 << 0 << 0 << Righe{{5, "x"}, {6, ""}, {7, "y"}} << false;
        QTest::newRow("numbers split by a comma") << QByteArray("3,1\nx\n") << 1 << 3 << 1 << Righe{{1, "x"}} << false;
        QTest::newRow("one byte a character") << QByteArray(" 1  0 \r\nunit\xe0 \x80\r\n") << 1 << 1 << 0 << Righe{{1, QString::fromUtf8("unità €")}} << false;
        QTest::newRow("past index 60 is skipped") << QByteArray(" 9  0 \r\na\r\nb\r\nc\r\n") << 59 << 9 << 0 << Righe{{59, "a"}, {60, "b"}} << false;
        QTest::newRow("missing file") << QByteArray() << 1 << 7 << 3 << Righe{} << true;
        QTest::newRow("empty file") << QByteArray("") << 1 << 7 << 3 << Righe{} << true;
        QTest::newRow("words") << QByteArray("Nessun numero qui\r\nx\r\n") << 1 << 7 << 3 << Righe{} << true;
        QTest::newRow("one number only") << QByteArray(" 12 \r\n") << 1 << 12 << 3 << Righe{} << true;
        QTest::newRow("beyond 16 bits") << QByteArray(" 40000  0 \r\n") << 1 << 7 << 3 << Righe{} << true;
    }
    void carica()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, contatore);
        if (!file.isNull())
            scrivi(file);
        s_.record.NumeroEsercizio = 7;
        s_.fogli.StampaRidotta = 3;
        s_.fogli.NumeroOperazioni = qint16(contatore);
        const Righe r = caricaRighe();
        QTEST(int(s_.record.NumeroEsercizio), "numero");
        QTEST(int(s_.fogli.StampaRidotta), "ridotta");
        QTEST(r, "righe");
        for (const auto &[i, t] : r)
            QCOMPARE(s_.fogli.RigheScheda[std::size_t(i)], t);
        QFETCH(bool, messaggio);
        QCOMPARE(box_.mostrati.size(), messaggio ? 1 : 0);
        if (messaggio)
            QCOMPARE(box_.mostrati[0].testo, QStringLiteral("Nessun esercizio eseguito presente"));
        if (messaggio || file.isEmpty())
            QCOMPARE(s_.fogli.NumeroOperazioni, qint16(contatore));
    }

    void dueCaricamentiESalvataggio()
    {
        scrivi(" 2  0 \r\nuno\r\ndue\r\n");
        s_.fogli.NumeroOperazioni = 1;
        caricaRighe();
        caricaRighe();
        QCOMPARE(s_.fogli.NumeroOperazioni, qint16(5));
        QCOMPARE(s_.fogli.RigheScheda[3], QStringLiteral("uno"));
        QCOMPARE(s_.fogli.RigheScheda[4], QStringLiteral("due"));
        // The loaded file is still open; saving replaces it all the same.
        s_.fogli.RigheScheda[1] = "nuovo";
        SalvaEsercizio(s_);
        QCOMPARE(leggi(), QByteArray(" 2  0 \r\nnuovo\r\ndue\r\n"));
    }

    // A folder under the file's name is not a record.
    void cartellaAlPostoDelFile()
    {
        QFile::remove(dat_);
        QVERIFY(QDir().mkdir(dat_));
        box_.mostrati.clear();
        caricaRighe();
        QCOMPARE(box_.mostrati.size(), 1);
    }
};

QTEST_GUILESS_MAIN(TestFileEsercizio)
#include "tst_fileesercizio.moc"
