// Start-up time and peak memory of the real program against two references
// measured in the same run on the same machine: a bare Qt window, and the
// least window that shows text (one label, one button, at the start screen's
// size). Both references are `riferimento`, which links Qt Widgets only; the
// program is the real `composizione` executable. None of them holds measuring code: every child
// is started with `libtraguardo.so` preloaded, which reports when the first
// window has been exposed and painted.
//
// The parent reads the clock just before fork() and again when the child
// reports, so dynamic loading, Qt's start and the start screen's construction
// and first paint are all inside the figure. Children run in a scratch
// folder, on the platform of QT_QPA_PLATFORM (offscreen when unset).
//
// Then the delay of the right-answer sound (see riportaSuono), and the peak
// memory of a scripted lesson.
//
//   bench_avvio [runs] ["command line"...]   more programs are measured alongside
//                                            (e.g. an older build of the program)
#include "app/programma.h"
#include "pilota.h"
#include "fakes/serviziovoce.h"
#include "ui/rigaopzioni.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QTemporaryDir>

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

// From the start screen to the first item of an exercise, by keyboard.
bool apriEsercizio(Programma &p)
{
    p.avvia();
    attendiFinestraAttiva();
    for (int i = 0; i < 3; ++i) // kind, order, "Vai"
        tasto(Qt::Key_Return, QStringLiteral("\r"));
    if (!p.schermi().schermo(Schermo::Operativo)) {
        std::fprintf(stderr, "the exercise screen did not open\n");
        return false;
    }
    attendiFinestraAttiva();
    return true;
}

// A whole exercise of twenty items answered from the keyboard, then both worksheets previewed and printed
// (to PDF in the scratch folder), as a teacher's lesson would go.
int giro(int argc, char **argv)
{
    QApplication app(argc, argv);
    Programma p;
    p.stampante().setSoloPdf(true);
    p.stampante().setVisualizzatore(QStringLiteral("true"));
    if (!apriEsercizio(p))
        return 1;
    for (int item = 1; item <= 20; ++item) {
        for (QChar c : p.stato.item.TestoNumero)
            carattere(c);
        tasto(Qt::Key_V, QStringLiteral("v")); // to "Verifica", which Return presses
        tasto(Qt::Key_Return, QStringLiteral("\r"));
        if (item < 20) // the focus waits on "Avanti"
            tasto(Qt::Key_Return, QStringLiteral("\r"));
    }
    const int esercizi = p.stato.record.NumeroEsercizio;
    p.schermi().chiudi(Schermo::Operativo);
    // A closed screen goes with the event loop's next turn; this driver runs no loop of its own.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

std::int64_t adessoNs()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

// Waits (up to 2 s) for a playback that starts after t0 and prints its delay
// in ms, or -1 when nothing started (no audio device). A playback starts
// when ALSA has taken the first samples and its stream is running, i.e. the
// card, or the sound server, is playing them (AlsaSound::ultimoAvvioNs).
void riportaSuono(const AlsaSound &s, std::int64_t t0)
{
    for (int i = 0; i < 2000 && s.ultimoAvvioNs() < t0; ++i) {
        QCoreApplication::processEvents();
        usleep(1000);
    }
    const std::int64_t t1 = s.ultimoAvvioNs();
    std::printf("suono %.2f\n", t1 >= t0 ? double(t1 - t0) / 1e6 : -1.0);
    std::fflush(stdout);
    _exit(0);
}

// The "Verifica" key on a right answer, the program having been on view for
// a moment (as it has before any pupil answers): key event to playback start.
int suono(int argc, char **argv)
{
    QApplication app(argc, argv);
    Programma p;
    if (!apriEsercizio(p))
        return 1;
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < 500)
        QApplication::processEvents(QEventLoop::AllEvents, 10);
    for (QChar c : p.stato.item.TestoNumero)
        carattere(c);
    tasto(Qt::Key_V, QStringLiteral("v")); // to the "Verifica" key
    const std::int64_t t0 = adessoNs();
    tasto(Qt::Key_Return, QStringLiteral("\r"));
    riportaSuono(p.suono(), t0);
    return 0;
}

