#include "printing/frmstampaschedetre.h"

#include "content/errori.h"
#include "printing/schede.h"
#include "printing/stampa.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"

#include <QAction>
#include <QCoreApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>

namespace {

// Design size of the client area: the choices on the left, the sheet as it
// will be printed on the right, wide enough for 100 columns.
constexpr int larghezzaForm = 1180;
constexpr int altezzaForm = 720;

const QColor coloreStriscia(255, 224, 192);
const QColor coloreScelta(255, 0, 0);

const std::array<QString, 3> testiTipo{QStringLiteral("Trova il numero"), QStringLiteral("Trova il simbolo"),
                                       QStringLiteral("Trova il numero o il simbolo")};
const std::array<QString, 3> testiOrdine{QStringLiteral("Simboli ordinati"),
                                         QStringLiteral("Simboli non ordinati"),
                                         QStringLiteral("Simboli ordinati e non ordinati")};

// The sheet title: a shared text that nothing assigns.
const QString TestoTitolo;

void colora(QWidget *w, const QColor &c)
{
    w->setAutoFillBackground(true);
    QPalette p = w->palette();
    p.setColor(QPalette::Window, c);
    w->setPalette(p);
}

// A label's accessible name is its text; an empty line still needs a name.
void nomeRiga(QLabel *l, int k)
{
    const QString t = l->text().simplified();
    l->setAccessibleName(t.isEmpty() ? QStringLiteral("Riga %1").arg(k)
                                     : QStringLiteral("Riga %1: %2").arg(k).arg(t));
}

// The rows keep every key to themselves; Tab is handed back to the form so
// that a keyboard user can leave a row.
bool passaTab(QWidget *form, QKeyEvent *k)
{
    if (k->key() != Qt::Key_Tab && k->key() != Qt::Key_Backtab)
        return false;
    QKeyEvent copia(k->type(), k->key(), k->modifiers(), k->text());
    QCoreApplication::sendEvent(form, &copia);
    return true;
}

bool invio(const QKeyEvent *k)
{
    return k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
}

QPushButton *tasto(const QString &nome, const QString &caption, QWidget *parent, const QRect &g)
{
    auto *b = new QPushButton(caption, parent);
    b->setObjectName(nome);
    b->setAccessibleName(caption.simplified());
    b->setAutoDefault(false);
    b->setGeometry(g);
    return b;
}

} // namespace

FrmStampaSchedeTre::FrmStampaSchedeTre(Stato &stato, QWidget *parent)
    : QMainWindow(parent), stato_(stato)
{
    costruisci();
    resize_.prendi(centralWidget());
    confine([&] { apri(); });
}

void FrmStampaSchedeTre::costruisci()
{
    setWindowTitle(QStringLiteral("STAMPA SCHEDE:  composizioni"));
    setObjectName(QStringLiteral("FrmStampaSchedeTre"));

    auto *form = new QWidget(this);
    form->setObjectName(QStringLiteral("form"));
    form->setAccessibleName(windowTitle().simplified());
    form->resize(larghezzaForm, altezzaForm);
    setCentralWidget(form);

    costruisciScelte(form);
    costruisciScheda(form);
    costruisciAnteprima(form);

    CmdRicomincia_ = tasto(QStringLiteral("CmdRicomincia"), QStringLiteral("CANCELLA SCHEDA"), form,
                           {10, 662, 155, 48});
    cmdEsci_ = tasto(QStringLiteral("cmdEsci"), QStringLiteral("ESCI"), form, {175, 662, 155, 48});
    for (QPushButton *b : {CmdRicomincia_, cmdEsci_})
        b->setFont(FontArial(10, true));
    connect(CmdRicomincia_, &QPushButton::clicked, this, [this] { confine([&] { CmdRicomincia_Click(); }); });
    connect(cmdEsci_, &QPushButton::clicked, this, [this] {
        confine([&] {
            if (stato_.servizi.schermi)
                stato_.servizi.schermi->chiudi(Schermo::Schede);
        });
    });

    mnuStampante_ = menuBar()->addAction(QStringLiteral("Scegli la stampante"));
    mnuStampante_->setObjectName(QStringLiteral("mnuStampante"));
    mnuStampante_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    connect(mnuStampante_, &QAction::triggered, this, [this] {
        confine([&] {
            if (stato_.servizi.schermi)
                stato_.servizi.schermi->apri(Schermo::SceltaStampante);
        });
    });
    menuBar()->setAccessibleName(QStringLiteral("Menu"));

    // Enter works every push and radio button, as it does the rows.
    for (QAbstractButton *b : form->findChildren<QAbstractButton *>())
        if (Option1_->indice(b) < 0 && Option2_->indice(b) < 0)
            b->installEventFilter(this);

    resize(larghezzaForm, altezzaForm + menuBar()->sizeHint().height());
}

