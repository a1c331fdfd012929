#include "results/registra.h"

#include "content/piattaforma.h"
#include "results/filerisultati.h"
#include "stato/stato.h"

#include <QDir>

Risultato RisultatoDi(const Stato &s, const EsercizioFinito &e, const QDateTime &quando)
{
    Risultato r;
    // Seconds, as the row shows them: a second's fraction is no use to a teacher.
    r.quando = quando.addMSecs(-quando.time().msec());
    // The captions lose their leading blank: a cell starting with one only
    // looks misaligned in a spreadsheet.
    r.argomento = s.titoli.Label6[2].trimmed();
    r.numeroArgomento = s.settings.Livello;
    r.cifre = s.settings.NumeroCifre;
    r.tipo = s.settings.TestoTipoEsercizio.trimmed();
    r.ordine = s.settings.TestoOrdineSimboli.trimmed();
    r.esatte = e.esatte;
    r.errate = e.errate;
    r.secondi = e.secondi;
    r.righe = e.righe;
    return r;
}

void CollegaRisultati(Stato &s, std::function<QDateTime()> adesso)
{
    s.esercizioFinito = [&s, adesso = std::move(adesso)](const EsercizioFinito &e) {
        const QString nome = NomeFileRisultati(s.settings.NomeFile);
        QString errore;
        if (AggiungiRisultato(nome, RisultatoDi(s, e, adesso()), &errore) || !s.servizi.messaggi)
            return;
        s.servizi.messaggi->mostra(
            QStringLiteral("Il risultato di questo esercizio non è stato registrato nel file %1: %2.\n"
                           "L'esercizio non cambia: si può stampare e ricominciare come sempre.")
                .arg(QDir::toNativeSeparators(QDir::current().absoluteFilePath(nome)), errore),
            QStringLiteral("Risultati"), IMessageBox::Icona::Critica);
    };
}
