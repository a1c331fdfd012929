// A save killed at any moment leaves the old file or the new one, never a mix.
// The test runs itself as the child that saves in a loop.
#include "settings/filesettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

Settings impostazioni(int giro)
{
    Settings s;
    s.NomeFile = QStringLiteral("composizione");
    AspettoPredefinito(s);
    s.IndiceSfondo = qint16(giro % 2 ? 10 : 0);
    s.ColoreSfondo = giro % 2 ? QStringLiteral("16777215") : QStringLiteral("0");
    s.Livello = qint16(giro % 2 ? 3 : 2);
    s.NumeroCifre = 2;
    return s;
}

[[noreturn]] void figlio(const QString &cartella)
{
    QDir::setCurrent(cartella);
    for (int giro = 0;; ++giro) {
        const Settings s = impostazioni(giro);
        if (giro % 3 == 0)
            ScriviLivelli(s);
        else
            ScriviImpostazioni(s);
    }
}

} // namespace

class TestSalvataggioInterrotto : public QObject
{
    Q_OBJECT
private slots:
    void soloFileInteri()
    {
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QRandomGenerator rng(7);
        const QString dat = dir.filePath(QStringLiteral("composizione.dat"));
        int interrotti = 0;
        for (int i = 0; i < 40; ++i) {
            QProcess p;
            p.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--figlio"), dir.path()});
            QVERIFY(p.waitForStarted());
            QThread::usleep(2000 + rng.bounded(20000));
            ::kill(pid_t(p.processId()), SIGKILL);
            QVERIFY(p.waitForFinished());
            ++interrotti;

            QFile f(dat);
            if (!f.exists())
                continue; // killed before the first save
            QVERIFY(f.open(QIODevice::ReadOnly));
            const QByteArray b = f.readAll();
            Settings s;
            s.NomeFile = QStringLiteral("composizione");
            const bool livelli = LeggiLivelliDa(b, s);
            const bool aspetto = LeggiImpostazioniDa(b, s);
            QVERIFY2(livelli != aspetto, b.constData());
        }
        QCOMPARE(interrotti, 40);
        // A cut save may leave its own temporary beside the file, never another name.
        const auto resti = QDir(dir.path()).entryList(QDir::Files);
        for (const QString &r : resti)
            QVERIFY2(r.startsWith(QLatin1String("composizione.dat")), qPrintable(r));
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && qstrcmp(argv[1], "--figlio") == 0)
        figlio(QString::fromLocal8Bit(argv[2]));
    QCoreApplication app(argc, argv);
    TestSalvataggioInterrotto t;
    return QTest::qExec(&t, argc, argv);
}
#include "tst_salvataggiointerrotto.moc"