void FrmStampaSchedeTre::costruisciScelte(QWidget *form)
{
    // The strips go first so that the keys stand on top of them.
    for (int i = 0; i < 3; ++i) {
        Label3_[std::size_t(i)] = new QLabel(form);
        Label3_[std::size_t(i)]->setObjectName(QStringLiteral("Label3(%1)").arg(i));
        Label3_[std::size_t(i)]->setGeometry(10, 10 + i * 54, 320, 50);
    }
    Option1_ = new RigaOpzioni(form,
                               {QStringLiteral("CALCOLA IL NUMERO"), QStringLiteral("CALCOLA IL SIMBOLO"),
                                QStringLiteral(" NUMERO O  SIMBOLO ")},
                               QStringLiteral("Option1"));

    Frame7_ = new QFrame(form);
    Frame7_->setObjectName(QStringLiteral("Frame7"));
    Frame7_->setAccessibleName(QStringLiteral("Ordine dei simboli"));
    Frame7_->setFrameShape(QFrame::StyledPanel);
    Frame7_->setGeometry(10, 176, 320, 164);
    for (int i = 0; i < 3; ++i) {
        Label4_[std::size_t(i)] = new QLabel(Frame7_);
        Label4_[std::size_t(i)]->setObjectName(QStringLiteral("Label4(%1)").arg(i));
        Label4_[std::size_t(i)]->setGeometry(6, 6 + i * 52, 308, 48);
    }
    Option2_ = new RigaOpzioni(Frame7_,
                               {QStringLiteral("SIMBOLI ORDINATI"), QStringLiteral("SIMBOLI NON ORDINATI"),
                                QStringLiteral("SIMBOLI  ORDINATI  E  NO")},
                               QStringLiteral("Option2"));

    for (int i = 0; i < 3; ++i) {
        QPushButton *b1 = Option1_->bottone(i);
        b1->setGeometry(18, 16 + i * 54, 304, 38);
        QPushButton *b2 = Option2_->bottone(i);
        b2->setGeometry(14, 12 + i * 52, 292, 36);
        for (QPushButton *b : {b1, b2}) {
            b->setFont(FontArial(11, true));
            b->setAccessibleName(b->text().simplified());
        }
        Label3_[std::size_t(i)]->setAccessibleName(QStringLiteral("Segno di %1").arg(b1->text().simplified()));
        Label4_[std::size_t(i)]->setAccessibleName(QStringLiteral("Segno dell'ordine %1").arg(i + 1));
    }
    strisce(Label3_, -1);
    strisce(Label4_, -1);

    Option1_->tasto = [this](int i, QKeyEvent *k) {
        if (passaTab(centralWidget(), k))
            return false;
        if (k->key() == Qt::Key_1 || k->key() == Qt::Key_2) {
            Option1_->bottone(k->key() - Qt::Key_1)->setFocus();
            return true;
        }
        if (invio(k)) {
            const int f = Option1_->indiceFuoco();
            Option1_->scegli(f >= 0 ? f : i);
            return true;
        }
        return false;
    };
    Option2_->tasto = [this](int i, QKeyEvent *k) {
        if (passaTab(centralWidget(), k))
            return false;
        if (k->key() >= Qt::Key_0 && k->key() <= Qt::Key_6) {
            // "1".."3" reach the three keys; the other digits name no key
            // and stop here, leaving the row as it was.
            Option2_->bottone(k->key() - Qt::Key_1)->setFocus();
            return true;
        }
        if (invio(k)) {
            const int f = Option2_->indiceFuoco();
            Option2_->scegli(f >= 0 ? f : i);
            return true;
        }
        return false;
    };
    connect(Option1_, &RigaOpzioni::scelto, this, [this](int i) { confine([&] { Option1_Click(i); }); });
    connect(Option2_, &RigaOpzioni::scelto, this, [this](int i) { confine([&] { Option2_Click(i); }); });
}

