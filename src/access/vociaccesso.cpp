#include "access/vociaccesso.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

enum Voce { Scansione, Intervallo, Primo, Giri, Accettazione, Ripetizione, Evidenziazione, Gruppi, Parla, ParlaTasti,
            Velocita };

// The empty repeat window (the system's double click) sits below zero.
constexpr double kDoppioClic = -1.0;

const std::vector<double> &scala(int voce)
{
    static const std::vector<double> due{0, 1};
    static const std::vector<double> intervallo{0.3, 0.4, 0.5, 0.6, 0.75, 1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0};
    static const std::vector<double> primo{0, 0.25, 0.5, 0.75, 1.0, 1.5, 2.0, 3.0, 4.0, 5.0};
    static const std::vector<double> giri{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    static const std::vector<double> accettazione{0, 0.1, 0.2, 0.25, 0.3, 0.4, 0.5, 0.75, 1.0, 1.5, 2.0};
    static const std::vector<double> ripetizione{kDoppioClic, 0, 0.1, 0.2, 0.3, 0.4, 0.5, 0.75, 1.0, 1.5, 2.0};
    static const std::vector<double> velocita{-100, -75, -50, -40, -30, -20, -10, 0, 10, 20, 30, 40, 50, 75, 100};
    switch (voce) {
    case Intervallo: return intervallo;
    case Primo: return primo;
    case Giri: return giri;
    case Accettazione: return accettazione;
    case Ripetizione: return ripetizione;
    case Velocita: return velocita;
    default: return due;
    }
}

double leggi(const ImpostazioniAccesso &a, int voce)
{
    switch (voce) {
    case Scansione: return a.automatica;
    case Intervallo: return a.intervallo;
    case Primo: return a.primo;
    case Giri: return a.giri;
    case Accettazione: return a.accettazione;
    case Ripetizione: return a.ripetizione.value_or(kDoppioClic);
    case Gruppi: return a.gruppi;
    case Parla: return a.voce;
    case ParlaTasti: return a.voceTasti;
    case Velocita: return a.velocita;
    default: return a.spessa;
    }
}

void scrivi(ImpostazioniAccesso &a, int voce, double v)
{
    switch (voce) {
    case Scansione: a.automatica = v > 0.5; break;
    case Intervallo: a.intervallo = v; break;
    case Primo: a.primo = v; break;
    case Giri: a.giri = int(v); break;
    case Accettazione: a.accettazione = v; break;
    case Ripetizione: a.ripetizione = v < 0 ? std::nullopt : std::optional<double>(v); break;
    case Gruppi: a.gruppi = v > 0.5; break;
    case Parla: a.voce = v > 0.5; break;
    case ParlaTasti: a.voceTasti = v > 0.5; break;
    case Velocita: a.velocita = int(std::lround(v)); break;
    default: a.spessa = v > 0.5; break;
    }
}

QString secondi(double s)
{
    const bool centesimi = std::lround(s * 100) % 10 != 0;
    return QLocale(QLocale::Italian).toString(s, 'f', centesimi ? 2 : 1) + QStringLiteral(" s");
}

QString sino(bool v)
{
    return v ? QStringLiteral("sì") : QStringLiteral("no");
}

} // namespace

QString VociAccesso::nome(int voce)
{
    static const QStringList nomi{QStringLiteral("Scansione"),    QStringLiteral("Intervallo"),
                                  QStringLiteral("Primo tasto"),  QStringLiteral("Giri"),
                                  QStringLiteral("Accettazione"), QStringLiteral("Ripetizione"),
                                  QStringLiteral("Evidenziazione"), QStringLiteral("Gruppi"),
                                  QStringLiteral("Voce"),         QStringLiteral("Voce dei tasti"),
                                  QStringLiteral("Velocità della voce")};
    return nomi.value(voce);
}

QString VociAccesso::spiegazione(int voce)
{
    static const QStringList testi{
        QStringLiteral("Manuale: lo spazio sposta, Invio sceglie. Automatica: l'evidenziazione si sposta da sola "
                       "e un solo sensore sceglie."),
        QStringLiteral("Quanto resta evidenziato ogni tasto durante la scansione automatica."),
        QStringLiteral("Tempo in più sul primo tasto di una riga nuova e dopo ogni scelta."),
        QStringLiteral("Giri completi senza pressioni dopo i quali la scansione si ferma; una pressione la fa "
                       "ripartire."),
        QStringLiteral("Per quanto tenere premuto il sensore perché la pressione valga (0 = subito)."),
        QStringLiteral("Una seconda pressione dello stesso tasto entro questo tempo non conta (0 = contano "
                       "tutte)."),
        QStringLiteral("Spessa: una cornice larga e ben contrastata intorno al tasto evidenziato."),
        QStringLiteral("Sì: il tastierino dei numeri si scorre a gruppi, prima il gruppo e poi il tasto; "
                       "si aspetta la metà. No: un tasto alla volta."),
        QStringLiteral("Sì: il programma legge la domanda e dice se la risposta è giusta. Serve la sintesi "
                       "vocale del sistema."),
        QStringLiteral("Sì: con la voce accesa, ogni tasto viene detto quando l'evidenziazione lo raggiunge."),
        QStringLiteral("Più lenta per chi ha bisogno di tempo per capire, più veloce con la scansione rapida."),
    };
    return testi.value(voce);
}

QString VociAccesso::valore(const ImpostazioniAccesso &a, int voce)
{
    switch (voce) {
    case Scansione: return a.automatica ? QStringLiteral("automatica") : QStringLiteral("manuale");
    case Giri: return QString::number(a.giri);
    case Accettazione: return a.accettazione > 0 ? secondi(a.accettazione) : QStringLiteral("subito");
    case Ripetizione: return a.ripetizione ? secondi(*a.ripetizione) : QStringLiteral("come il doppio clic");
    case Evidenziazione: return a.spessa ? QStringLiteral("spessa") : QStringLiteral("normale");
    case Gruppi: return sino(a.gruppi);
    case Parla: return sino(a.voce);
    case ParlaTasti: return sino(a.voceTasti);
    case Velocita: return a.velocita == 0 ? QStringLiteral("normale")
                          : a.velocita < 0 ? QStringLiteral("più lenta (%1)").arg(a.velocita)
                                           : QStringLiteral("più veloce (+%1)").arg(a.velocita);
    default: return secondi(leggi(a, voce));
    }
}

void VociAccesso::passo(ImpostazioniAccesso &a, int voce, int verso)
{
    const std::vector<double> &s = scala(voce);
    const double v = leggi(a, voce);
    constexpr double e = 1e-9;
    if (verso > 0) {
        const auto it = std::find_if(s.begin(), s.end(), [&](double x) { return x > v + e; });
        if (it != s.end())
            scrivi(a, voce, *it);
    } else {
        const auto it = std::find_if(s.rbegin(), s.rend(), [&](double x) { return x < v - e; });
        if (it != s.rend())
            scrivi(a, voce, *it);
    }
}
