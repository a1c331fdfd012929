// The exercise flow: next item, show, verify, help, correct, time, end.
#include "exercise/frmoperativo.h"

#include "content/errori.h"
#include "content/parole.h"
#include "content/piattaforma.h"
#include "exercise/calcolaspazi.h"
#include "stato/stato.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"
#include "ui/suono.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <cmath>

namespace {

constexpr qint16 kUltimoEsercizio = 20;
const QString kInterrogativo = QStringLiteral("?");

QString dueSpazi(qint16 n)
{
    return QStringLiteral("  ") + QString::number(n);
}

} // namespace

// A label shows a text and tells assistive technology both its role and what
// it now shows.
void frmOperativo::scrivi(QLabel *l, const QString &testo)
{
    l->setText(testo);
    const QString ruolo = l->property("ruolo").toString();
    const QString visto = testo.trimmed();
    l->setAccessibleName(visto.isEmpty() ? ruolo : ruolo + QStringLiteral(": ") + visto);
}

void frmOperativo::coloreEsito(const QColor &c)
{
    const QString stile = QStringLiteral("QLabel { color: %1; background: transparent; }").arg(c.name());
    if (lblEsito_->styleSheet() != stile)
        lblEsito_->setStyleSheet(stile);
}

void frmOperativo::resizeEvent(QResizeEvent *e)
{
    QMainWindow::resizeEvent(e);
    resize_.applica();
}

void frmOperativo::closeEvent(QCloseEvent *e)
{
    if (!uscita_)
        confine([&] { esci(); });
    QMainWindow::closeEvent(e);
}

void frmOperativo::esci()
{
    if (uscita_)
        return;
    uscita_ = true;
    if (IScreens *schermi = stato_.servizi.schermi) {
        schermi->apri(Schermo::Inizio);
        schermi->chiudi(Schermo::Operativo);
    }
}

void frmOperativo::apriStampa()
{
    if (IScreens *schermi = stato_.servizi.schermi)
        schermi->apri(Schermo::StampaEsercizio);
}

// A number item and a symbol item are tested apart: when the generator has
// left a kind of its own in TipoCorrente, an item can be both, and then both
// parts run, the number part first.
bool frmOperativo::voceNumero() const
{
    return stato_.settings.TipoEsercizio == 1 || stato_.TipoCorrente == 1;
}

bool frmOperativo::voceSimbolo() const
{
    return stato_.settings.TipoEsercizio == 2 || stato_.TipoCorrente == 2;
}

QString &frmOperativo::rigaCorrente()
{
    return stato_.record.riga(stato_.record.NumeroEsercizio);
}

void frmOperativo::calcolaSpazi()
{
    const Item &it = stato_.item;
    const SpaziRiga s = CalcolaSpazi(it.TestoDomanda, risposta_.testo, rigaCorrente(), it.TestoNumero, it.TestoSimboli);
    spaziQuesito_ = s.SpaziQuesito;
    spaziErrata_ = s.SpaziErrata;
    spaziNumero_ = s.SpaziNumero;
    spaziSimboli_ = s.SpaziSimboli;
}

void frmOperativo::iniziaRiga(const QString &rientro, const QString &dato)
{
    rigaCorrente() = InizioRiga(spaziQuesito_, stato_.item.TestoDomanda, rientro, dato);
}

