#include "settings/frminizio.h"

#include "content/catalogo.h"
#include "settings/filesettings.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/dopoprimodisegno.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"

#include <QAction>
#include <QActionGroup>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

namespace {

const QColor kFuoco(255, 192, 128);
const QColor kRiposo(255, 224, 192);
const QColor kPagina(255, 250, 240);
const QColor kTitoli(20, 40, 120);

// The arrows that step the level and the digit count: plain characters that
// the system's fonts can draw.
const QString kFrecciaLivello = QStringLiteral("\u279C");
const QString kFrecciaCifre = QStringLiteral("\u2B06");

QLabel *etichetta(QWidget *parent, const QString &nome, const QString &testo, const QRect &g,
                  const QFont &font, Qt::Alignment allinea = Qt::AlignLeft | Qt::AlignVCenter)
{
    auto *l = new QLabel(testo, parent);
    l->setObjectName(nome);
    l->setGeometry(g);
    l->setFont(font);
    l->setAlignment(allinea);
    return l;
}

// The colour of a label's text. A palette, not a style sheet: a style sheet
// per label costs the start screen a polish of each at its first show.
void inchiostro(QWidget *w, const QColor &c)
{
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, c);
    w->setPalette(p);
}

void sfondo(QWidget *w, const QColor &c)
{
    QPalette p = w->palette();
    p.setColor(QPalette::Window, c);
    w->setPalette(p);
    w->setAutoFillBackground(true);
}

// A label that steps a setting under the mouse. It never takes the focus: a
// pupil scanning a row with one switch must not be pulled off it by a touch.
void comeTasto(QLabel *l, const QString &ruolo)
{
    l->setAccessibleName(ruolo);
    l->setToolTip(ruolo);
    l->setCursor(Qt::PointingHandCursor);
    inchiostro(l, kTitoli);
}

} // namespace

FrmInizio::FrmInizio(Stato &stato, QWidget *parent) : QMainWindow(parent), stato_(stato)
{
    setObjectName(QStringLiteral("FrmInizio"));
    setWindowTitle(QStringLiteral("COMPOSIZIONE"));
    costruisci();
    costruisciMenu();
    avvio();
    resize(kLarghezza, kAltezza + menuBar()->sizeHint().height());
    setMinimumSize(kLarghezza / 2, kAltezza / 2);
}