// The worst case: a sound never prepared, so that library, configuration,
// file and device are all opened by the first request.
int suonoFreddo(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const std::int64_t t0 = adessoNs();
    AlsaSound s;
    s.carica(QCoreApplication::applicationDirPath() + QStringLiteral("/positivo.wav"));
    s.suona();
    riportaSuono(s, t0);
    return 0;
}

struct Esito {
    double ms = -1;  // wall clock, fork() to the report
    double cpu = -1; // the child's user + system time, in ms
    std::string riga;
};

// Runs `argv` in a fresh process, with the reporting library preloaded when
// given; the time runs from just before fork() to the child's first line.
Esito figlio(const std::vector<std::string> &argv, const char *traguardo, const char *cartella = nullptr)
{
    int tubo[2];
    if (pipe(tubo) != 0)
        return {};
    std::vector<char *> args;
    for (const std::string &a : argv)
        args.push_back(const_cast<char *>(a.c_str()));
    args.push_back(nullptr);
    const auto t0 = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(tubo[1], STDOUT_FILENO);
        close(tubo[0]);
        // Qt's remarks about the platform are not figures.
        if (const int nulla = open("/dev/null", O_WRONLY); nulla >= 0)
            dup2(nulla, STDERR_FILENO);
        if (traguardo)
            setenv("LD_PRELOAD", traguardo, 1);
        if (cartella && chdir(cartella) != 0)
            _exit(127);
        execv(args[0], args.data());
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
    rusage u{};
    wait4(pid, &stato, 0, &u);
    const auto ms = [](const timeval &t) { return double(t.tv_sec) * 1e3 + double(t.tv_usec) / 1e3; };
    return {std::chrono::duration<double, std::milli>(t1 - t0).count(), ms(u.ru_utime) + ms(u.ru_stime), riga};
}

long campo(const std::string &riga, int n)
{
    std::size_t pos = 0;
    for (int i = 0; i < n && pos != std::string::npos; ++i)
        pos = riga.find(' ', pos + 1);
    return pos == std::string::npos ? -1 : std::atol(riga.c_str() + pos + 1);
}

double mediana(std::vector<double> v)
{
    std::sort(v.begin(), v.end());
    return v.size() % 2 ? v[v.size() / 2] : (v[v.size() / 2 - 1] + v[v.size() / 2]) / 2;
}

struct Candidato {
    std::string nome;
    std::vector<std::string> argv;
    const char *cartella; // where it runs, within the scratch folder
    std::vector<double> ms, cpu, mb;
};

} // namespace

