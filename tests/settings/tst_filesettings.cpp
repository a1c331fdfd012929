#include "settings/filesettings.h"

#include "fakes/cartella.h"

#include <QDir>
#include <QFile>
#include <QtTest>

namespace {

void scrivi(const QString &nome, const QByteArray &contenuto)
{
    QFile f(nome);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(contenuto);
}

QByteArray leggi(const QString &nome)
{
    QFile f(nome);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

Settings conNome()
{
    Settings s;
    s.NomeFile = QStringLiteral("composizione");
    return s;
}

bool aspettoPredefinito(const Settings &s)
{
    Settings d;
    AspettoPredefinito(d);
    return s.ColoreSfondo == d.ColoreSfondo && s.ColoreRiserva == d.ColoreRiserva &&
           s.ColoreCaratteri == d.ColoreCaratteri && s.BeepAttivo == d.BeepAttivo &&
           s.ImpostazioneA == d.ImpostazioneA && s.ImpostazioneB == d.ImpostazioneB &&
           s.ColoreScansioneChiaro == d.ColoreScansioneChiaro &&
           s.ColoreScansioneScuro == d.ColoreScansioneScuro && s.IndiceSfondo == d.IndiceSfondo &&
           s.IndiceScansione == d.IndiceScansione && s.IndiceCaratteri == d.IndiceCaratteri;
}

} // namespace

class TestFileSettings : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    QString dat() const { return QStringLiteral("composizione.dat"); }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init()
    {
        QDir::setCurrent(cartella_.percorso());
        QFile::remove(dat());
        QDir().rmdir(dat());
    }

