#include "access/vociaccesso.h"

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

enum Voce { Scansione, Intervallo, Primo, Giri, Accettazione, Ripetizione, Evidenziazione, Gruppi };

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
    switch (voce) {
    case Intervallo: return intervallo;
    case Primo: return primo;
    case Giri: return giri;
    case Accettazione: return accettazione;
    case Ripetizione: return ripetizione;
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
    default: a.spessa = v > 0.5; break;
    }
}

QString secondi(double s)
{
    const bool centesimi = std::lround(s * 100) % 10 != 0;
    return QLocale(QLocale::Italian).toString(s, 'f', centesimi ? 2 : 1) + QStringLiteral(" s");
}

} // namespace

QString VociAccesso::nome(int voce)
{
    static const QStringList nomi{QStringLiteral("Scansione"),    QStringLiteral("Intervallo"),
                                  QStringLiteral("Primo tasto"),  QStringLiteral("Giri"),
                                  QStringLiteral("Accettazione"), QStringLiteral("Ripetizione"),
                                  QStringLiteral("Evidenziazione"), QStringLiteral("Gruppi")};
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
    case Gruppi: return a.gruppi ? QStringLiteral("sì") : QStringLiteral("no");
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
