// Start-up time and peak memory of the real program, against a bare Qt window
// measured in the same run on the same machine.
//
// Each figure comes from a fresh child process (this same executable): the
// parent reads the clock just before fork() and again when the child reports
// that its first window has been exposed, so dynamic loading, Qt's start and
// the start screen's construction are all inside the figure. Children run on
// the offscreen platform in a scratch folder.
//
//   bench_avvio [runs]          start-up: program vs bare window, then memory
#include "app/programma.h"
#include "ui/rigaopzioni.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QKeyEvent>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

long piccoMemoriaKb()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss;
}

// Reports once the first top-level window has been exposed, then leaves at
// once: tearing down is not part of starting up.
class Traguardo : public QObject
{
protected:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Expose && qobject_cast<QWindow *>(o) && static_cast<QWindow *>(o)->isExposed()) {
            QTimer::singleShot(0, [] {
                std::printf("pronto %ld\n", piccoMemoriaKb());
                std::fflush(stdout);
                _exit(0);
            });
        }
        return false;
    }
};

int avvio(int argc, char **argv, bool programma)
{
    QApplication app(argc, argv);
    Traguardo t;
    app.installEventFilter(&t);
    if (!programma) {
        QWidget vuota;
        vuota.show();
        return app.exec();
    }
    Programma p;
    p.avvia();
    return app.exec();
}

void tasto(Qt::Key k, const QString &testo)
{
    QWidget *f = QApplication::focusWidget();
    if (!f)
        return;
    QKeyEvent giu(QEvent::KeyPress, k, Qt::NoModifier, testo);
    QApplication::sendEvent(f, &giu);
    QKeyEvent su(QEvent::KeyRelease, k, Qt::NoModifier, testo);
    QApplication::sendEvent(f, &su);
    QApplication::processEvents();
}

void carattere(QChar c)
{
    if (c.isDigit())
        tasto(Qt::Key(Qt::Key_0 + c.digitValue()), QString(c));
    else if (c == u',')
        tasto(Qt::Key_Comma, QStringLiteral(","));
}

void attendiFinestraAttiva()
{
    for (int i = 0; i < 200 && !QApplication::focusWidget(); ++i)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
}

void premi(QWidget *schermo, const QString &nome)
{
    if (auto *b = schermo ? schermo->findChild<QAbstractButton *>(nome) : nullptr)
        b->click();
    QApplication::processEvents();
}

// A whole exercise from the keyboard (more answers than it takes), then both worksheets previewed and printed
// (to PDF in the scratch folder), as a teacher's lesson would go.
int giro(int argc, char **argv)
{
    QApplication app(argc, argv);
    Programma p;
    p.stampante().setSoloPdf(true);
    p.stampante().setApriPdf([](const QString &) {});
    p.avvia();
    attendiFinestraAttiva();
    for (int i = 0; i < 3; ++i) // kind, order, "Vai"
        tasto(Qt::Key_Return, QStringLiteral("\r"));
    if (!p.schermi().schermo(Schermo::Operativo)) {
        std::fprintf(stderr, "the exercise screen did not open\n");
        return 1;
    }
    attendiFinestraAttiva();
    for (int item = 0; item < 30; ++item) {
        for (QChar c : p.stato.item.TestoNumero)
            carattere(c);
        tasto(Qt::Key_V, QStringLiteral("v"));
        tasto(Qt::Key_Return, QStringLiteral("\r"));
        tasto(Qt::Key_A, QStringLiteral("a"));
    }
    const int esercizi = p.stato.record.NumeroEsercizio;
    p.schermi().chiudi(Schermo::Operativo);
    p.schermi().apri(Schermo::Schede);
    QWidget *schede = p.schermi().schermo(Schermo::Schede);
    for (const char *nome : {"Option1(0)", "Option2(0)", "CmdVisualizzaSchedaAlunni", "CmdStampaSchedaAlunni",
                             "CmdVisualizzaSchedaDocenti", "CmdStampaSchedaDocenti"})
        premi(schede, QString::fromLatin1(nome));
    const auto pdf = QDir().entryList({QStringLiteral("*.pdf")}, QDir::Files);
    std::printf("giro %ld %d %lld\n", piccoMemoriaKb(), esercizi, static_cast<long long>(pdf.size()));
    std::fflush(stdout);
    _exit(0);
}

