// How long a pupil with one switch waits to answer, with automatic scanning
// at the default times (a key each second, one more on the first key and
// after each choice). Every template of topics 1 to 3, with one and two
// digits, is answered on the real exercise screen by pressing the switch the
// moment the right key lights up; the table gives the steps and the seconds
// from the item on view to "Verifica" chosen, as mean and 95th percentile.
// The same answers are timed on a model of scanning the keypad by groups
// (0-4, 5-9, the rest), to weigh it against the linear order.
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
    std::vector<double> passi, secondi, gruppi;
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

// Seconds to reach the element `d` steps from where the highlight rests
// after a choice: at once when already there, else the first key's wait and
// a step each interval.
double attesa(int d, const ImpostazioniAccesso &a)
{
    return d == 0 ? 0.0 : a.primo + d * a.intervallo;
}

// The keypad scanned by groups: groups first (0-4, 5-9, then "Verifica",
// comma and "Cancella"), a group chosen, then its keys; after each key the
// scan goes back to the first group. Of the groupings tried this was the
// fastest: "Verifica" first in its group saves two steps an answer.
double perGruppi(const QString &tasti, const ImpostazioniAccesso &a)
{
    double t = 0;
    for (QChar c : tasti) {
        const int gruppo = c.isDigit() ? c.digitValue() / 5 : 2;
        const int dentro = c.isDigit() ? c.digitValue() % 5 : c == u'V' ? 0 : 1;
        t += attesa(gruppo, a) + attesa(dentro, a);
    }
    return t;
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

    Banco(int livello, int ordine, int massimo, std::deque<double> valori)
    {
        stato.servizi = {&orologio, &caso, &box, &suono, nullptr, &schermi};
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
    bool premi(int indice, int &passi)
    {
        const QWidget *k = w->tastierino()->bottone(indice);
        for (int giri = 0; giri < 60 && QApplication::focusWidget() != k; ++giri, ++passi)
            avanza(orologio, {&svegliaFiltro, &svegliaScansione}, svegliaScansione.scade);
        if (QApplication::focusWidget() != k)
            return false;
        spazio();
        return true;
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
        m.gruppi.push_back(perGruppi(tasti, stato.accesso));
        return w->findChild<QLabel *>(QStringLiteral("LblEsito"))->text() == QLatin1String("Esatto");
    }
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QRandomGenerator caso(20261124);
    std::printf("| topic | digits | items | steps mean | steps p95 | seconds mean | seconds p95 | by groups mean | by groups p95 |\n");
    std::printf("|---|---|---|---|---|---|---|---|---|\n");
    for (int livello = 1; livello <= 3; ++livello) {
        const int cl = classe(livello);
        for (int cifre = 1; cifre <= 2; ++cifre) {
            const int massimo = cifre == 2 ? 19 : 9;
            Misura m;
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
                        Banco b(livello, ordine, massimo, estrazioni({voce}, cl, ordine, 1, massimo));
                        errori += !b.rispondi(m);
                    }
                }
            }
            std::printf("| %d | %d | %zu | %.1f | %.0f | %.1f | %.1f | %.1f | %.1f |%s\n", livello, cifre,
                        m.secondi.size(), media(m.passi), p95(m.passi), media(m.secondi), p95(m.secondi),
                        media(m.gruppi), p95(m.gruppi), errori ? " (some answers were not right)" : "");
        }
    }
    return 0;
}
