#include "exercise/calcolaspazi.h"

#include <cmath>

namespace {

constexpr int kColonnaQuesito = 31;
constexpr int kCampoErrata = 11;
constexpr int kColonnaRisposta = 95;
constexpr int kCampoTempo = 4;
constexpr int kTempoMassimo = 99;
constexpr int kTotaleMassimo = 999;

const QLatin1String kSec(" (sec.");

} // namespace

QString Spazi(int n)
{
    return n > 0 ? QString(n, QLatin1Char(' ')) : QString();
}

QString Trim(const QString &testo)
{
    qsizetype inizio = 0;
    qsizetype fine = testo.size();
    while (inizio < fine && testo.at(inizio) == QLatin1Char(' '))
        ++inizio;
    while (fine > inizio && testo.at(fine - 1) == QLatin1Char(' '))
        --fine;
    return testo.mid(inizio, fine - inizio);
}

SpaziRiga CalcolaSpazi(const QString &testoDomanda, const QString &rispostaData,
                       const QString &rigaCorrente, const QString &testoNumero,
                       const QString &testoSimboli)
{
    const int riga = int(rigaCorrente.size());
    return {
        Spazi(kColonnaQuesito - int(testoDomanda.size())),
        Spazi(kCampoErrata - int(Trim(rispostaData).size())),
        Spazi(kColonnaRisposta - (riga + int(Trim(testoNumero).size()))),
        Spazi(kColonnaRisposta - (riga + int(Trim(testoSimboli).size()))),
    };
}

QString RientroSimbolo(const QString &simbolo)
{
    switch (Trim(simbolo).size()) {
    case 1:
        return Spazi(6);
    case 2:
        return Spazi(5);
    default:
        return {};
    }
}

QString RientroNumero(const QString &numero)
{
    const int l = int(Trim(numero).size());
    // One character is left unpadded on purpose: it has always printed so.
    if (l < 2 || l > 7)
        return {};
    return Spazi(7 - l);
}

QString InizioRiga(const QString &spaziQuesito, const QString &domanda, const QString &rientro,
                   const QString &dato)
{
    return spaziQuesito + domanda + QLatin1String(" = ") + rientro + Trim(dato);
}

QString CodaErrata(const QString &spaziErrata, const QString &risposta)
{
    return spaziErrata + Trim(risposta) + QLatin1Char('*');
}

QString CodaEsatta(const QString &spazi, const QString &risposta, const QString &testoTempo)
{
    return spazi + Trim(risposta) + QLatin1Char(' ') + kSec + RiempimentoTempo(testoTempo) + testoTempo
           + QLatin1Char(')');
}

QString CodaCorrezione(const QString &spazi, const QString &corretta, const QString &testoTempo)
{
    return spazi + QLatin1Char('^') + Trim(corretta) + kSec + RiempimentoTempo(testoTempo) + testoTempo
           + QLatin1Char(')');
}

QString RiempimentoTempo(const QString &testoTempo)
{
    const int n = int(testoTempo.size());
    return n >= 1 && n <= kCampoTempo ? Spazi(kCampoTempo - n) : Spazi(kCampoTempo);
}

int TempoParziale(float inizio, float fine)
{
    // The readings are single precision, as the timer hands them over: the
    // difference is taken in that precision before it is cut to whole seconds.
    const float differenza = fine - inizio;
    const double secondi = std::floor(double(differenza));
    return secondi >= kTempoMassimo ? kTempoMassimo : int(secondi);
}

int TempoTotale(int totale, int parziale)
{
    const int t = totale + parziale;
    return t >= kTotaleMassimo ? kTotaleMassimo : t;
}