void frmOperativo::NuovoEsercizio()
{
    ExerciseRecord &rec = stato_.record;
    scrivi(lblEsito_, {});
    scrivi(lblRisultato_, kInterrogativo);
    scrivi(lblRisultatoS_, kInterrogativo);
    for (QLabel *l : {lblNumero1_, lblCorrezione_, lblNumero1S_, lblCorrezioneS_})
        scrivi(l, {});

    rec.NumeroEsercizio = somma16(rec.NumeroEsercizio, 1);
    scrivi(lblOperazione_, QString::number(rec.NumeroEsercizio));
    fineDetta_ = false;
    if (rec.NumeroEsercizio == 1) {
        esatteInizio_ = risposteEsatte_;
        errateInizio_ = risposteErrate_;
    }

    scrivi(lblTempoParziale_, {});
    stato_.item.TestoNumero.clear();
    risposta_ = Risposta{};
    testoTempoParziale_.clear();
    tempoParziale_ = 0;
    tentativi_ = 0;

    NascondiBarre();
    if (stato_.servizi.clock && stato_.servizi.random)
        stato_.generaItem();
    MostraEsercizio();
    scrivi(label7_, dueSpazi(stato_.item.NumeroModello));
}

void frmOperativo::MostraEsercizio()
{
    const auto tempo = [this] { return stato_.servizi.clock ? float(stato_.servizi.clock->Timer()) : 0.0f; };
    inizioTempo_ = tempo();
    switch (stato_.settings.TipoEsercizio) {
    case 1:
        mostraNumero();
        break;
    case 2:
        mostraSimbolo();
        break;
    case 3: {
        const double r = stato_.servizi.random ? stato_.servizi.random->Rnd() : 0.0;
        stato_.TipoCorrente = qint16(std::floor(r * 2) + 1);
        if (stato_.TipoCorrente == 1)
            mostraNumero();
        else
            mostraSimbolo();
        break;
    }
    default:
        break;
    }
    scrivi(lblEsito_, {});
    // Laying the item out is not the pupil's time.
    inizioTempo_ = tempo();
}

void frmOperativo::mostraNumero()
{
    const Item &it = stato_.item;
    inCima(fraNumero_, {fraNumero_, fraSimbolo_});
    portaAvanti(fraTastierino_);
    scrivi(lblNumero1_, it.TestoDomanda);
    scrivi(label11_, it.TestoSimboli);
    rispostaAttesa_ = it.TestoNumero;
    calcolaSpazi();
    iniziaRiga(RientroSimbolo(it.TestoSimboli), it.TestoSimboli);
    scrivi(lblEsito_, {});
    scrivi(label7_, dueSpazi(it.NumeroModello));
    inizioTastierino();
    if (stato_.accesso.voce)
        stato_.parla(FraseDomanda(it, stato_.topic, stato_.titoli.Label6[2], true));
}

void frmOperativo::mostraSimbolo()
{
    const Item &it = stato_.item;
    inCima(fraSimbolo_, {fraNumero_, fraSimbolo_});
    portaAvanti(fraSimboli_);
    scrivi(lblNumero1S_, it.TestoDomanda);
    scrivi(label11S_, it.TestoNumero);
    rispostaAttesa_ = it.TestoSimboli;
    calcolaSpazi();
    iniziaRiga(RientroNumero(it.TestoNumero), it.TestoNumero);
    scrivi(lblEsito_, {});
    scrivi(label7_, dueSpazi(it.NumeroModello));
    inizioSimboli();
    if (stato_.accesso.voce)
        stato_.parla(FraseDomanda(it, stato_.topic, stato_.titoli.Label6[2], false));
}

