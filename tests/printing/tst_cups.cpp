// A worksheet through a real print queue: a private CUPS scheduler on its own
// port and folders, with a CUPS-PDF queue writing into a temporary folder.
// Skipped, with the reason, where the machine cannot do it.
#include "fakes/fakes.h"
#include "printing/stampa.h"
#include "settings/stato.h"
#include "ui/qtstampante.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <grp.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString ppd = QStringLiteral("/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd");
// The backend reads its settings only from here, one file per queue suffix.
const QString cartellaConfPdf = QStringLiteral("/etc/cups");
int porta = 0; // chosen in main, before anything asks CUPS

int portaLibera()
{
    const int s = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in a{};
    a.sin_family = AF_INET;
    a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t l = sizeof a;
    const bool ok = s >= 0 && bind(s, reinterpret_cast<sockaddr *>(&a), sizeof a) == 0
                    && getsockname(s, reinterpret_cast<sockaddr *>(&a), &l) == 0;
    if (s >= 0)
        close(s);
    return ok ? ntohs(a.sin_port) : 0;
}

QString trova(const QString &nome)
{
    return QStandardPaths::findExecutable(nome, {"/usr/sbin", "/usr/bin", "/sbin", "/bin"});
}

bool scrivi(const QString &nome, const QString &testo)
{
    QFile f(nome);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(testo.toUtf8()) > 0;
}

// A CUPS client tool, bounded in time; true on exit code 0.
bool esegui(const QString &programma, const QStringList &argomenti, QByteArray *uscita = nullptr)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(programma, argomenti);
    const bool ok = p.waitForFinished(15000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    if (uscita)
        *uscita = p.readAll();
    return ok;
}

} // namespace

class TestCups : public QObject
{
    Q_OBJECT
    QTemporaryDir dir_;
    QProcess cupsd_;
    QString coda_, confPdf_;

    QString d(const QString &sotto = {}) const { return sotto.isEmpty() ? dir_.path() : dir_.filePath(sotto); }

private slots:
    void initTestCase()
    {
        const QList<std::pair<bool, const char *>> requisiti{
            {porta != 0, "no free local port"},
            {!trova("cupsd").isEmpty() && !trova("lpadmin").isEmpty() && !trova("lpstat").isEmpty(),
             "cupsd, lpadmin or lpstat is not installed (package cups)"},
            {QFile::exists("/usr/lib/cups/backend/cups-pdf") && QFile::exists(ppd),
             "the CUPS-PDF backend is not installed (package printer-driver-cups-pdf)"},
            {geteuid() == 0, "the CUPS-PDF backend only runs under a scheduler started as root"},
            {QFileInfo(cartellaConfPdf).isWritable(), "/etc/cups is not writable"},
            {dir_.isValid(), "no temporary folder"}};
        for (const auto &[ok, perche] : requisiti)
            if (!ok) {
                qInfo("skipping the print queue test: %s", perche);
                QSKIP(perche);
            }

        // Filters run as an unprivileged user: they must reach spool and output.
        for (const char *sotto : {"spool", "cache", "state", "tmp", "log", "out"})
            QVERIFY(QDir(d()).mkdir(sotto));
        chmod(qPrintable(d()), 0755);
        chmod(qPrintable(d("tmp")), 01777);
        chmod(qPrintable(d("out")), 0777);
        const group *lp = getgrnam("lp");
        chmod(qPrintable(d("spool")), lp && chown(qPrintable(d("spool")), 0, lp->gr_gid) == 0 ? 0710 : 0755);

        QVERIFY(scrivi(d("cupsd.conf"), QStringLiteral("Listen 127.0.0.1:%1\nLogLevel warn\nWebInterface No\n"
                                                       "Browsing No\nDefaultAuthType None\n"
                                                       "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                                       "<Policy default>\n<Limit All>\nOrder deny,allow\nAllow all\n"
                                                       "</Limit>\n</Policy>\n").arg(porta)));
        QVERIFY(scrivi(d("cups-files.conf"), QStringLiteral("ServerRoot %1\nRequestRoot %1/spool\nCacheDir %1/cache\n"
                                                            "StateDir %1/state\nTempDir %1/tmp\nErrorLog %1/log/error_log\n"
                                                            "AccessLog %1/log/access_log\nPageLog %1/log/page_log\n"
                                                            "Sandboxing Relaxed\n").arg(d())));
        cupsd_.setProcessChannelMode(QProcess::MergedChannels);
        cupsd_.start(trova("cupsd"), {"-f", "-c", d("cupsd.conf"), "-s", d("cups-files.conf")});
        QVERIFY2(cupsd_.waitForStarted(10000), "cupsd did not start");
        QByteArray stato;
        const QDeadlineTimer limite(15000);
        while (!esegui(trova("lpstat"), {"-r"}, &stato) || !stato.contains("is running")) {
            if (limite.hasExpired() || cupsd_.state() == QProcess::NotRunning)
                QSKIP(qPrintable("the private scheduler did not come up: " + cupsd_.readAll() + stato));
            QTest::qWait(200);
        }

        const QString suffisso = QStringLiteral("comptest%1").arg(QCoreApplication::applicationPid());
        coda_ = "Composizione_" + suffisso;
        confPdf_ = cartellaConfPdf + "/cups-pdf-" + suffisso + ".conf";
        QVERIFY(scrivi(confPdf_, QStringLiteral("Out %1\nAnonDirName %1\nLabel 0\n").arg(d("out"))));
        QByteArray uscita;
        QVERIFY2(esegui(trova("lpadmin"), {"-p", coda_, "-v", "cups-pdf:/" + suffisso, "-E", "-P", ppd}, &uscita),
                 uscita.constData());
    }