void FrmInizio::costruisci()
{
    pagina_ = new QWidget(this);
    pagina_->setObjectName(QStringLiteral("pagina"));
    setCentralWidget(pagina_);
    pagina_->resize(kLarghezza, kAltezza);
    sfondo(pagina_, kPagina);
    pagina_->installEventFilter(this);

    // Decorative boxes behind the titles and the level panel.
    const QString riquadro = QStringLiteral("QFrame { background: rgb(255, 240, 225);"
                                            " border: 3px solid rgb(255, 192, 128); border-radius: 14px; }");
    for (const auto &[nome, g] : {std::pair{QStringLiteral("Shape1"), QRect(10, 8, 770, 124)},
                                  std::pair{QStringLiteral("Shape2"), QRect(790, 8, 200, 124)}}) {
        auto *s = new QFrame(pagina_);
        s->setObjectName(nome);
        s->setGeometry(g);
        s->setStyleSheet(riquadro);
    }

    const QStringList titoli{QStringLiteral("SISTEMA DECIMALE"),
                             QStringLiteral("COMPOSIZIONE DEI VALORI DI POSIZIONE"),
                             QStringLiteral(" u   d c m")};
    const QRect gTitoli[3] = {{20, 14, 750, 38}, {20, 54, 750, 36}, {20, 92, 750, 34}};
    const QFont fTitoli[3] = {FontArial(22, true), FontArial(18, true), FontArial(16)};
    for (int i = 0; i < 3; ++i) {
        label6_[i] = etichetta(pagina_, QStringLiteral("Label6(%1)").arg(i), titoli[i], gTitoli[i],
                               fTitoli[i], Qt::AlignCenter);
        inchiostro(label6_[i], kTitoli);
        label6_[i]->setCursor(Qt::PointingHandCursor);
        label6_[i]->setToolTip(QStringLiteral("aumenta livello"));
        label6_[i]->installEventFilter(this);
    }

    auto *lblLivello = etichetta(pagina_, QStringLiteral("lblLivello"), QStringLiteral("Livello"),
                                 {800, 12, 90, 26}, FontArial(12), Qt::AlignCenter);
    inchiostro(lblLivello, kTitoli);
    label3_ = etichetta(pagina_, QStringLiteral("Label3"), QString(), {800, 38, 90, 50}, FontArial(30, true),
                        Qt::AlignCenter);
    label3_->setAccessibleDescription(QStringLiteral("livello"));
    inchiostro(label3_, kTitoli);
    label8_ = etichetta(pagina_, QStringLiteral("Label8"), QString(), {895, 28, 85, 60}, FontArial(30, true),
                        Qt::AlignCenter);
    comeTasto(label8_, QStringLiteral("aumenta livello"));
    lblCifre_ = etichetta(pagina_, QStringLiteral("lblCifre"), QString(), {800, 92, 115, 36}, FontArial(16, true),
                          Qt::AlignCenter);
    inchiostro(lblCifre_, kTitoli);
    lblCifre_->setCursor(Qt::PointingHandCursor);
    label7_ = etichetta(pagina_, QStringLiteral("Label7"), QString(), {918, 88, 62, 42}, FontArial(22, true),
                        Qt::AlignCenter);
    comeTasto(label7_, QStringLiteral("cambia numero di cifre"));
    for (QLabel *l : {label8_, label7_, lblCifre_})
        l->installEventFilter(this);

    // The three rows. The row flags of the kind row are also set by a mouse
    // press, so the first key after a mouse choice there is swallowed.
    const QFont fTasti = FontArial(18, true);
    const QStringList captions[4] = {
        {},
        {QStringLiteral("numero"), QStringLiteral("simbolo"), QStringLiteral("numero o simbolo")},
        {QStringLiteral("simboli ordinati"), QStringLiteral("simboli non ordinati"),
         QStringLiteral("simboli ordinati e non")},
        {QStringLiteral("Vai"), QStringLiteral("Reimposta"), QStringLiteral("Esci")}};
    const int yFrame[4] = {0, 176, 344, 482};
    const QString titoloRiga[4] = {{}, QStringLiteral("Trova il ..."), QStringLiteral("Usa i ..."),
                                   QStringLiteral("Azioni")};
    for (int n = 1; n <= 3; ++n) {
        frame_[n] = new QGroupBox(pagina_);
        frame_[n]->setObjectName(QStringLiteral("Frame%1").arg(n));
        frame_[n]->setAccessibleName(titoloRiga[n]);
        frame_[n]->setGeometry(20, yFrame[n], n == 3 ? 640 : 960, 96);
        RigaOpzioni::Opzioni o;
        o.fuoco = kFuoco;
        o.riposo = kRiposo;
        o.mouseImpostaFlagTasto = n == 1;
        righe_[n] = new RigaOpzioni(frame_[n], captions[n], QStringLiteral("Option%1").arg(n), o);
        for (int i = 0; i < 3; ++i) {
            QPushButton *b = righe_[n]->bottone(i);
            b->setFont(fTasti);
            b->setAccessibleName(b->text());
            b->setGeometry(12 + i * 316, 12, 300, 72);
        }
        righe_[n]->tasto = [this, n](int i, QKeyEvent *k) { return tastoRiga(n, i, k); };
    }
    // "Esci" belongs to the action row but stays usable while the row is not.
    QPushButton *esci = righe_[3]->bottone(2);
    esci->setParent(pagina_);
    esci->setGeometry(680, 494, 300, 72);
    esci->show();
    connect(righe_[1], &RigaOpzioni::scelto, this, [this](int i) { sceltaTipo(i); });
    connect(righe_[2], &RigaOpzioni::scelto, this, [this](int i) { sceltaOrdine(i); });
    connect(righe_[3], &RigaOpzioni::scelto, this, [this](int i) { azione(i); });
    frame_[2]->setEnabled(false);
    frame_[3]->setEnabled(false);

    label4_[2] = etichetta(pagina_, QStringLiteral("Label4(2)"), QStringLiteral("Trova il ..."),
                           {24, 140, 400, 34}, FontArial(18, true));
    label4_[3] = etichetta(pagina_, QStringLiteral("Label4(3)"), QStringLiteral("Usa i ..."),
                           {24, 308, 400, 34}, FontArial(18, true));
    label1_ = etichetta(pagina_, QStringLiteral("Label1"), QString(), {24, 274, 956, 32}, FontArial(16));
    label1_->setAccessibleDescription(QStringLiteral("esercizio scelto"));
    label2_ = etichetta(pagina_, QStringLiteral("Label2"), QString(), {24, 442, 956, 32}, FontArial(16));
    label2_->setAccessibleDescription(QStringLiteral("ordine scelto"));

    auto *frame4 = new QFrame(pagina_);
    frame4->setObjectName(QStringLiteral("Frame4"));
    frame4->setGeometry(20, 600, 230, 44);
    QFont sansSerif(QStringLiteral("MS Sans Serif"), 12);
    sansSerif.setStyleHint(QFont::SansSerif);
    label4_[0] = etichetta(frame4, QStringLiteral("Label4(0)"), QString(), {8, 6, 90, 32}, sansSerif);
    label4_[1] = etichetta(frame4, QStringLiteral("Label4(1)"), QString(), {100, 6, 120, 32}, sansSerif);
    for (int i = 0; i < 2; ++i)
        inchiostro(label4_[i], Qt::red);
    etichetta(pagina_, QStringLiteral("Label5"),
              QStringLiteral("Composizione - esercizi sul sistema decimale e sulle misure"),
              {260, 606, 720, 32}, FontArial(11), Qt::AlignRight | Qt::AlignVCenter);

    picture1_ = new QFrame(pagina_);
    picture1_->setObjectName(QStringLiteral("Picture1"));
    picture1_->setAccessibleName(QStringLiteral("tendina sinistra"));
    picture2_ = new QFrame(pagina_);
    picture2_->setObjectName(QStringLiteral("Picture2"));
    picture2_->setAccessibleName(QStringLiteral("tendina destra"));
    // The curtains open once they are on view: ticking before the first frame
    // would only lay out and paint what they hide.
    new DopoPrimoDisegno(picture1_, [this] {
        if (tendine_.attiva())
            timerTendine_->start();
    });
    for (QFrame *p : {picture1_, picture2_}) {
        sfondo(p, kFuoco);
        p->setFrameShape(QFrame::Box);
        p->raise();
    }

    timerTendine_ = new QTimer(this);
    timerTendine_->setObjectName(QStringLiteral("timerTendine"));
    timerTendine_->setInterval(Tendine::kIntervalloMs);
    connect(timerTendine_, &QTimer::timeout, this, &FrmInizio::tickTendine);
}

