// The keys of the exercise screen: what each key of the pads and frames
// does, by mouse (through the row's choice) and by keyboard.
#include "exercise/frmoperativo.h"

#include "ui/confine.h"
#include "ui/rigaopzioni.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace {

// Keypad indices
constexpr int kVirgola = 10, kCancella = 11, kVerifica = 12, kAvanti = 13, kEsci = 14;
// Symbol pad indices
constexpr int kVerificaS = 4, kAvantiS = 5, kEsciS = 6;

bool invio(const QKeyEvent *k)
{
    return k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
}

int cifraDi(const QKeyEvent *k)
{
    return k->key() >= Qt::Key_0 && k->key() <= Qt::Key_9 ? k->key() - Qt::Key_0 : -1;
}

} // namespace

void frmOperativo::inizioTastierino()
{
    for (int i = 0; i < option2_->count(); ++i)
        option2_->bottone(i)->setEnabled(i <= kVirgola);
    fuoco(option2_, 0);
}

void frmOperativo::inizioSimboli()
{
    for (int i = 0; i < option1_->count(); ++i)
        option1_->bottone(i)->setEnabled(i <= kVerificaS);
    fuoco(option1_, 0);
}

void frmOperativo::mostraRisposta()
{
    const QString mostrato = risposta_.mostrato();
    scrivi(lblRisultato_, mostrato);
    const bool qualcosa = mostrato != QLatin1String("?");
    option2_->bottone(kCancella)->setEnabled(qualcosa);
    option2_->bottone(kVerifica)->setEnabled(qualcosa);
}

void frmOperativo::cifra(QChar c, int limite)
{
    AggiungiCifra(risposta_, c, limite);
    mostraRisposta();
}

void frmOperativo::azioneTastierino(int i)
{
    if (i >= 0 && i <= 9) {
        cifra(QChar(u'0' + i), LunghezzaMassima);
    } else if (i == kVirgola) {
        VirgolaCliccata(risposta_);
        mostraRisposta();
    } else if (i == kCancella) {
        Cancella(risposta_);
        mostraRisposta();
    } else if (i == kVerifica) {
        Verifica();
    } else if (i == kAvanti) {
        NuovoEsercizio();
    } else if (i == kEsci) {
        esci();
    }
}

void frmOperativo::azioneSimboli(int i)
{
    if (i >= 0 && i <= 3) {
        risposta_.testo = option1_->bottone(i)->text();
        scrivi(lblRisultatoS_, risposta_.testo);
    } else if (i == kVerificaS) {
        Verifica();
    } else if (i == kAvantiS) {
        NuovoEsercizio();
    } else if (i == kEsciS) {
        esci();
    }
}

void frmOperativo::azioneAiuto(int i)
{
    if (i == 0)
        MostraCorrezione();
    else if (i == 1)
        Riprova();
}

void frmOperativo::azioneAvviso(int i)
{
    if (i == 0)
        apriStampa();
    else if (i == 1)
        Ricomincia();
}

// Digits are typed straight in; letters jump to a key or act at once; Enter
// fires the key with the focus. Any other key is swallowed. A typed key that
// edits is only as good as the key it stands for: once the item is
// corrected, the keyboard cannot change it any more than the mouse can (the
// keys that move the focus need no check: a disabled key never takes it).
bool frmOperativo::tastoTastierino(int i, QKeyEvent *k)
{
    bool accettato = true;
    const auto attivo = [this](int tasto) { return option2_->bottone(tasto)->isEnabled(); };
    confine([&] {
        scrivi(lblEsito_, {});
        if (const int c = cifraDi(k); c >= 0) {
            if (attivo(c))
                cifra(QChar(u'0' + c), LunghezzaDigitata);
            return;
        }
        switch (k->key()) {
        case Qt::Key_Comma:
            if (!attivo(kVirgola))
                break;
            if (VirgolaDigitata(risposta_)) {
                mostraRisposta();
            } else {
                scrivi(lblRisultato_, QStringLiteral("?"));
                inizioTastierino();
            }
            break;
        case Qt::Key_C:
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
            if (attivo(kCancella)) {
                Cancella(risposta_);
                mostraRisposta();
            }
            break;
        case Qt::Key_V:
            fuoco(option2_, kVerifica);
            break;
        case Qt::Key_A:
            NuovoEsercizio();
            break;
        case Qt::Key_E:
            fuoco(option2_, kEsci);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            azioneTastierino(i);
            break;
        case Qt::Key_F2:
            break;
        default:
            accettato = false;
            break;
        }
    });
    return accettato;
}

bool frmOperativo::tastoSimboli(int i, QKeyEvent *k)
{
    bool accettato = true;
    confine([&] {
        const int c = cifraDi(k);
        if (k->modifiers() & Qt::KeypadModifier && c >= 0) {
            // The numeric pad's 0..5 pass the filter but lead to no key.
            accettato = c <= 5;
            return;
        }
        if (c >= 0 && c <= 3) {
            fuoco(option1_, c);
            return;
        }
        // "V" looks at "Avanti", not at "Verifica": it only works once the
        // item can be left.
        const bool avanti = option1_->bottone(kAvantiS)->isEnabled();
        switch (k->key()) {
        case Qt::Key_V:
            if (avanti)
                fuoco(option1_, kVerificaS);
            break;
        case Qt::Key_N:
            if (avanti)
                fuoco(option1_, kAvantiS);
            break;
        case Qt::Key_E:
            if (option1_->bottone(kEsciS)->isEnabled())
                fuoco(option1_, kEsciS);
            break;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            azioneSimboli(i);
            break;
        default:
            accettato = false;
            break;
        }
    });
    return accettato;
}

bool frmOperativo::tastoAiuto(int i, QKeyEvent *k)
{
    bool accettato = true;
    confine([&] {
        const int c = cifraDi(k);
        if (k->key() == Qt::Key_S || c == 1)
            fuoco(option3_, 0);
        else if (k->key() == Qt::Key_N || c == 2)
            fuoco(option3_, 1);
        else if (invio(k))
            azioneAiuto(i);
        else
            accettato = false;
    });
    return accettato;
}
