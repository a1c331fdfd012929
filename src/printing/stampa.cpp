#include "printing/stampa.h"
#include "content/piattaforma.h"
#include "stato/stato.h"
#include "ui/stampante.h"

#include <QStringList>
#include <algorithm>

namespace {

const QString testoSenzaFont = QStringLiteral("Devi installare il font Courier o il font Courier New");
const QString testoProblema = QStringLiteral("Problema di stampa nella stampante utilizzata.");

void avvisa(Stato &s, const QString &testo)
{
    if (s.servizi.messaggi)
        s.servizi.messaggi->mostra(testo);
}

// Products of the page layout stay in 16 bits, like the counters they come from.
qint16 prodotto16(qint16 a, int b)
{
    const int r = int(a) * b;
    if (r > 32767 || r < -32768)
        throw ErroreOverflow("16-bit overflow");
    return qint16(r);
}

void posiziona(IPrinter &p, qint16 x, qint16 y)
{
    p.setCurrentX(x);
    p.setCurrentY(y);
}

// Every line of a printout starts here, in twips.
constexpr double kSinistra = 1000;

// The size, in tenths of a point and at most `massima`, at which the widest
// line still ends inside the printable area: a record line at 10 points runs
// past the right edge of A4 and of Letter. Down a tenth at a time, measured
// each time: the device's rounding of the widths need not follow the size.
void dimensioneCheEntra(IPrinter &p, const QStringList &righe, double massima)
{
    const double spazio = p.larghezzaStampabile() - kSinistra;
    const auto entra = [&](double punti) {
        p.setFontSize(punti);
        return std::all_of(righe.cbegin(), righe.cend(), [&](const QString &r) { return p.larghezzaTesto(r) <= spazio; });
    };
    int decimi = int(massima * 10);
    while (decimi > 1 && !entra(decimi / 10.0))
        --decimi;
    p.setFontSize(decimi / 10.0);
}

// Where line i of an exercise stands, in twips from the top: a gap of 3400
// twips after the tenth line leaves room to write.
qint16 yRigaEsercizio(qint16 i)
{
    return somma16(prodotto16(somma16(i, -1), 400), i <= 10 ? 2000 : 5000);
}

void IntestazioneEsercizio(IPrinter &p)
{
    posiziona(p, 1000, 1000);
    p.setFontSize(16);
    p.print(QStringLiteral("SCUOLA ELEMENTARE DI "));
    p.setCurrentX(1000);
    p.print(QStringLiteral("Componi i seguenti valori"));
}

// Names the document after the program and sets the printer font; with no
// printer, or no font to print in, there is nothing to print on (the user is
// told of the missing font).
IPrinter *apriDocumento(Stato &s, const QString &documento)
{
    IPrinter *p = s.servizi.stampante;
    if (!p)
        return nullptr;
    const QString carattere = CercaCarattere(*p);
    if (carattere.isEmpty()) {
        avvisa(s, testoSenzaFont);
        return nullptr;
    }
    p->setDocumentName(s.settings.NomeFile + documento);
    p->setFontName(carattere);
    // The device keeps its font between documents: every printout starts
    // plain, whatever the one before left on.
    p->setFontBold(false);
    return p;
}

} // namespace

QString CercaCarattere(IPrinter &p)
{
    const int quanti = p.FontCount();
    for (int i = 0; i < quanti; ++i) {
        const QString nome = p.Fonts(i);
        if (nome == QLatin1String("Courier New") || nome == QLatin1String("Courier"))
            return nome;
    }
    return {};
}

void StampaEsercizio(Stato &s)
{
    IPrinter *stampante = apriDocumento(s, QStringLiteral("Esercizio"));
    if (!stampante)
        return;
    IPrinter &p = *stampante;
    IntestazioneEsercizio(p);
    p.setFontBold(true);
    // Lines past the 60th are never reached: the loop stops on them.
    const int ultima = std::min<int>(s.fogli.StampaRidotta == 1 ? 10 : 60, s.record.NumeroEsercizio);
    QStringList righe;
    for (int k = 1; k <= ultima; ++k)
        righe << s.record.riga(k);
    dimensioneCheEntra(p, righe, 10);

    // The loop runs on the shared counter: the record file relies on where it stops.
    qint16 &i = s.fogli.NumeroOperazioni;
    for (i = 1; i <= s.record.NumeroEsercizio; i = somma16(i, 1)) {
        if (s.fogli.StampaRidotta == 1 && i > 10)
            continue;
        const QString &riga = s.record.riga(i);
        posiziona(p, 1000, yRigaEsercizio(i));
        p.print(riga);
    }
    p.endDoc();
}

void StampaRighe(Stato &s, const QStringList &righe, const QString &sotto)
{
    IPrinter *stampante = apriDocumento(s, QStringLiteral("Risultato"));
    if (!stampante)
        return;
    IPrinter &p = *stampante;
    IntestazioneEsercizio(p);
    // In the room the header leaves above the first line.
    p.setCurrentX(1000);
    p.setFontSize(11);
    p.print(sotto);
    p.setFontBold(true);
    const QStringList pagina = righe.mid(0, 60);
    dimensioneCheEntra(p, pagina, 10);
    for (qint16 i = 1; i <= pagina.size(); ++i) {
        posiziona(p, 1000, yRigaEsercizio(i));
        p.print(pagina[i - 1]);
    }
    p.endDoc();
}

void IntestazioneScheda(IPrinter &p, const QString &label1, const QString &label2)
{
    // The header is always asked for in "Courier New"; the device substitutes
    // when only "Courier" exists.
    p.setFontName(QStringLiteral("Courier New"));
    posiziona(p, 1000, 900);
    p.setFontSize(13);
    p.print(QStringLiteral("Classe          Nome e cognome                     "));
    p.setFontSize(12);
    posiziona(p, 1000, 1300);
    p.print(label1 + QString(8, QLatin1Char(' ')) + label2);
    posiziona(p, 1000, 1500);
    p.print(TestoIntestazione);
}

qint16 YRigaScheda(qint16 k)
{
    if (k <= 10)
        return somma16(prodotto16(somma16(k, -1), 400), 2000);
    if (k <= 20)
        return somma16(prodotto16(somma16(k, -10), 400), 6000);
    return somma16(prodotto16(somma16(k, -20), 400), 10500);
}

void StampaScheda(Stato &s, qint16 tipoScheda, const QString &label1, const QString &label2)
{
    // Each kind its own file: with no printer the key must not overwrite the
    // pupils' sheet.
    IPrinter *stampante =
        apriDocumento(s, tipoScheda == 1 ? QStringLiteral("SchedaAlunni") : QStringLiteral("SchedaDocenti"));
    if (!stampante)
        return;
    IPrinter &p = *stampante;
    try {
        IntestazioneScheda(p, label1, label2);
        QStringList righe;
        for (int k = 1; k <= std::min<int>(s.fogli.NumeroOperazioni, 60); ++k)
            righe << voce(s.fogli.RigheScheda, k);
        dimensioneCheEntra(p, righe, tipoScheda == 1 ? 12 : 10);
        for (qint16 k = 1; k <= s.fogli.NumeroOperazioni; k = somma16(k, 1)) {
            const QString &riga = voce(s.fogli.RigheScheda, k);
            posiziona(p, 1000, YRigaScheda(k));
            p.print(riga);
        }
        p.endDoc();
    } catch (const std::exception &) {
        avvisa(s, testoProblema);
    }
}