void FrmInizio::costruisciMenu()
{
    QMenuBar *barra = menuBar();
    barra->setFont(FontArial(12));
    // Every topic by its names: the level stepper only cycles the first three.
    // The list is made when first opened, so that start-up pays nothing for it.
    mnuArgomento_ = barra->addAction(QStringLiteral("&Argomento"));
    mnuArgomento_->setObjectName(QStringLiteral("mnuArgomento"));
    mnuArgomento_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_L));
    connect(mnuArgomento_, &QAction::triggered, this, [this] { confine([this] { apriArgomenti(); }); });

    mnuSchede_ = barra->addAction(QStringLiteral("Stampa schede"));
    mnuSchede_->setObjectName(QStringLiteral("mnuSchede"));
    auto *istruzioni = barra->addAction(QStringLiteral("Istruzioni"));
    istruzioni->setObjectName(QStringLiteral("mnuIstruzioni"));
    auto *autore = barra->addAction(QStringLiteral("Autore"));
    autore->setObjectName(QStringLiteral("mnuAutore"));
    auto *opzioni = barra->addAction(QStringLiteral("Opzioni"));
    opzioni->setObjectName(QStringLiteral("mnuOpzioni"));
    auto *accesso = barra->addAction(QStringLiteral("A&ccesso"));
    accesso->setObjectName(QStringLiteral("mnuAccesso"));
    auto *risultati = barra->addAction(QStringLiteral("&Risultati"));
    risultati->setObjectName(QStringLiteral("mnuRisultati"));

    const auto apri = [this](Schermo s) {
        return [this, s] {
            if (IScreens *schermi = stato_.servizi.schermi)
                schermi->apri(s);
        };
    };
    // The menus by keyboard too: a teacher with no mouse reaches them.
    mnuSchede_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    autore->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_U));
    opzioni->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    connect(mnuSchede_, &QAction::triggered, this, apri(Schermo::Schede));
    connect(autore, &QAction::triggered, this, apri(Schermo::Autore));
    connect(opzioni, &QAction::triggered, this, apri(Schermo::Opzioni));
    // Scanning, switches and the highlight, for the pupil who uses them.
    accesso->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    connect(accesso, &QAction::triggered, this, apri(Schermo::Accesso));
    // The exercises kept in this folder, for the teacher.
    risultati->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    connect(risultati, &QAction::triggered, this, apri(Schermo::Risultati));
}