    void nomeDaEseguibile_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::addColumn<QString>("nome");
        QTest::newRow("linux") << "/usr/lib/composizione/composizione" << "composizione";
        QTest::newRow("windows") << "C:/Scuola/abc.exe" << "abc";
        QTest::newRow("two dots") << "/opt/classe.3a.bin" << "classe.3a";
        QTest::newRow("bare") << "quinta" << "quinta";
    }
    void nomeDaEseguibile()
    {
        QFETCH(QString, percorso);
        QFETCH(QString, nome);
        QCOMPARE(NomeFileDaEseguibile(percorso), nome);
    }

    void livelliScrittiByteDopoByte_data()
    {
        QTest::addColumn<int>("livello");
        QTest::addColumn<int>("cifre");
        QTest::addColumn<QByteArray>("atteso");
        QTest::newRow("1 1") << 1 << 1 << QByteArray(" 1  1 \r\n");
        QTest::newRow("3 2") << 3 << 2 << QByteArray(" 3  2 \r\n");
        QTest::newRow("12 2") << 12 << 2 << QByteArray(" 12  2 \r\n");
        QTest::newRow("negative") << -1 << 2 << QByteArray("-1  2 \r\n");
    }
    void livelliScrittiByteDopoByte()
    {
        QFETCH(int, livello);
        QFETCH(int, cifre);
        QFETCH(QByteArray, atteso);
        Settings s = conNome();
        s.Livello = qint16(livello);
        s.NumeroCifre = qint16(cifre);
        QVERIFY(ScriviLivelli(s));
        QCOMPARE(leggi(dat()), atteso);
        Settings r;
        QVERIFY(LeggiLivelli(r, s.NomeFile));
        QCOMPARE(r.Livello, s.Livello);
        QCOMPARE(r.NumeroCifre, s.NumeroCifre);
    }

    void impostazioniScritteByteDopoByte()
    {
        Settings s = conNome();
        AspettoPredefinito(s);
        s.ImpostazioneA = false;
        s.ImpostazioneB = std::nullopt;
        s.IndiceCaratteri = 0;
        QVERIFY(ScriviImpostazioni(s));
        QCOMPARE(leggi(dat()), QByteArray("12640511\r\n8438015\r\n328965\r\nTrue\r\nFalse\r\n\r\n"
                                          "16754175\r\n16745215\r\n 4\r\n 4\r\n 0\r\n"));
        Settings r = conNome();
        QVERIFY(LeggiImpostazioni(r));
        QCOMPARE(r.ImpostazioneA, std::optional<bool>(false));
        QCOMPARE(r.ImpostazioneB, std::optional<bool>());
        QCOMPARE(r.IndiceCaratteri, qint16(0));
        QCOMPARE(r.ColoreSfondo, s.ColoreSfondo);
    }

    void impostazioniLette_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<bool>("letto");
        QTest::addColumn<QString>("sfondo");
        QTest::addColumn<bool>("beep");
        QTest::addColumn<int>("indiceSfondo");
        const QByteArray coda = "16754175\n16745215\n 3\n 4\n 9\n";
        QTest::newRow("LF line ends") << QByteArray("16777215\n8438015\n328965\nFalse\nTrue\nTrue\n") + coda
                                      << true << "16777215" << false << 3;
        QTest::newRow("commas") << QByteArray("0,8438015,328965,True,True,True,1,2,3,4,5") << true << "0"
                                << true << 3;
        QTest::newRow("blanks around") << QByteArray("  255 \r\n 1\r\n2\r\n true \r\n0\r\n1\r\n3\r\n4\r\n 10 \r\n0\r\n0\r\n")
                                       << true << "255" << true << 10;
        QTest::newRow("levels file") << QByteArray(" 2  2 \r\n") << false << "12640511" << true << 4;
        QTest::newRow("ten lines") << QByteArray("1\n2\n3\nTrue\nTrue\nTrue\n4\n5\n6\n7\n") << false
                                   << "12640511" << true << 4;
        QTest::newRow("colour too large") << QByteArray("16777216\n2\n3\nTrue\nTrue\nTrue\n4\n5\n1\n1\n1\n")
                                          << false << "12640511" << true << 4;
        QTest::newRow("index out of list") << QByteArray("1\n2\n3\nTrue\nTrue\nTrue\n4\n5\n11\n1\n1\n")
                                           << false << "12640511" << true << 4;
        QTest::newRow("beep is a word") << QByteArray("1\n2\n3\nForse\nTrue\nTrue\n4\n5\n1\n1\n1\n") << false
                                        << "12640511" << true << 4;
        QTest::newRow("empty") << QByteArray() << false << "12640511" << true << 4;
    }
    void impostazioniLette()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, letto);
        QFETCH(QString, sfondo);
        QFETCH(bool, beep);
        QFETCH(int, indiceSfondo);
        scrivi(dat(), file);
        Settings s = conNome();
        QCOMPARE(LeggiImpostazioni(s), letto);
        QCOMPARE(s.ColoreSfondo, sfondo);
        QCOMPARE(s.BeepAttivo, beep);
        QCOMPARE(s.IndiceSfondo, qint16(indiceSfondo));
        if (!letto)
            QVERIFY(aspettoPredefinito(s));
    }

    // Each writer replaces the whole file, so each format makes the other's reader fall back.
    void formatiIncrociati()
    {
        Settings s = conNome();
        AspettoPredefinito(s);
        s.Livello = 3;
        s.NumeroCifre = 2;
        s.ColoreSfondo = QStringLiteral("0"); // black page: the first value even fits 16 bits
        QVERIFY(ScriviImpostazioni(s));
        Settings r = conNome();
        QVERIFY(!LeggiLivelli(r, r.NomeFile));
        QCOMPARE(r.Livello, qint16(1));
        QCOMPARE(r.NumeroCifre, qint16(1));
        QVERIFY(LeggiImpostazioni(r));
        QCOMPARE(r.ColoreSfondo, QStringLiteral("0"));

        QVERIFY(ScriviLivelli(s));
        Settings t = conNome();
        t.ColoreSfondo = QStringLiteral("99");
        QVERIFY(LeggiLivelli(t, t.NomeFile));
        QCOMPARE(t.Livello, qint16(3));
        QCOMPARE(t.NumeroCifre, qint16(2));
        QVERIFY(!LeggiImpostazioni(t));
        QVERIFY(aspettoPredefinito(t));
    }

    void livelliNonLeggibili_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("one number") << QByteArray(" 2 \r\n");
        QTest::newRow("words") << QByteArray("livello due\r\n");
        QTest::newRow("too large") << QByteArray(" 40000  1 \r\n");
        QTest::newRow("decimal") << QByteArray("1.5 2\r\n");
        QTest::newRow("binary") << QByteArray("\x00\xff\x01\x02", 4);
    }
    void livelliNonLeggibili()
    {
        QFETCH(QByteArray, file);
        scrivi(dat(), file);
        Settings s = conNome();
        s.Livello = 7;
        s.NumeroCifre = 7;
        QVERIFY(!LeggiLivelli(s, s.NomeFile));
        QCOMPARE(s.Livello, qint16(1));
        QCOMPARE(s.NumeroCifre, qint16(1));
    }

    void nessunFileNessunaCreazione()
    {
        Settings s = conNome();
        QVERIFY(!LeggiLivelli(s, s.NomeFile));
        QVERIFY(!LeggiImpostazioni(s));
        VerificaEsistenzaFile(s.NomeFile);
        QVERIFY(!QFile::exists(dat()));
        QVERIFY(aspettoPredefinito(s));
    }

    void cartellaAlPostoDelFile()
    {
        QVERIFY(QDir().mkdir(dat()));
        Settings s = conNome();
        QVERIFY(!LeggiLivelli(s, s.NomeFile));
        QVERIFY(!LeggiImpostazioni(s));
        s.Livello = 2;
        QVERIFY(!ScriviLivelli(s));
        QVERIFY(QFileInfo(dat()).isDir());
    }
};

QTEST_GUILESS_MAIN(TestFileSettings)
#include "tst_filesettings.moc"
