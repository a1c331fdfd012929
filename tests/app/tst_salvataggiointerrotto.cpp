// A save killed at any moment leaves the old file or the new one, never a mix:
// the settings file and the exercise record alike; the results file keeps
// every row appended before the one being written. The test runs itself as
// the child that saves in a loop until it is killed.
#include "fakes/cartella.h"
#include "printing/fileesercizio.h"
#include "results/filerisultati.h"
#include "settings/filesettings.h"
#include "stato/stato.h"

#include <QtTest>

#include <csignal>
#include <cstdio>

namespace {

// Save number `giro` of the settings (levels line or appearance lines) or of
// the exercise record, in the current folder: contents of different lengths,
// repeating every six saves. Returns the file's name.
QString salva(bool impostazioni, int giro)
{
    Stato s;
    s.settings.NomeFile = QStringLiteral("composizione");
    AspettoPredefinito(s.settings);
    const bool dispari = giro % 2;
    if (impostazioni) {
        s.settings.ColoreSfondo = dispari ? QStringLiteral("16777215") : QStringLiteral("0");
        s.settings.Livello = qint16(dispari ? 3 : 2);
        giro % 3 ? ScriviImpostazioni(s.settings) : ScriviLivelli(s.settings);
        return QStringLiteral("composizione.dat");
    }
    s.record.NumeroEsercizio = qint16(dispari ? 60 : 7);
    for (int i = 1; i <= 60; ++i)
        s.fogli.RigheScheda[std::size_t(i)] = QStringLiteral("%1) %2 h %3 da").arg(i).arg(giro % 3).arg(i % 10);
    SalvaEsercizio(s);
    return QStringLiteral("composizioneEsercizio.dat");
}


// The row the child appends, again and again.
Risultato risultato()
{
    return {QDateTime(QDate(2026, 9, 15), QTime(9, 30)), QStringLiteral("unità"), 1, 1, QStringLiteral("Trova il numero"),
            QStringLiteral("Usa i simboli ordinati"), 18, 3, 210, QStringList(kRigheRisultato, QStringLiteral("  1 h = 100"))};
}

} // namespace

class TestSalvataggioInterrotto : public QObject
{
    Q_OBJECT
private slots:
    void soloFileInteri_data()
    {
        QTest::addColumn<bool>("impostazioni");
        QTest::newRow("settings") << true;
        QTest::newRow("exercise record") << false;
    }
    void soloFileInteri()
    {
        QFETCH(bool, impostazioni);
        // Every whole file the child can write, made here the same way.
        QSet<QByteArray> interi;
        QString nome;
        {
            CartellaDiProva modelli;
            for (int giro = 0; giro < 6; ++giro)
                interi.insert(leggiFile(nome = salva(impostazioni, giro)));
        }
        QVERIFY(interi.size() >= 2);

        QTemporaryDir dir;
        QRandomGenerator rng(7);
        for (int i = 0; i < 40; ++i) {
            QProcess p;
            p.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--figlio"), QString::number(impostazioni), dir.path()});
            // Killed only once it is in its saving loop, however slowly it started.
            QVERIFY(p.waitForStarted() && p.waitForReadyRead(30000));
            QThread::usleep(rng.bounded(20000));
            ::kill(pid_t(p.processId()), SIGKILL);
            QVERIFY(p.waitForFinished());
            const QByteArray b = leggiFile(dir.filePath(nome));
            QVERIFY2(interi.contains(b), b.left(200).constData());
        }
        // A cut save may leave its own temporary beside the file, never another name.
        for (const QString &r : QDir(dir.path()).entryList(QDir::Files))
            QVERIFY2(r.startsWith(nome), qPrintable(r));
    }

    // Killed while it makes the file or appends to it: the header and whole
    // rows, at most the last one cut; the next row after it is read whole.
    void risultatiInteri()
    {
        QTemporaryDir dir;
        const QString file = dir.filePath(NomeFileRisultati(QStringLiteral("composizione")));
        const QByteArray riga = RigaCsv(risultato()), testa = IntestazioneCsv();
        QRandomGenerator rng(11);
        for (int i = 0; i < 40; ++i) {
            QFile::remove(file);
            QProcess p;
            p.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--risultati"), file});
            QVERIFY(p.waitForStarted() && p.waitForReadyRead(30000));
            QThread::usleep(rng.bounded(20000));
            ::kill(pid_t(p.processId()), SIGKILL);
            QVERIFY(p.waitForFinished());
            const QByteArray b = leggiFile(file);
            const qsizetype righe = (b.size() - testa.size()) / riga.size(), resto = (b.size() - testa.size()) % riga.size();
            QVERIFY(b.size() >= testa.size() + riga.size());
            QVERIFY(b == testa + riga.repeated(righe) + riga.left(resto));
            QVERIFY(AggiungiRisultato(file, risultato()));
            const LetturaRisultati l = LeggiRisultati(file);
            QCOMPARE(l.risultati.size(), righe + 1);
            QCOMPARE(l.scartate, resto ? 1 : 0);
        }
    }
};

int main(int argc, char **argv)
{
    if (argc == 4 && qstrcmp(argv[1], "--figlio") == 0) {
        const bool impostazioni = qstrcmp(argv[2], "1") == 0;
        QDir::setCurrent(QString::fromLocal8Bit(argv[3]));
        salva(impostazioni, 0);
        std::fputs("pronto\n", stdout);
        std::fflush(stdout);
        for (int giro = 1;; ++giro)
            salva(impostazioni, giro);
    }
    if (argc == 3 && qstrcmp(argv[1], "--risultati") == 0) {
        const QString file = QString::fromLocal8Bit(argv[2]);
        AggiungiRisultato(file, risultato());
        std::fputs("pronto\n", stdout);
        std::fflush(stdout);
        for (;;)
            AggiungiRisultato(file, risultato());
    }
    QCoreApplication app(argc, argv);
    TestSalvataggioInterrotto t;
    return QTest::qExec(&t, argc, argv);
}
#include "tst_salvataggiointerrotto.moc"