void frmOperativo::Verifica()
{
    if (RispostaGiusta(rispostaAttesa_, risposta_.testo)) {
        ISound *suono = stato_.servizi.suono;
        if (suono)
            suono->suona();
        scrivi(lblEsito_, QStringLiteral("Esatto"));
        if (stato_.accesso.voce)
            stato_.parla(Frasi::esatto, suono ? suono->durataMs() : 0);
        coloreEsito(QColor(0, 130, 0));
        risposteEsatte_ = somma16(risposteEsatte_, 1);
        scrivi(lblRisEsatte_, QString::number(risposteEsatte_));
        scrivi(lblOperazione_, QString::number(stato_.record.NumeroEsercizio));
        AggiornaTempi();
        calcolaSpazi();
        if (voceNumero())
            rigaCorrente() += CodaEsatta(spaziNumero_, risposta_.testo, testoTempoParziale_);
        if (voceSimbolo())
            rigaCorrente() += CodaEsatta(spaziSimboli_, risposta_.testo, testoTempoParziale_);
        ControllaFine();
        // The pupil goes on by mouse or switch as well as with the letter A:
        // the keys that lead on become available once the answer is right,
        // and the focus waits on "Avanti", so that pressing the switch again
        // moves on instead of verifying the same answer twice.
        if (voceNumero())
            for (int i : {13, 14})
                option2_->bottone(i)->setEnabled(true);
        if (voceSimbolo())
            for (int i : {5, 6})
                option1_->bottone(i)->setEnabled(true);
        if (fraTastierino_->isEnabled())
            fuoco(option2_, 13);
        else if (fraSimboli_->isEnabled())
            fuoco(option1_, 5);
        diFine();
        return;
    }

    scrivi(lblEsito_, QStringLiteral("Errato"));
    stato_.parla(Frasi::errato);
    coloreEsito(QColor(200, 0, 0));
    risposteErrate_ = somma16(risposteErrate_, 1);
    scrivi(lblRisErrate_, QString::number(risposteErrate_));
    MostraBarre();
    calcolaSpazi();
    if (voceNumero())
        rigaCorrente() += CodaErrata(spaziErrata_, risposta_.testo);
    if (voceSimbolo())
        rigaCorrente() += CodaErrata(spaziErrata_, risposta_.testo);
    portaAvanti(fraAiuto_);
    fuoco(option3_, 0);
}

void frmOperativo::AggiornaTempi()
{
    fineTempo_ = stato_.servizi.clock ? float(stato_.servizi.clock->Timer()) : 0.0f;
    tempoParziale_ = TempoParziale(inizioTempo_, fineTempo_);
    testoTempoParziale_ = QString::number(tempoParziale_);
    scrivi(lblTempoParziale_, testoTempoParziale_);
    tempoTotale_ = TempoTotale(tempoTotale_, tempoParziale_);
    testoTempoTotale_ = QString::number(tempoTotale_);
    scrivi(lblTempoTotale_, testoTempoTotale_);
}

void frmOperativo::ControllaFine()
{
    if (stato_.record.NumeroEsercizio != kUltimoEsercizio)
        return;
    portaAvanti(fraAvviso_);
    fuoco(optAvviso_, 0);
}

void frmOperativo::MostraCorrezione()
{
    const Item &it = stato_.item;
    // The two kinds differ only in their pad, labels and expected text.
    const auto correggi = [&](RigaOpzioni *riga, QGroupBox *pad, int avanti, QLabel *correzione,
                              const QString &corretta, const QString *spazi) {
        AggiornaTempi();
        scrivi(lblEsito_, {});
        scrivi(lblOperazione_, QString::number(stato_.record.NumeroEsercizio));
        risposteErrate_ = somma16(risposteErrate_, 1);
        scrivi(lblRisErrate_, QString::number(risposteErrate_));
        portaAvanti(pad);
        for (int i = 0; i < riga->count(); ++i)
            riga->bottone(i)->setEnabled(i == avanti || i == avanti + 1);
        scrivi(correzione, corretta);
        calcolaSpazi();
        rigaCorrente() += CodaCorrezione(*spazi, corretta, testoTempoParziale_);
        fuoco(riga, avanti);
        ControllaFine();
        if (stato_.accesso.voce)
            stato_.parla(FraseCorrezione(it, stato_.topic, stato_.titoli.Label6[2], riga == option2_));
    };
    if (voceNumero())
        correggi(option2_, fraTastierino_, 13, lblCorrezione_, it.TestoNumero, &spaziNumero_);
    if (voceSimbolo())
        correggi(option1_, fraSimboli_, 5, lblCorrezioneS_, it.TestoSimboli, &spaziSimboli_);
    diFine();
}

