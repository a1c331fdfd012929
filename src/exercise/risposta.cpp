#include "exercise/risposta.h"

#include "content/formatta.h"
#include "exercise/calcolaspazi.h"

namespace {

const QLatin1Char kVirgola(',');

bool haVirgola(const QString &testo)
{
    return testo.contains(kVirgola);
}

void taglia(QString &testo, int limite)
{
    if (testo.size() >= limite)
        testo.truncate(limite);
}

} // namespace

QString Riformatta(const QString &testo)
{
    QString cifre;
    cifre.reserve(testo.size());
    for (const QChar c : testo)
        if (c.isDigit())
            cifre += c;
    if (cifre.isEmpty())
        return {};
    // At most nine characters reach here, so the value always fits.
    return FormattaNumero(cifre.toDouble(), nullptr);
}

void AggiungiCifra(Risposta &r, QChar cifra, int limite)
{
    r.testo += cifra;
    if (!haVirgola(r.testo))
        r.testo = Riformatta(r.testo);
    taglia(r.testo, limite);
}

void VirgolaCliccata(Risposta &r)
{
    if (r.virgola)
        return;
    r.testo += kVirgola;
    if (r.testo == QLatin1String(","))
        r.testo = QStringLiteral("0,");
    taglia(r.testo, LunghezzaMassima);
    r.virgola = true;
}

bool VirgolaDigitata(Risposta &r)
{
    if (r.virgola)
        return true;
    if (r.testo.isEmpty())
        return false;
    r.testo += kVirgola;
    r.virgola = true;
    return true;
}

void Cancella(Risposta &r)
{
    if (r.testo.isEmpty())
        return;
    r.testo.chop(1);
    r.virgola = haVirgola(r.testo);
    if (!r.testo.isEmpty() && !r.virgola)
        r.testo = Riformatta(r.testo);
}

bool RispostaGiusta(const QString &attesa, const QString &data)
{
    return Trim(attesa) == Trim(data);
}