    void cleanupTestCase()
    {
        if (cupsd_.state() != QProcess::NotRunning) {
            cupsd_.terminate();
            if (!cupsd_.waitForFinished(10000))
                cupsd_.kill();
            cupsd_.waitForFinished(5000);
        }
        if (!confPdf_.isEmpty())
            QFile::remove(confPdf_);
    }

    void schedaSullaCoda()
    {
        QtPrinter p;
        QStringList aperti;
        p.setApriPdf([&](const QString &f) { aperti.append(f); });
        QVERIFY(QPrinterInfo::availablePrinterNames().contains(coda_));
        QVERIFY(p.printers().contains(coda_));
        p.setCurrentPrinter(coda_);
        p.setCurrentPrinter(QStringLiteral("no such queue"));
        QCOMPARE(p.currentPrinter(), coda_);

        FakeMessageBox box;
        Stato s;
        s.settings.NomeFile = QStringLiteral("prova");
        s.servizi.stampante = &p;
        s.servizi.messaggi = &box;
        s.fogli.NumeroOperazioni = 10;
        StampaScheda(s, 1, QStringLiteral("Trova il numero"), QStringLiteral("Simboli ordinati"));
        QVERIFY(box.mostrati.isEmpty());
        QVERIFY(aperti.isEmpty()); // a real queue: no file of our own

        // The job goes through filters and Ghostscript on its own time; wait
        // for a whole file. Its text is not checked: the re-encoded fonts lose
        // their character codes.
        QFile f;
        QByteArray dati;
        const QDeadlineTimer limite(90000);
        while (!dati.contains("%%EOF") && !limite.hasExpired()) {
            QTest::qWait(250);
            const QStringList pdf = QDir(d("out")).entryList({"*.pdf"}, QDir::Files);
            f.setFileName(pdf.isEmpty() ? QString() : d("out/" + pdf[0]));
            dati = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
            f.close();
        }
        QVERIFY2(dati.startsWith("%PDF"), "no PDF came out of the queue");
        QVERIFY2(f.fileName().contains("prova"), qPrintable(f.fileName())); // the job bears the document's name
        QByteArray info;
        if (esegui("pdfinfo", {f.fileName()}, &info))
            QVERIFY2(QString::fromUtf8(info).contains(QRegularExpression("Pages:\\s+1\\n")), info.constData());
    }
};

int main(int argc, char **argv)
{
    // Every CUPS call of this process and of the tools it runs goes to the
    // private scheduler, never to the system's.
    porta = portaLibera();
    qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(porta));
    QApplication app(argc, argv);
    TestCups t;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&t, argc, argv);
}

#include "tst_cups.moc"