void FrmStampaSchedeTre::costruisciScheda(QWidget *form)
{
    Frame1_ = new QFrame(form);
    Frame1_->setObjectName(QStringLiteral("Frame1"));
    Frame1_->setAccessibleName(QStringLiteral("Scheda"));
    Frame1_->setFrameShape(QFrame::StyledPanel);
    Frame1_->setGeometry(10, 350, 320, 300);

    for (int i = 0; i < 3; ++i) {
        auto *r = new QRadioButton(QStringLiteral("%1 operazioni").arg((i + 1) * 10), Frame1_);
        r->setObjectName(QStringLiteral("Opt1(%1)").arg(i));
        r->setAccessibleName(r->text());
        r->setGeometry(10, 8 + i * 28, 150, 26);
        connect(r, &QRadioButton::clicked, this, [this, i] { confine([&] { Opt1_Click(i); }); });
        Opt1_[std::size_t(i)] = r;
    }
    // Matches the 30 lines the screen starts with.
    Opt1_[2]->setChecked(true);

    auto *Frame5 = new QGroupBox(QStringLiteral("Operazioni"), Frame1_);
    Frame5->setObjectName(QStringLiteral("Frame5"));
    Frame5->setAccessibleName(Frame5->title());
    Frame5->setGeometry(170, 4, 140, 86);
    auto *Opt10 = new QRadioButton(QStringLiteral("10 per esercizio"), Frame5);
    Opt10->setObjectName(QStringLiteral("Opt10"));
    Opt10->setGeometry(10, 24, 125, 24);
    Opt10->setChecked(true);
    auto *Opt5 = new QRadioButton(QStringLiteral("5 per esercizio"), Frame5);
    Opt5->setObjectName(QStringLiteral("Opt5"));
    Opt5->setGeometry(10, 52, 125, 24);
    for (QRadioButton *r : {Opt10, Opt5})
        r->setAccessibleName(r->text());

    auto gruppo = [this](const QString &nome, const QString &titolo, int y) {
        auto *g = new QGroupBox(titolo, Frame1_);
        g->setObjectName(nome);
        g->setAccessibleName(titolo);
        g->setFont(FontArial(10, true));
        g->setGeometry(8, y, 304, 96);
        return g;
    };
    QGroupBox *Frame3 = gruppo(QStringLiteral("Frame3"), QStringLiteral("ALUNNI"), 96);
    CmdVisualizzaSchedaAlunni_ = tasto(QStringLiteral("CmdVisualizzaSchedaAlunni"),
                                       QStringLiteral("VISUALIZZA SCHEDA "), Frame3, {10, 24, 284, 30});
    CmdStampaSchedaAlunni_ = tasto(QStringLiteral("CmdStampaSchedaAlunni"), QStringLiteral("STAMPA SCHEDA "),
                                   Frame3, {10, 58, 284, 30});
    QGroupBox *Frame4 = gruppo(QStringLiteral("Frame4"), QStringLiteral("DOCENTI"), 198);
    CmdVisualizzaSchedaDocenti_ = tasto(QStringLiteral("CmdVisualizzaSchedaDocenti"),
                                        QStringLiteral("VISUALIZZA SCHEDA"), Frame4, {10, 24, 284, 30});
    CmdStampaSchedaDocenti_ = tasto(QStringLiteral("CmdStampaSchedaDocenti"), QStringLiteral("STAMPA SCHEDA"),
                                    Frame4, {10, 58, 284, 30});
    // Two keys with one caption each: the frame tells them apart to a reader.
    CmdVisualizzaSchedaAlunni_->setAccessibleName(QStringLiteral("Visualizza scheda alunni"));
    CmdStampaSchedaAlunni_->setAccessibleName(QStringLiteral("Stampa scheda alunni"));
    CmdVisualizzaSchedaDocenti_->setAccessibleName(QStringLiteral("Visualizza scheda docenti"));
    CmdStampaSchedaDocenti_->setAccessibleName(QStringLiteral("Stampa scheda docenti"));

    connect(CmdVisualizzaSchedaAlunni_, &QPushButton::clicked, this, [this] { confine([&] { visualizza(1); }); });
    connect(CmdVisualizzaSchedaDocenti_, &QPushButton::clicked, this, [this] { confine([&] { visualizza(2); }); });
    connect(CmdStampaSchedaAlunni_, &QPushButton::clicked, this, [this] { confine([&] { stampa(1); }); });
    connect(CmdStampaSchedaDocenti_, &QPushButton::clicked, this, [this] { confine([&] { stampa(2); }); });
    CmdStampaSchedaAlunni_->hide();
    CmdStampaSchedaDocenti_->hide();
}