struct Esito {
    double ms = -1;
    std::string riga;
};

// Runs this executable with `modo` in a fresh process; the time runs from
// just before fork() to the child's first line.
Esito figlio(const char *self, const char *modo)
{
    int tubo[2];
    if (pipe(tubo) != 0)
        return {};
    const auto t0 = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(tubo[1], STDOUT_FILENO);
        close(tubo[0]);
        // Qt's remarks about the offscreen platform are not figures.
        if (const int nulla = open("/dev/null", O_WRONLY); nulla >= 0)
            dup2(nulla, STDERR_FILENO);
        execl(self, self, "--figlio", modo, static_cast<char *>(nullptr));
        _exit(127);
    }
    close(tubo[1]);
    std::string riga;
    char c;
    while (read(tubo[0], &c, 1) == 1 && c != '\n')
        riga += c;
    const auto t1 = std::chrono::steady_clock::now();
    close(tubo[0]);
    int stato = 0;
    waitpid(pid, &stato, 0);
    return {std::chrono::duration<double, std::milli>(t1 - t0).count(), riga};
}

long campo(const std::string &riga, int n)
{
    std::size_t pos = 0;
    for (int i = 0; i < n && pos != std::string::npos; ++i)
        pos = riga.find(' ', pos + 1);
    return pos == std::string::npos ? -1 : std::atol(riga.c_str() + pos + 1);
}

void riassumi(const char *nome, std::vector<double> ms, long kb)
{
    std::sort(ms.begin(), ms.end());
    std::printf("%-28s min %6.1f ms   median %6.1f ms   max %6.1f ms   peak RSS %6.1f MB\n", nome, ms.front(),
                ms[ms.size() / 2], ms.back(), double(kb) / 1024.0);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--figlio") == 0) {
        const std::string modo = argv[2];
        if (modo == "giro")
            return giro(argc, argv);
        return avvio(argc, argv, modo == "programma");
    }

    const int giri = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
    char self[4096];
    const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
    if (n <= 0)
        return 1;
    self[n] = '\0';
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QTemporaryDir cartella;
    if (!cartella.isValid() || chdir(cartella.path().toLocal8Bit().constData()) != 0)
        return 1;

    // One warm-up of each, then the two kinds interleaved so that a busy
    // moment of the machine weighs on both alike.
    figlio(self, "vuota");
    figlio(self, "programma");
    std::vector<double> vuota, programma;
    long kbVuota = 0, kbProgramma = 0;
    for (int i = 0; i < giri; ++i) {
        const Esito v = figlio(self, "vuota");
        const Esito p = figlio(self, "programma");
        if (v.riga.rfind("pronto", 0) != 0 || p.riga.rfind("pronto", 0) != 0) {
            std::fprintf(stderr, "a child did not report: '%s' '%s'\n", v.riga.c_str(), p.riga.c_str());
            return 1;
        }
        vuota.push_back(v.ms);
        programma.push_back(p.ms);
        kbVuota = std::max(kbVuota, campo(v.riga, 1));
        kbProgramma = std::max(kbProgramma, campo(p.riga, 1));
    }
    std::printf("Start-up to first window exposed, offscreen, %d runs each:\n", giri);
    riassumi("bare Qt window", vuota, kbVuota);
    riassumi("Composizione start screen", programma, kbProgramma);

    const Esito g = figlio(self, "giro");
    if (g.riga.rfind("giro", 0) != 0) {
        std::fprintf(stderr, "the scripted lesson did not finish: '%s'\n", g.riga.c_str());
        return 1;
    }
    std::printf("Scripted lesson (exercise of %ld items, 2 worksheets printed to %ld PDF files): peak RSS %.1f MB "
                "in %.0f ms\n",
                campo(g.riga, 2), campo(g.riga, 3), double(campo(g.riga, 1)) / 1024.0, g.ms);
    return 0;
}
