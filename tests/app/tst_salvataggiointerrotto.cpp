// A save killed at any moment leaves the old file or the new one, never a mix:
// the settings file and the exercise record alike. The test runs itself as
// the child that saves in a loop until it is killed.
#include "fakes/cartella.h"
#include "printing/fileesercizio.h"
#include "settings/filesettings.h"
#include "settings/stato.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <cstdio>

namespace {

// Save number `giro` of the file `tipo` in the current folder; the saves
// alternate between contents of different lengths and repeat every six saves.
void salva(const QString &tipo, int giro)
{
    Stato s;
    s.settings.NomeFile = QStringLiteral("composizione");
    AspettoPredefinito(s.settings);
    const bool dispari = giro % 2;
    if (tipo == QLatin1String("impostazioni")) {
        s.settings.IndiceSfondo = qint16(dispari ? 10 : 0);
        s.settings.ColoreSfondo = dispari ? QStringLiteral("16777215") : QStringLiteral("0");
        s.settings.Livello = qint16(dispari ? 3 : 2);
        s.settings.NumeroCifre = 2;
        if (giro % 3 == 0)
            ScriviLivelli(s.settings);
        else
            ScriviImpostazioni(s.settings);
    } else {
        s.record.NumeroEsercizio = qint16(dispari ? 60 : 7);
        s.fogli.StampaRidotta = qint16(dispari);
        for (int i = 1; i <= 60; ++i)
            s.fogli.RigheScheda[std::size_t(i)] = QStringLiteral("%1) %2 h %3 da = %4 u").arg(i).arg(giro % 3).arg(i % 10).arg(i * 10);
        SalvaEsercizio(s);
    }
}

QString nomeFile(const QString &tipo)
{
    return tipo == QLatin1String("impostazioni") ? QStringLiteral("composizione.dat")
                                                 : QStringLiteral("composizioneEsercizio.dat");
}

[[noreturn]] void figlio(const QString &tipo, const QString &cartella)
{
    QDir::setCurrent(cartella);
    salva(tipo, 0);
    // From here on a kill can only land in the middle of the saving loop,
    // however slowly the process started (sanitizers make that slow).
    std::fputs("pronto\n", stdout);
    std::fflush(stdout);
    for (int giro = 1;; ++giro)
        salva(tipo, giro);
}

QByteArray contenuto(const QString &percorso)
{
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TestSalvataggioInterrotto : public QObject
{
    Q_OBJECT
private slots:
    void soloFileInteri_data()
    {
        QTest::addColumn<QString>("tipo");
        QTest::newRow("settings") << QStringLiteral("impostazioni");
        QTest::newRow("exercise record") << QStringLiteral("esercizio");
    }
    void soloFileInteri()
    {
        QFETCH(QString, tipo);
        // Every whole file the child can write, made here the same way.
        QSet<QByteArray> interi;
        {
            CartellaDiProva modelli;
            for (int giro = 0; giro < 6; ++giro) {
                salva(tipo, giro);
                interi.insert(contenuto(nomeFile(tipo)));
            }
        }
        QVERIFY(interi.size() >= 2);

        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        QRandomGenerator rng(7);
        const QString dat = dir.filePath(nomeFile(tipo));
        for (int i = 0; i < 40; ++i) {
            QProcess p;
            p.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--figlio"), tipo, dir.path()});
            QVERIFY(p.waitForStarted());
            QVERIFY(p.waitForReadyRead(30000));
            QThread::usleep(rng.bounded(20000));
            ::kill(pid_t(p.processId()), SIGKILL);
            QVERIFY(p.waitForFinished());
            const QByteArray b = contenuto(dat);
            QVERIFY2(interi.contains(b), b.left(200).constData());
        }
        // A cut save may leave its own temporary beside the file, never another name.
        const auto resti = QDir(dir.path()).entryList(QDir::Files);
        for (const QString &r : resti)
            QVERIFY2(r.startsWith(nomeFile(tipo)), qPrintable(r));
    }
};

int main(int argc, char **argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--figlio") == 0)
        figlio(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    QCoreApplication app(argc, argv);
    TestSalvataggioInterrotto t;
    return QTest::qExec(&t, argc, argv);
}
#include "tst_salvataggiointerrotto.moc"