void FrmStampaSchedeTre::costruisciAnteprima(QWidget *form)
{
    Label1_ = new QLabel(QStringLiteral("aaa"), form);
    Label1_->setObjectName(QStringLiteral("Label1"));
    Label1_->setGeometry(350, 8, 820, 26);
    Label2_ = new QLabel(QStringLiteral("bbb"), form);
    Label2_->setObjectName(QStringLiteral("Label2"));
    Label2_->setGeometry(350, 36, 820, 26);
    for (QLabel *l : {Label1_, Label2_}) {
        l->setFont(FontArial(12, true));
        l->setTextFormat(Qt::PlainText);
    }
    Label1_->setAccessibleName(QStringLiteral("Tipo di esercizio"));
    Label2_->setAccessibleName(QStringLiteral("Ordine dei simboli"));

    // The preview stands on a white sheet, in blocks of ten as on paper.
    auto *foglio = new QFrame(form);
    foglio->setObjectName(QStringLiteral("Foglio"));
    foglio->setAccessibleName(QStringLiteral("Anteprima della scheda"));
    foglio->setFrameShape(QFrame::Box);
    colora(foglio, Qt::white);
    foglio->setGeometry(350, 66, 820, 646);
    QFont f(QStringLiteral("Courier New"), 10);
    f.setStyleHint(QFont::TypeWriter);
    for (int k = 1; k <= 30; ++k) {
        auto *l = new QLabel(foglio);
        l->setObjectName(QStringLiteral("LblOp(%1)").arg(k));
        l->setFont(f);
        l->setTextFormat(Qt::PlainText);
        l->setGeometry(10, 6 + (k - 1) * 20 + ((k - 1) / 10) * 8, 800, 20);
        nomeRiga(l, k);
        LblOp_[std::size_t(k)] = l;
    }
}

void FrmStampaSchedeTre::apri()
{
    Label2_->setText(TestoTitolo);
    Label1_->setText(TestoIntestazione);
    Frame7_->setEnabled(false);
    Frame1_->setEnabled(false);
    Option1_->bottone(0)->setFocus();
    stato_.fogli.NumeroOperazioni = 30;
    const auto &S = stato_.topic.Simboli;
    Option2_->bottone(0)->setText(S[1] + QStringLiteral("   ") + S[2] + QLatin1Char(' ') + S[3] +
                                  QLatin1Char(' ') + S[4]);
    Option2_->bottone(1)->setText(S[4] + QLatin1Char(' ') + S[3] + QLatin1Char(' ') + S[2] +
                                  QStringLiteral("   ") + S[1]);
    for (int i = 0; i < 2; ++i)
        Option2_->bottone(i)->setAccessibleName(
            QStringLiteral("Simboli %1: %2")
                .arg(i == 0 ? QStringLiteral("ordinati") : QStringLiteral("non ordinati"),
                     Option2_->bottone(i)->text().simplified()));
}

void FrmStampaSchedeTre::Option1_Click(int i)
{
    strisce(Label4_, -1);
    strisce(Label3_, i);
    stato_.settings.TipoEsercizio = qint16(i + 1);
    Label1_->setText(voce(testiTipo, i));
    svuotaAnteprima(QString());
    nascondiStampa();
    Frame7_->setEnabled(true);
    Option2_->bottone(0)->setFocus();
}

