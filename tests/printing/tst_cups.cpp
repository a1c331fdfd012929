// A worksheet through a real print queue: a private CUPS scheduler whose
// configuration, spool, logs and socket all live in a temporary folder, with
// a queue that copies the PDF it gets, unchanged, into a file there. Nothing
// outside that folder is touched, and a system scheduler may run alongside.
// Skipped, with the reason, where the machine cannot do it.
#include "fakes/cartella.h"
#include "fakes/fakes.h"
#include "printing/stampa.h"
#include "stato/stato.h"
#include "ui/qtstampante.h"

#include <QPrinterInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

class TestCups : public QObject
{
    Q_OBJECT
    QTemporaryDir dir_;
    QProcess cupsd_; // after dir_: gone before its folder is
    const QString coda_ = QStringLiteral("Composizione");

    QString d(const QString &sotto) const { return dir_.filePath(sotto); }

    // A tool, bounded in time: whether it succeeded, and what it said.
    static std::pair<bool, QByteArray> esegui(const QString &programma, const QStringList &argomenti)
    {
        QProcess p;
        p.setProcessChannelMode(QProcess::MergedChannels);
        p.start(programma, argomenti);
        const bool ok = p.waitForFinished(15000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
        return {ok, p.readAll()};
    }


private slots:
    void initTestCase()
    {
        const QString cupsd = QStandardPaths::findExecutable("cupsd", {"/usr/sbin", "/sbin"});
        if (cupsd.isEmpty() || QStandardPaths::findExecutable("lpadmin", {"/usr/sbin", "/usr/bin"}).isEmpty())
            QSKIP("cupsd or lpadmin is not installed (package cups)");
        if (QStandardPaths::findExecutable("pdftotext").isEmpty())
            QSKIP("pdftotext is not installed (package poppler-utils)");
        QVERIFY(dir_.isValid());
        // Every CUPS call of this process and of the tools it runs goes to the
        // private scheduler. Nothing has asked CUPS anything yet: the client
        // library reads this once, at its first call. Its temporary files, and
        // the scheduler's news to the system bus, stay here too.
        qputenv("CUPS_SERVER", d("socket/cups").toLocal8Bit());
        qputenv("TMPDIR", dir_.path().toLocal8Bit());
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + d("nessun-bus").toLocal8Bit());
        // The scheduler opens its own folder to every user, for the filters;
        // its socket stays behind a closed one, as through it a queue can
        // write any file.
        QVERIFY(QDir(dir_.path()).mkdir("socket", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        for (const char *sotto : {"spool", "cache", "state", "tmp"})
            QVERIFY(QDir(dir_.path()).mkdir(sotto));
        QVERIFY(scriviFile(d("cupsd.conf"), QString("Listen %1/socket/cups\nBrowsing No\n<Policy default>\n<Limit All>\n"
                                                    "</Limit>\n</Policy>\n").arg(dir_.path()).toUtf8()));
        QVERIFY(scriviFile(d("cups-files.conf"), QString("ServerRoot %1\nRequestRoot %1/spool\nCacheDir %1/cache\nStateDir %1/state\n"
                                                         "TempDir %1/tmp\nErrorLog %1/log\nAccessLog %1/log\nPageLog %1/log\n"
                                                         "Printcap %1/printcap\nFileDevice Yes\n").arg(dir_.path()).toUtf8()));
        // A queue with no filter at all never opens its file: one that only
        // copies its PDF input.
        QVERIFY(scriviFile(d("copia.ppd"), "*PPD-Adobe: \"4.3\"\n*ModelName: \"Copia\"\n*NickName: \"Copia\"\n"
                                    "*cupsFilter: \"application/pdf 0 gziptoany\"\n"));

        cupsd_.setProcessChannelMode(QProcess::MergedChannels);
        cupsd_.start(cupsd, {"-f", "-c", d("cupsd.conf"), "-s", d("cups-files.conf")});
        const QDeadlineTimer limite(15000);
        while (!esegui("lpstat", {"-r"}).second.contains("is running")) {
            if (limite.hasExpired() || cupsd_.state() == QProcess::NotRunning) {
                QFile log(d("log"));
                log.open(QIODevice::ReadOnly);
                QSKIP(qPrintable("the private scheduler did not come up: " + cupsd_.readAll() + log.readAll()));
            }
            QTest::qWait(200);
        }
        const auto [ok, uscita] = esegui("lpadmin", {"-p", coda_, "-v", QUrl::fromLocalFile(d("foglio.pdf")).toString(), "-E", "-P", d("copia.ppd")});
        QVERIFY2(ok, uscita.constData());
        QVERIFY(esegui("lpstat", {"-a", coda_}).second.startsWith(coda_.toUtf8() + " accepting"));
    }

    void cleanupTestCase()
    {
        cupsd_.terminate();
        cupsd_.waitForFinished(10000);
    }

    void schedaSullaCoda()
    {
        // Qt sees the private queue, and only it: nothing can reach the system's.
        QCOMPARE(QPrinterInfo::availablePrinterNames(), QStringList{coda_});
        QtPrinter p;

        FakeMessageBox box;
        Stato s;
        s.servizi.stampante = &p;
        s.servizi.messaggi = &box;
        s.fogli.NumeroOperazioni = 3;
        for (int k = 1; k <= 3; ++k)
            s.fogli.RigheScheda[k] = QStringLiteral("%1 + %1 = ...").arg(k);
        StampaScheda(s, 1, QStringLiteral("Trova il numero"), QStringLiteral("Simboli ordinati"));
        QVERIFY2(p.filePdf().isEmpty(), "a file of its own instead of the queue");
        QVERIFY(box.mostrati.isEmpty());

        // The scheduler writes the file on its own time: wait for all of it.
        QByteArray pdf;
        const QDeadlineTimer limite(30000);
        while (!pdf.trimmed().endsWith("%%EOF") && !limite.hasExpired()) {
            QTest::qWait(200);
            QFile f(d("foglio.pdf"));
            pdf = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
        }
        QVERIFY2(pdf.startsWith("%PDF"), "no PDF came out of the queue");
        const QString testo = QString::fromUtf8(esegui("pdftotext", {"-layout", d("foglio.pdf"), "-"}).second).simplified();
        QCOMPARE(testo, QStringLiteral("Classe Nome e cognome Trova il numero Simboli ordinati 1 + 1 = ... 2 + 2 = ... 3 + 3 = ..."));
    }
};

QTEST_MAIN(TestCups)
#include "tst_cups.moc"