// Told once the last item's line is whole: an item of both kinds closes
// twice, and only the second close completes its line. The counters carry on
// over "Ricomincia", so the run's own are what they grew by since its first
// item. Whatever the listener does, the exercise goes on as it was.
void frmOperativo::diFine()
{
    if (stato_.record.NumeroEsercizio != kUltimoEsercizio || fineDetta_ || !stato_.esercizioFinito)
        return;
    fineDetta_ = true;
    EsercizioFinito e;
    e.esatte = risposteEsatte_ - esatteInizio_;
    e.errate = risposteErrate_ - errateInizio_;
    e.secondi = tempoTotale_;
    for (int i = 1; i <= kUltimoEsercizio; ++i)
        e.righe << stato_.record.riga(i);
    confine([&] { stato_.esercizioFinito(e); });
}

void frmOperativo::Riprova()
{
    scrivi(lblEsito_, {});
    // The comma goes with the text: a flag left set would refuse the comma
    // of the next try.
    risposta_.testo.clear();
    risposta_.virgola = false;
    tentativi_ = somma16(tentativi_, 1);
    if (tentativi_ != 3) {
        NascondiBarre();
        if (voceNumero()) {
            portaAvanti(fraTastierino_);
            inizioTastierino();
        }
        if (voceSimbolo()) {
            portaAvanti(fraSimboli_);
            inizioSimboli();
        }
        scrivi(lblRisultato_, kInterrogativo);
        scrivi(lblRisultatoS_, kInterrogativo);
        return;
    }
    tentativi_ = 0;
    portaAvanti(fraIntervento_);
    fuoco(optOK_, 0);
    stato_.parla(Frasi::intervengo);
}

QList<QWidget *> frmOperativo::riquadri() const
{
    return {fraAiuto_, fraTastierino_, fraAvviso_, fraIntervento_, fraSimboli_};
}

void frmOperativo::ChiudiRiquadri(QWidget *tranne)
{
    for (QWidget *r : riquadri())
        if (r != tranne)
            r->setEnabled(false);
}

void frmOperativo::MostraBarre()
{
    for (QWidget *l : {line1_, line2_, lineA1_, lineA2_})
        l->setVisible(true);
}

void frmOperativo::NascondiBarre()
{
    for (QWidget *l : {line1_, line2_, lineA1_, lineA2_})
        l->setVisible(false);
}

void frmOperativo::Ricomincia()
{
    stato_.record.NumeroEsercizio = 0;
    for (QLabel *l : {lblOperazione_, lblRisEsatte_, lblRisErrate_, lblTempoParziale_, lblTempoTotale_})
        scrivi(l, {});
    tempoTotale_ = 0;
    NuovoEsercizio();
}

// Closes the frames and brings one forward: enabled and on top. The frame
// that stays is never disabled on the way, and a frame already on top is not
// raised again, so that its keys are not all repainted for nothing.
void frmOperativo::portaAvanti(QWidget *riquadro)
{
    ChiudiRiquadri(riquadro);
    riquadro->setEnabled(true);
    inCima(riquadro, riquadri());
}

// The frames of a group lie on the same spot. The one on top covers the
// others completely, so those are hidden as well: nothing changes to the eye,
// but they are no longer painted underneath, nor offered to a screen reader.
void frmOperativo::inCima(QWidget *w, const QList<QWidget *> &sovrapposti)
{
    const QObjectList &fratelli = w->parentWidget()->children();
    const qsizetype mio = fratelli.indexOf(w);
    for (QWidget *altro : sovrapposti)
        if (altro != w && fratelli.indexOf(altro) > mio) {
            w->raise();
            break;
        }
    w->setVisible(true);
    for (QWidget *altro : sovrapposti)
        if (altro != w)
            altro->setVisible(false);
}

// A disabled key refuses the focus, so a key that only moves it to one acts
// no more than the key would.
void frmOperativo::fuoco(RigaOpzioni *riga, int i)
{
    riga->bottone(i)->setFocus(Qt::OtherFocusReason);
}