void FrmStampaSchedeTre::Option2_Click(int i)
{
    Settings &s = stato_.settings;
    s.OrdineSimboli = qint16(i + 1);
    s.TestoOrdineSimboli = voce(testiOrdine, i);
    svuotaAnteprima(QString());
    nascondiStampa();
    // Always a full sheet, whatever count is chosen: the count only decides
    // how much of it is shown and printed.
    GeneraRigheScheda(stato_, 30);
    strisce(Label4_, i);
    Label2_->setText(s.TestoOrdineSimboli);
    Frame1_->setEnabled(true);
}

void FrmStampaSchedeTre::Opt1_Click(int i)
{
    svuotaAnteprima(QStringLiteral(" "));
    nascondiStampa();
    stato_.fogli.NumeroOperazioni = qint16((i + 1) * 10);
}

void FrmStampaSchedeTre::visualizza(qint16 tipo)
{
    if (tipo == 1)
        mostraStampa(CmdStampaSchedaAlunni_, CmdStampaSchedaDocenti_);
    else
        mostraStampa(CmdStampaSchedaDocenti_, CmdStampaSchedaAlunni_);
    TipoScheda_ = tipo;
    svuotaAnteprima(QStringLiteral(" "));
    SheetBuffers &f = stato_.fogli;
    const auto &righe = tipo == 1 ? stato_.record.RigheEsercizio : f.RigheDocenti;
    for (qint16 k = 1; k <= f.NumeroOperazioni; k = somma16(k, 1)) {
        const QString &testo = voce(righe, k);
        riga(k, testo);
        voce(f.RigheScheda, k) = testo;
    }
}

void FrmStampaSchedeTre::stampa(qint16 tipo)
{
    TipoScheda_ = tipo;
    TestoPiede_ = (tipo == 1 ? QStringLiteral("Scheda per alunni stampata con il file: ")
                             : QStringLiteral("Scheda per docenti stampata con il file: ")) +
                  stato_.settings.NomeFile;
    StampaScheda(stato_, TipoScheda_, Label1_->text(), Label2_->text());
}

void FrmStampaSchedeTre::CmdRicomincia_Click()
{
    strisce(Label3_, -1);
    strisce(Label4_, -1);
    Label1_->clear();
    Label2_->clear();
    Frame1_->setEnabled(false);
    nascondiStampa();
    svuotaAnteprima(QString());
    GeneraRigheScheda(stato_, stato_.fogli.NumeroOperazioni);
}

void FrmStampaSchedeTre::mostraStampa(QPushButton *mostrato, QPushButton *nascosto)
{
    mostrato->show();
    nascosto->hide();
}

void FrmStampaSchedeTre::nascondiStampa()
{
    CmdStampaSchedaAlunni_->hide();
    CmdStampaSchedaDocenti_->hide();
}

void FrmStampaSchedeTre::svuotaAnteprima(const QString &testo)
{
    for (int k = 1; k <= 30; ++k)
        riga(k, testo);
}

void FrmStampaSchedeTre::riga(int k, const QString &testo)
{
    // Only the first thirty lines have a place on screen.
    if (k < 1 || k > 30)
        return;
    QLabel *l = LblOp_[std::size_t(k)];
    l->setText(testo);
    nomeRiga(l, k);
}

void FrmStampaSchedeTre::strisce(const std::array<QLabel *, 3> &s, int rossa)
{
    for (int i = 0; i < 3; ++i) {
        QLabel *l = s[std::size_t(i)];
        colora(l, i == rossa ? coloreScelta : coloreStriscia);
        l->setAccessibleDescription(i == rossa ? QStringLiteral("scelto") : QString());
    }
}

bool FrmStampaSchedeTre::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn) {
        confine([&] {
            if (watched == CmdVisualizzaSchedaAlunni_)
                mostraStampa(CmdStampaSchedaAlunni_, CmdStampaSchedaDocenti_);
            else if (watched == CmdVisualizzaSchedaDocenti_)
                mostraStampa(CmdStampaSchedaDocenti_, CmdStampaSchedaAlunni_);
        });
    } else if (event->type() == QEvent::KeyPress && invio(static_cast<QKeyEvent *>(event))) {
        if (auto *b = qobject_cast<QAbstractButton *>(watched); b && b->isEnabled() && b->isVisible()) {
            b->click();
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

void FrmStampaSchedeTre::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    resize_.applica();
}
