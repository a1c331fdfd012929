#pragma once
// A speech-dispatcher of one's own: configuration, socket, log and home in a
// temporary folder, a sound device that plays nothing (ALSA's "null"), the
// program pointed at it through SPEECHD_ADDRESS. Nothing outside the folder
// is read or changed, and the service ends with this object.
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

class ServizioVoce
{
public:
    ~ServizioVoce()
    {
        processo_.terminate();
        if (!processo_.waitForFinished(3000))
            processo_.kill();
    }

    // False when speech-dispatcher is not installed or does not start.
    bool avvia()
    {
        const QString server = QStandardPaths::findExecutable(QStringLiteral("speech-dispatcher"));
        if (server.isEmpty() || !cartella_.isValid())
            return false;
        QDir(cartella_.path()).mkpath(QStringLiteral("conf/modules"));
        QDir(cartella_.path()).mkpath(QStringLiteral("log"));
        QFile conf(percorso(QStringLiteral("conf/speechd.conf")));
        if (!conf.open(QIODevice::WriteOnly))
            return false;
        conf.write("LogLevel 5\nAudioOutputMethod \"alsa\"\nAudioALSADevice \"null\"\n"
                   "AddModule \"espeak-ng\" \"sd_espeak-ng\" \"espeak-ng.conf\"\nDefaultModule espeak-ng\n"
                   "DefaultLanguage \"it\"\n");
        conf.close();
        QFile(percorso(QStringLiteral("conf/modules/espeak-ng.conf"))).open(QIODevice::WriteOnly);
        QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
        for (const char *v : kCase)
            ambiente.insert(QString::fromLatin1(v), cartella_.path());
        processo_.setProcessEnvironment(ambiente);
        // It talks a lot on its terminal: into a file, or the pipe fills and it stops.
        processo_.setProcessChannelMode(QProcess::MergedChannels);
        processo_.setStandardOutputFile(percorso(QStringLiteral("log/terminale.txt")));
        processo_.start(server, {"-s", "-C", percorso("conf"), "-S", percorso("sock"), "-L", percorso("log"),
                                 "-t", "0", "-l", "5"});
        if (!processo_.waitForStarted())
            return false;
        for (int i = 0; i < 100 && !QFile::exists(percorso(QStringLiteral("sock"))); ++i)
            QThread::msleep(100);
        qputenv("SPEECHD_ADDRESS", "unix_socket:" + percorso(QStringLiteral("sock")).toUtf8());
        return QFile::exists(percorso(QStringLiteral("sock")));
    }

    // The calling process's home in the folder too: a client that finds no
    // service starts one (autospawn), which must look here and nowhere else.
    void isola() const
    {
        for (const char *v : kCase)
            qputenv(v, cartella_.path().toUtf8());
    }

    QString percorso(const QString &nome) const { return cartella_.filePath(nome); }

    // The log's lines matching `cosa`, each as its first captured text, with
    // the time the service wrote it (to the millisecond).
    QList<QPair<QDateTime, QString>> righe(const QRegularExpression &cosa) const
    {
        QFile f(percorso(QStringLiteral("log/speech-dispatcher.log")));
        QList<QPair<QDateTime, QString>> trovate;
        if (!f.open(QIODevice::ReadOnly))
            return trovate;
        // "[Tue Nov 24 04:36:25 2026 : 518362] speechd: ..."
        static const QRegularExpression quando(QStringLiteral("^\\[(\\w+ \\w+ +\\d+ [\\d:]+ \\d+) : (\\d+)\\]"));
        for (const QString &riga : QString::fromUtf8(f.readAll()).split(u'\n')) {
            const QRegularExpressionMatch m = cosa.match(riga), t = quando.match(riga);
            if (!m.hasMatch())
                continue;
            // Lines that go on a command of several lines carry no time.
            QDateTime d = QLocale::c().toDateTime(t.captured(1).simplified(), QStringLiteral("ddd MMM d HH:mm:ss yyyy"));
            trovate.append({t.hasMatch() ? d.addMSecs(t.captured(2).toLongLong() / 1000) : QDateTime(), m.captured(1)});
        }
        return trovate;
    }

private:
    static constexpr const char *kCase[] = {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR",
                                            "XDG_DATA_HOME"};
    QTemporaryDir cartella_;
    QProcess processo_;
};