void FrmInizio::avvio()
{
    // The curtains cover the page when it first shows and open from the middle.
    tendine_.avvia(kLarghezza * Tendine::kTwipsPerPixel);
    posaTendine();

    resize_.prendi(pagina_);

    label4_[0]->setText(QStringLiteral("Ver.1 "));
    label4_[1]->setText(QStringLiteral(" Mouse "));

    Settings &s = stato_.settings;
    s.NomeFile = NomeFileDaEseguibile(QCoreApplication::applicationFilePath());
    if (!LeggiLivelli(s, s.NomeFile))
        label3_->setText(QStringLiteral("%1 %2").arg(s.Livello).arg(s.NumeroCifre));

    // The titles mirror the labels: a level with no topic leaves them as drawn.
    if (stato_.titoli.caption.isEmpty()) {
        stato_.titoli.caption = windowTitle();
        for (int i = 0; i < 3; ++i)
            stato_.titoli.Label6[std::size_t(i)] = label6_[i]->text();
    }
    SceltaSimboli(s.Livello, stato_.topic, stato_.titoli);
    mostraTitoli();
    mostraCifre();
    VerificaEsistenzaFile(s.NomeFile);

    label3_->setText(QString::number(s.Livello));
    label7_->setText(kFrecciaCifre);
    label8_->setText(kFrecciaLivello);

    LeggiImpostazioni(s);
}

RigaOpzioni *FrmInizio::riga(int n) const
{
    return n >= 1 && n <= 3 ? righe_[n] : nullptr;
}

void FrmInizio::mostraTitoli()
{
    const TitoliInizio &t = stato_.titoli;
    setWindowTitle(t.caption);
    for (int i = 0; i < 3; ++i)
        label6_[i]->setText(t.Label6[std::size_t(i)]);
    mnuSchede_->setText(t.mnuSchede);
    spuntaArgomento();
}

void FrmInizio::spuntaArgomento()
{
    if (!argomenti_)
        return;
    const auto voci = argomenti_->actions();
    for (qsizetype i = 0; i < voci.size(); ++i)
        voci[i]->setChecked(i + 1 == stato_.settings.Livello);
}

