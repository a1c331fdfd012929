#include "printing/frmstampaeserciziotre.h"

#include "content/errori.h"
#include "content/piattaforma.h"
#include "printing/fileesercizio.h"
#include "printing/stampa.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"
#include "ui/stampante.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QResizeEvent>

namespace {

// Design size of the client area. The lines of an exercise run to about 110
// columns, so the sheet is wide enough for 115 of them in 10 point bold.
constexpr int larghezzaForm = 1180;
constexpr int altezzaForm = 680;
constexpr int xRighe = 8;
constexpr int yPrimaRiga = 6;
constexpr int passoRiga = 20;
constexpr int larghezzaRiga = 920;

const QString testoSenzaFont = QStringLiteral("Devi installare il font Courier o il font Courier New");

// The face the lines have before the printer font is known.
QFont fontProgetto()
{
    QFont f(QStringLiteral("Courier"), 10);
    f.setStyleHint(QFont::TypeWriter);
    return f;
}

// A label's accessible name is its text; an empty line still needs a name.
void nomeRiga(QLabel *l, int i)
{
    const QString t = l->text().simplified();
    l->setAccessibleName(t.isEmpty() ? QStringLiteral("Riga %1").arg(i)
                                     : QStringLiteral("Riga %1: %2").arg(i).arg(t));
}

} // namespace

FrmStampaEsercizioTre::FrmStampaEsercizioTre(Stato &stato, QWidget *parent)
    : QMainWindow(parent), stato_(stato)
{
    costruisci();
    resize_.prendi(centralWidget());
    confine([&] { carica(); });
}

void FrmStampaEsercizioTre::costruisci()
{
    setWindowTitle(QStringLiteral("FINESTRA DI STAMPA "));
    setObjectName(QStringLiteral("FrmStampaEsercizioTre"));

    auto *form = new QWidget(this);
    form->setObjectName(QStringLiteral("form"));
    form->setAccessibleName(windowTitle().simplified());
    form->resize(larghezzaForm, altezzaForm);
    setCentralWidget(form);

    auto *Label5 = new QLabel(QStringLiteral("E S E R C I Z I   E S E G U I T I "), form);
    Label5->setObjectName(QStringLiteral("Label5"));
    Label5->setFont(FontArial(16, true));
    Label5->setAlignment(Qt::AlignCenter);
    Label5->setGeometry(20, 8, larghezzaRiga + 16, 40);
    Label5->setAccessibleName(QStringLiteral("Esercizi eseguiti"));

    // The lines stand on a white sheet, as they will on paper.
    QFrame *foglio = Foglio(form, QStringLiteral("Righe dell'esercizio"),
                            {20, 52, larghezzaRiga + 16, 30 * passoRiga + 2 * yPrimaRiga});

    for (int i = 1; i <= 30; ++i) {
        auto *l = new QLabel(foglio);
        l->setObjectName(QStringLiteral("LblOp(%1)").arg(i));
        l->setFont(fontProgetto());
        l->setTextFormat(Qt::PlainText);
        l->setGeometry(xRighe, yPrimaRiga + (i - 1) * passoRiga, larghezzaRiga, passoRiga);
        nomeRiga(l, i);
        LblOp_[std::size_t(i)] = l;
    }

    // Top to bottom in index order after "ESCI", so that the space bar walks
    // down the column and "ESCI" comes last.
    Command1_ = new RigaOpzioni(form,
                                {QStringLiteral("ESCI"), QStringLiteral("STAMPA L'ESERCIZIO"),
                                 QStringLiteral("SALVA  L'ESERCIZIO"), QStringLiteral("CARICA  L'ESERCIZIO")},
                                QStringLiteral("Command1"));
    const int xTasti = 20 + larghezzaRiga + 16 + 20;
    const int larghezzaTasti = larghezzaForm - xTasti - 16;
    const int yTasti[] = {altezzaForm - 72, 60, 130, 200};
    for (int i = 0; i < Command1_->count(); ++i) {
        QPushButton *b = Command1_->bottone(i);
        b->setFont(FontArial(10, true));
        b->setGeometry(xTasti, yTasti[i], larghezzaTasti, 56);
        b->setAccessibleName(b->text().simplified());
    }
    Command1_->tasto = [this](int, QKeyEvent *k) {
        // Tab leaves the column as it does everywhere else; the row itself
        // would keep it.
        if (k->key() == Qt::Key_Tab || k->key() == Qt::Key_Backtab) {
            QKeyEvent copia(k->type(), k->key(), k->modifiers(), k->text());
            QCoreApplication::sendEvent(centralWidget(), &copia);
            return false;
        }
        if (k->key() != Qt::Key_Return && k->key() != Qt::Key_Enter)
            return false;
        const int f = Command1_->indiceFuoco();
        if (f >= 0)
            Command1_->scegli(f);
        return true;
    };
    connect(Command1_, &RigaOpzioni::scelto, this, [this](int i) { confine([&] { Command1_Click(i); }); });

    mnuScegli_ = menuBar()->addAction(QStringLiteral("Scegli la stampante"));
    mnuScegli_->setObjectName(QStringLiteral("mnuScegli"));
    mnuScegli_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    connect(mnuScegli_, &QAction::triggered, this, [this] {
        confine([&] {
            if (stato_.servizi.schermi)
                stato_.servizi.schermi->apri(Schermo::SceltaStampante);
        });
    });
    menuBar()->setAccessibleName(QStringLiteral("Menu"));

    resize(larghezzaForm, altezzaForm + menuBar()->sizeHint().height());
    Command1_->bottone(1)->setFocus();
}