int main(int argc, char **argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--figlio") == 0) {
        const std::string modo = argv[2];
        if (modo == "giro")
            return giro(argc, argv);
        return modo == "suono" ? suono(argc, argv) : suonoFreddo(argc, argv);
    }

    const int giri = argc > 1 ? std::max(1, std::atoi(argv[1])) : 20;
    char self[4096];
    const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
    if (n <= 0)
        return 1;
    self[n] = '\0';
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QTemporaryDir cartella;
    if (!cartella.isValid() || chdir(cartella.path().toLocal8Bit().constData()) != 0)
        return 1;

    // The voice on: the program's access file asks for it, and a speech
    // service of the bench's own answers (the connection follows the first paint).
    ServizioVoce servizio;
    const bool conVoce = servizio.avvia() && QDir().mkdir(QStringLiteral("voce"));
    if (conVoce) {
        QFile accesso(QStringLiteral("voce/composizioneAccesso.dat"));
        accesso.open(QIODevice::WriteOnly);
        accesso.write("voce=si\n");
    }
    std::vector<Candidato> c{{"bare Qt window", {RIFERIMENTO, "vuota"}, nullptr, {}, {}, {}},
                             {"one label, one button", {RIFERIMENTO, "etichetta", "1000", "703"}, nullptr, {}, {}, {}},
                             {"Composizione start screen", {PROGRAMMA}, nullptr, {}, {}, {}}};
    if (conVoce)
        c.push_back({"Composizione start screen, voce=si", {PROGRAMMA}, "voce", {}, {}, {}});
    for (int i = 2; i < argc; ++i) {
        c.push_back({argv[i], {}, nullptr, {}, {}, {}});
        for (const QString &parola : QString::fromLocal8Bit(argv[i]).split(u' ', Qt::SkipEmptyParts))
            c.back().argv.push_back(parola.toStdString());
    }

    // One warm-up of each, then all kinds in turn in every round so that a
    // busy moment of the machine weighs on them alike.
    for (const Candidato &k : c)
        figlio(k.argv, TRAGUARDO, k.cartella);
    std::vector<double> rapportoMs; // program / one-label window, round by round
    for (int i = 0; i < giri; ++i) {
        for (Candidato &k : c) {
            const Esito e = figlio(k.argv, TRAGUARDO, k.cartella);
            if (e.riga.rfind("pronto", 0) != 0) {
                std::fprintf(stderr, "%s did not report: '%s'\n", k.nome.c_str(), e.riga.c_str());
                return 1;
            }
            k.ms.push_back(e.ms);
            k.cpu.push_back(e.cpu);
            k.mb.push_back(double(campo(e.riga, 1)) / 1024.0);
        }
        rapportoMs.push_back(c[2].ms.back() / c[1].ms.back());
    }
    std::printf("Start-up to the first exposed window, %s, %d runs each: median [min-max], and the median's ratio\n"
                "to the one-label window. Wall: fork() to the report. CPU: the child's user + system time.\n",
                std::getenv("QT_QPA_PLATFORM"), giri);
    const auto riga = [&](const char *cosa, const std::vector<double> &v, const std::vector<double> &rif) {
        const auto [lo, hi] = std::minmax_element(v.begin(), v.end());
        std::printf("  %-5s %6.1f [%6.1f-%6.1f] %5.2fx", cosa, mediana(v), *lo, *hi, mediana(v) / mediana(rif));
    };
    for (const Candidato &k : c) {
        std::printf("%s\n", k.nome.c_str());
        riga("wall", k.ms, c[1].ms);
        riga("CPU", k.cpu, c[1].cpu);
        std::printf(" ms\n");
        riga("RSS", k.mb, c[1].mb);
        std::printf(" MB (peak)\n");
    }
    std::printf("program / one-label wall time, median of the per-round ratios: %.2fx\n", mediana(rapportoMs));

    // The sound: the program's "Verifica" key, and a never-prepared sound's first request.
    std::vector<double> caldo, freddo;
    for (int i = 0; i < giri; ++i) {
        for (auto [modo, v] : {std::pair{"suono", &caldo}, std::pair{"suono-freddo", &freddo}}) {
            const Esito e = figlio({self, "--figlio", modo}, nullptr);
            if (e.riga.rfind("suono ", 0) == 0 && std::atof(e.riga.c_str() + 6) >= 0)
                v->push_back(std::atof(e.riga.c_str() + 6));
        }
    }
    for (auto [nome, v] : {std::pair{"\"Verifica\" key -> playback start", &caldo},
                           std::pair{"never-prepared sound, first request", &freddo}}) {
        if (v->empty()) {
            std::printf("%-38s no playback started (no audio device): silent\n", nome);
            continue;
        }
        const auto [lo, hi] = std::minmax_element(v->begin(), v->end());
        std::printf("%-38s %6.1f ms [%5.1f-%5.1f] over %zu runs\n", nome, mediana(*v), *lo, *hi, v->size());
    }

    const Esito g = figlio({self, "--figlio", "giro"}, nullptr);
    if (g.riga.rfind("giro", 0) != 0) {
        std::fprintf(stderr, "the scripted lesson did not finish: '%s'\n", g.riga.c_str());
        return 1;
    }
    std::printf("Scripted lesson (exercise of %ld items, 2 worksheets printed to %ld PDF files): peak RSS %.1f MB "
                "in %.0f ms\n",
                campo(g.riga, 2), campo(g.riga, 3), double(campo(g.riga, 1)) / 1024.0, g.ms);
    return 0;
}