// Drops down under its title, by mouse or by keys alike; the arrows and Enter
// then choose.
void FrmInizio::apriArgomenti()
{
    if (!argomenti_) {
        argomenti_ = new QMenu(this);
        argomenti_->setObjectName(QStringLiteral("mnuArgomenti"));
        argomenti_->setFont(FontArial(12));
        auto *gruppo = new QActionGroup(argomenti_);
        // Optional: a level with no topic, read from the file, checks none.
        gruppo->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
        for (qint16 n = 1; !NomiArgomento(n).isEmpty(); ++n) {
            QAction *a = argomenti_->addAction(NomiArgomento(n).trimmed());
            a->setObjectName(QStringLiteral("mnuArgomento(%1)").arg(n));
            a->setCheckable(true);
            gruppo->addAction(a);
            connect(a, &QAction::triggered, this, [this, n] { confine([&] { impostaLivello(n); }); });
        }
        spuntaArgomento();
    }
    QMenuBar *barra = menuBar();
    argomenti_->popup(barra->mapToGlobal(barra->actionGeometry(mnuArgomento_).bottomLeft()));
}

void FrmInizio::mostraCifre()
{
    Settings &s = stato_.settings;
    if (s.NumeroCifre == 1) {
        s.ValoreMassimo = 9;
        lblCifre_->setText(QStringLiteral("1 cifra"));
    } else if (s.NumeroCifre == 2) {
        s.ValoreMassimo = 19;
        lblCifre_->setText(QStringLiteral("2 cifre"));
    }
}

void FrmInizio::tickTendine()
{
    tendine_.tick();
    posaTendine();
    if (!tendine_.attiva())
        timerTendine_->stop();
}

void FrmInizio::posaTendine()
{
    const double scala = double(pagina_->width()) / kLarghezza;
    const int h = pagina_->height();
    const int w1 = Tendine::pixel(tendine_.larghezza1(), scala);
    const int w2 = Tendine::pixel(tendine_.larghezza2(), scala);
    picture1_->setGeometry(0, 0, w1, h);
    picture2_->setGeometry(pagina_->width() - w2, 0, w2, h);
    picture1_->setVisible(w1 > 0);
    picture2_->setVisible(w2 > 0);
}

void FrmInizio::sceltaTipo(int i)
{
    static const QString testi[3] = {QStringLiteral(" Trova il numero"), QStringLiteral(" Trova il simbolo"),
                                     QStringLiteral(" Trova il numero o il simbolo")};
    if (i < 0 || i > 2)
        return;
    stato_.settings.TipoEsercizio = qint16(i + 1);
    stato_.settings.TestoTipoEsercizio = testi[i];
    frame_[2]->setEnabled(true);
    righe_[2]->bottone(0)->setFocus();
    label1_->setText(stato_.settings.TestoTipoEsercizio);
}

void FrmInizio::sceltaOrdine(int i)
{
    static const QString testi[3] = {QStringLiteral(" Usa i simboli ordinati"),
                                     QStringLiteral(" Usa i simboli non ordinati"),
                                     QStringLiteral(" Usa i simboli ordinati e non ordinati")};
    if (i < 0 || i > 2)
        return;
    stato_.settings.TestoOrdineSimboli = testi[i];
    stato_.settings.OrdineSimboli = qint16(i + 1);
    label2_->setText(stato_.settings.TestoOrdineSimboli);
    frame_[3]->setEnabled(true);
    righe_[3]->bottone(0)->setFocus();
}

void FrmInizio::azione(int i)
{
    switch (i) {
    case 0:
        // An exercise with no kind has no question and no pad to leave it by:
        // the pupil is sent back to the kind row instead.
        if (stato_.settings.TipoEsercizio == 0) {
            frame_[1]->setEnabled(true);
            righe_[1]->bottone(0)->setFocus();
            break;
        }
        if (IScreens *schermi = stato_.servizi.schermi)
            schermi->apri(Schermo::Operativo);
        break;
    case 1:
        reimposta();
        break;
    case 2:
        esci();
        break;
    default:
        break;
    }
}

void FrmInizio::reimposta()
{
    frame_[1]->setEnabled(true);
    righe_[1]->bottone(0)->setFocus();
    frame_[2]->setEnabled(false);
    frame_[3]->setEnabled(false);
    label1_->clear();
    label2_->clear();
}

