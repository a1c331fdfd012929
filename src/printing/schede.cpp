#include "printing/schede.h"
#include "content/formatta.h"
#include "content/piattaforma.h"
#include "stato/stato.h"

namespace {

QString blanks(qsizetype n)
{
    return n > 0 ? QString(n, QLatin1Char(' ')) : QString();
}

// Blanks only, like the classic Trim: tabs and other white space stay.
QString togliBlanchiDestra(const QString &t)
{
    qsizetype n = t.size();
    while (n > 0 && t.at(n - 1) == QLatin1Char(' '))
        --n;
    return t.left(n);
}

QString togliBlanchi(const QString &t)
{
    const QString d = togliBlanchiDestra(t);
    qsizetype i = 0;
    while (i < d.size() && d.at(i) == QLatin1Char(' '))
        ++i;
    return d.mid(i);
}

// The generator's number text is already in the pupil's form ("1.450",
// "0,054"): read it back the same way so the key shows the same digits.
double valoreItaliano(const QString &testo)
{
    QString t = togliBlanchi(testo);
    t.remove(QLatin1Char('.'));
    t.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double v = t.toDouble(&ok);
    return ok ? v : 0.0;
}

} // namespace

RigaScheda RigaNumero(const QString &domanda, const QString &numero, const QString &simboli, IMessageBox *box)
{
    const QString unita = togliBlanchi(simboli);
    const QString separatore = unita.size() == 1 ? QStringLiteral(" ") : QString();
    RigaScheda r;
    r.alunni = blanks(30 - domanda.size()) + domanda + QStringLiteral(" = ......     ") + separatore + unita;
    const QString risposta = FormattaNumero(valoreItaliano(numero), box);
    r.docenti = r.alunni + QStringLiteral("   ") + blanks(15 - risposta.size()) + QStringLiteral("(R. ") + risposta
                + QLatin1Char(')');
    return r;
}

RigaScheda RigaSimbolo(const QString &domanda, const QString &numero, const QString &simboli)
{
    RigaScheda r;
    r.alunni = blanks(30 - domanda.size()) + domanda + QStringLiteral(" = ") + blanks(13 - numero.size()) + numero
               + QStringLiteral("  ... ");
    const QString risposta = togliBlanchiDestra(simboli);
    const int spazio = togliBlanchi(simboli).size() == 1 ? 11 : 10;
    r.docenti = r.alunni + blanks(spazio) + QStringLiteral("(R.") + risposta + QLatin1Char(')');
    return r;
}

void GeneraRigheScheda(Stato &s, int conteggio)
{
    for (qint16 k = 1; k <= conteggio; k = somma16(k, 1)) {
        s.generaItem();
        // NuovaRiga: a fresh seed for every line, on purpose.
        s.servizi.random->Randomize(s.servizi.clock->Timer());
        bool numero = s.settings.TipoEsercizio == 1;
        if (s.settings.TipoEsercizio == 3) {
            s.TipoCorrente = qint16(int(s.servizi.random->Rnd() * 2) + 1);
            numero = s.TipoCorrente == 1;
        } else if (s.settings.TipoEsercizio != 2 && !numero) {
            continue; // no kind chosen: nothing to lay out
        }
        const Item &it = s.item;
        const RigaScheda r = numero ? RigaNumero(it.TestoDomanda, it.TestoNumero, it.TestoSimboli, s.servizi.messaggi)
                                    : RigaSimbolo(it.TestoDomanda, it.TestoNumero, it.TestoSimboli);
        s.record.riga(k) = r.alunni;
        voce(s.fogli.RigheDocenti, k) = r.docenti;
    }
}
