// How long a pupil with one switch waits to answer, with automatic scanning
// at the default times (a key each second, one more on the first key and
// after each choice). Every template of topics 1 to 3, with one and two
// digits, is answered on the real exercise screen by pressing the switch the
// moment the right key (or its group) lights up, once with the keypad taken
// one key at a time and once by groups; the table gives the steps and the
// seconds from the item on view to "Verifica" chosen, as mean and 95th
// percentile.
#include "access/filtroingressi.h"
#include "access/scansioneautomatica.h"
#include "content/catalogo.h"
#include "exercise/frmoperativo.h"
#include "fakes/estrazioni.h"
#include "fakes/sveglia.h"
#include "stato/stato.h"
#include "ui/rigaopzioni.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

namespace {

struct Misura {
    std::vector<double> passi, secondi;
};

double media(const std::vector<double> &v)
{
    double s = 0;
    for (double x : v)
        s += x;
    return v.empty() ? 0 : s / double(v.size());
}

double p95(std::vector<double> v)
{
    if (v.empty())
        return 0;
    std::sort(v.begin(), v.end());
    return v[std::min(v.size() - 1, std::size_t(0.95 * double(v.size())))];
}

struct Banco {
    FakeClock orologio;
    FakeRandom caso;
    FakeSound suono;
    FakeScreens schermi;
    FakeMessageBox box;
    Stato stato;
    FakeSveglia svegliaFiltro{orologio}, svegliaScansione{orologio};
    FiltroIngressi filtro{stato.accesso, orologio, svegliaFiltro};
    ScansioneAutomatica scansione{stato.accesso, svegliaScansione, &filtro};
    std::unique_ptr<frmOperativo> w;

    Banco(int livello, int ordine, int massimo, std::deque<double> valori, bool gruppi)
    {
        stato.accesso.gruppi = gruppi;
        stato.servizi = {.clock = &orologio, .random = &caso, .messaggi = &box, .suono = &suono, .schermi = &schermi};
        stato.accesso.automatica = true;
        SceltaSimboli(qint16(livello), stato.topic, stato.titoli);
        stato.settings.TipoEsercizio = 1;
        stato.settings.OrdineSimboli = qint16(ordine);
        stato.settings.ValoreMassimo = qint16(massimo);
        caso.valori = std::move(valori);
        qApp->installEventFilter(&scansione);
        qApp->installEventFilter(&filtro);
        w = std::make_unique<frmOperativo>(stato);
        w->show();
        if (!QTest::qWaitForWindowActive(w.get()))
            qWarning("the exercise screen did not come to the front");
    }

    static void spazio()
    {
        QWindow *f = QGuiApplication::focusWindow();
        qt_handleKeyEvent(f, QEvent::KeyPress, Qt::Key_Space, {}, QStringLiteral(" "));
        qt_handleKeyEvent(f, QEvent::KeyRelease, Qt::Key_Space, {}, QStringLiteral(" "));
        QCoreApplication::processEvents();
    }

    // Waits for the key, counting the steps, and presses the switch on it.
    bool aspetta(const QWidget *k, int &passi)
    {
        for (int giri = 0; giri < 60 && QApplication::focusWidget() != k; ++giri, ++passi)
            avanza(orologio, {&svegliaFiltro, &svegliaScansione}, svegliaScansione.scade);
        if (QApplication::focusWidget() != k)
            return false;
        spazio();
        return true;
    }
    // By groups, the key's group first.
    bool premi(int indice, int &passi)
    {
        RigaOpzioni *r = w->tastierino();
        QWidget *k = r->bottone(indice);
        if (stato.accesso.gruppi && QApplication::focusWidget() != k && !aspetta(r->gruppo(r->gruppoDi(k)), passi))
            return false;
        return aspetta(k, passi);
    }

    // The item on view answered right; false if a key never lit up.
    bool rispondi(Misura &m)
    {
        const QString tasti = stato.item.TestoNumero.remove(u'.') + u'V';
        const double t0 = orologio.adesso;
        int passi = 0;
        for (QChar c : tasti)
            if (!premi(c == u'V' ? 12 : c == u',' ? 10 : c.digitValue(), passi))
                return false;
        m.passi.push_back(passi);
        m.secondi.push_back(orologio.adesso - t0);
        return w->findChild<QLabel *>(QStringLiteral("LblEsito"))->text() == QLatin1String("Esatto");
    }
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QRandomGenerator caso(20261124);
    std::printf("| topic | digits | items | one key at a time: steps mean / p95 | seconds mean / p95 "
                "| by groups: steps mean / p95 | seconds mean / p95 |\n");
    std::printf("|---|---|---|---|---|---|---|\n");
    for (int livello = 1; livello <= 3; ++livello) {
        const int cl = classe(livello);
        for (int cifre = 1; cifre <= 2; ++cifre) {
            const int massimo = cifre == 2 ? 19 : 9;
            Misura m[2];
            int errori = 0;
            // Every template of both orders, each with five sets of counts.
            static const int gruppi[3][2][2] = {{}, {{1, 12}, {47, 25}}, {{13, 34}, {72, 111}}};
            for (int ordine = 1; ordine <= 2; ++ordine) {
                const auto [primo, quanti] = gruppi[cl][ordine - 1];
                for (int modello = primo; modello < primo + quanti; ++modello) {
                    for (int volta = 0; volta < 5; ++volta) {
                        QString voce = QString::number(modello);
                        for (int p = 0; p < 4; ++p)
                            voce += u' ' + QString::number(caso.bounded(1, massimo + 1));
                        for (int gruppi = 0; gruppi < 2; ++gruppi) {
                            Banco b(livello, ordine, massimo, estrazioni({voce}, cl, ordine, 1, massimo), gruppi);
                            errori += !b.rispondi(m[gruppi]);
                        }
                    }
                }
            }
            std::printf("| %d | %d | %zu | %.1f / %.0f | %.1f / %.0f | %.1f / %.0f | %.1f / %.0f |%s\n", livello, cifre,
                        m[0].secondi.size(), media(m[0].passi), p95(m[0].passi), media(m[0].secondi),
                        p95(m[0].secondi), media(m[1].passi), p95(m[1].passi), media(m[1].secondi),
                        p95(m[1].secondi), errori ? " (some answers were not right)" : "");
        }
    }
    return 0;
}