void FrmStampaEsercizioTre::carica()
{
    CaratterePagina_ = stato_.servizi.stampante ? CercaCarattere(*stato_.servizi.stampante) : QString();
    if (CaratterePagina_.isEmpty()) {
        if (stato_.servizi.messaggi)
            stato_.servizi.messaggi->mostra(testoSenzaFont);
        return;
    }
    if (CaratterePagina_ == QLatin1String("Courier New"))
        fontRighe(CaratterePagina_);
    // Only a name with a trailing blank would give the lines the face of
    // plain "Courier"; no font list has one, so with "Courier" the lines
    // keep the face they were designed with.
    if (CaratterePagina_ == QLatin1String("Courier "))
        fontRighe(CaratterePagina_);

    // The loop runs on the shared counter: loading a record file afterwards
    // places its lines where this loop stopped.
    qint16 &n = stato_.fogli.NumeroOperazioni;
    for (n = 1; n <= stato_.record.NumeroEsercizio; n = somma16(n, 1))
        mostraRiga(n, stato_.record.riga(n));
}

void FrmStampaEsercizioTre::fontRighe(const QString &nome)
{
    QFont f(nome, 10, QFont::Bold);
    f.setStyleHint(QFont::TypeWriter);
    for (int i = 1; i <= stato_.record.NumeroEsercizio && i <= 30; ++i)
        LblOp_[std::size_t(i)]->setFont(f);
}

void FrmStampaEsercizioTre::mostraRiga(int i, const QString &testo)
{
    // Lines past the last label are kept in memory but have nowhere to show.
    if (i < 1 || i > 30)
        return;
    QLabel *l = LblOp_[std::size_t(i)];
    l->setText(testo);
    nomeRiga(l, i);
}

void FrmStampaEsercizioTre::Command1_Click(int indice)
{
    NomeFileEsercizio_ = NomeFileEsercizio(stato_);
    switch (indice) {
    case 0:
        if (IScreens *s = stato_.servizi.schermi) {
            s->apri(Schermo::Operativo);
            // The screen may be gone after this: nothing follows.
            s->chiudi(Schermo::StampaEsercizio);
        }
        break;
    case 1:
        try {
            StampaEsercizio(stato_);
        } catch (const ErroreStampa &e) {
            // The teacher must know the page did not come out, and why.
            if (stato_.servizi.messaggi)
                stato_.servizi.messaggi->mostra(e.testo(), QStringLiteral("Errore di stampa"),
                                                IMessageBox::Icona::Critica);
        }
        break;
    case 2:
        SalvaEsercizio(stato_);
        break;
    case 3:
        CaricaEsercizio(stato_, [this](int i, const QString &testo) { mostraRiga(i, testo); });
        break;
    default:
        break;
    }
}

void FrmStampaEsercizioTre::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    resize_.applica();
}