void FrmInizio::esci()
{
    uscita_ = true;
    IScreens *schermi = stato_.servizi.schermi;
    if (!schermi)
        return;
    // The options panel is not among them: left open, it keeps the program alive.
    for (Schermo s : {Schermo::Autore, Schermo::Inizio, Schermo::Operativo, Schermo::SceltaStampante,
                      Schermo::StampaEsercizio, Schermo::Schede})
        schermi->chiudi(s);
}

void FrmInizio::passoLivello()
{
    qint16 livello = somma16(stato_.settings.Livello, 1);
    if (livello == 4)
        livello = 1;
    impostaLivello(livello);
}

void FrmInizio::impostaLivello(qint16 livello)
{
    Settings &s = stato_.settings;
    s.Livello = livello;
    label3_->setText(QString::number(s.Livello));
    ScriviLivelli(s);
    SceltaSimboli(s.Livello, stato_.topic, stato_.titoli);
    mostraTitoli();
}

void FrmInizio::passoCifre()
{
    Settings &s = stato_.settings;
    s.NumeroCifre = somma16(s.NumeroCifre, 1);
    if (s.NumeroCifre == 3)
        s.NumeroCifre = 1;
    ScriviLivelli(s);
    mostraCifre();
}

bool FrmInizio::tastoRiga(int n, int indice, QKeyEvent *k)
{
    RigaOpzioni *r = righe_[n];
    const bool tastierino = k->modifiers() & Qt::KeypadModifier;
    const int key = k->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        const int f = r->indiceFuoco();
        r->scegli(f >= 0 ? f : indice);
    } else if (key == Qt::Key_1 || key == Qt::Key_2) {
        // Top row and keypad alike reach the first two keys.
        r->bottone(key - Qt::Key_1)->setFocus();
    } else if (key == Qt::Key_3 && tastierino) {
        // Accepted without moving: only the keypad's 3 is a key of these rows.
    } else {
        // Anything else, the top row's 0 among them, is no key of these rows.
        return false;
    }

    if (n == 1) {
        frame_[2]->setEnabled(true);
        righe_[2]->bottone(0)->setFocus();
        label1_->setText(stato_.settings.TestoTipoEsercizio);
    } else if (n == 2) {
        label2_->setText(stato_.settings.TestoOrdineSimboli);
        frame_[3]->setEnabled(true);
        righe_[3]->bottone(0)->setFocus();
    }
    return true;
}

bool FrmInizio::eventFilter(QObject *o, QEvent *e)
{
    if (o == pagina_) {
        if (e->type() == QEvent::Resize) {
            resize_.applica();
            posaTendine();
        }
        return false;
    }
    const bool livello = o == label6_[0] || o == label6_[1] || o == label6_[2] || o == label8_;
    const bool cifre = o == label7_ || o == lblCifre_;
    switch (e->type()) {
    case QEvent::MouseButtonPress:
        if (cifre) {
            confine([&] { passoCifre(); });
            return true;
        }
        break;
    case QEvent::MouseButtonDblClick:
        // The second press of a double click: children double-click, and it
        // must still be one step.
        if (livello || cifre) {
            doppioClic_ = o;
            return true;
        }
        break;
    case QEvent::MouseButtonRelease: {
        auto *m = static_cast<QMouseEvent *>(e);
        auto *w = static_cast<QWidget *>(o);
        const bool secondo = doppioClic_ == o;
        doppioClic_ = nullptr;
        if (livello && !secondo && m->button() == Qt::LeftButton && w->rect().contains(m->position().toPoint())) {
            confine([&] { passoLivello(); });
            return true;
        }
        break;
    }
    default:
        break;
    }
    return QMainWindow::eventFilter(o, e);
}

void FrmInizio::changeEvent(QEvent *e)
{
    QMainWindow::changeEvent(e);
    if (e->type() == QEvent::ActivationChange && isActiveWindow()) {
        righe_[1]->bottone(0)->setFocus();
        stato_.record.NumeroEsercizio = 0;
    }
}

void FrmInizio::closeEvent(QCloseEvent *e)
{
    if (!uscita_)
        esci();
    e->accept();
}
