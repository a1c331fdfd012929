// Building the exercise screen: every control at its design place on a
// 1000 x 680 page, so that the proportional resize can scale them.
#include "exercise/frmoperativo.h"

#include "exercise/calcolaspazi.h"
#include "exercise/lineabarra.h"
#include "content/parole.h"
#include "ui/coloriopzioni.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"
#include "ui/suono.h"

#include <QAction>
#include <QCoreApplication>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

namespace {

constexpr Rgb kRiposo{255, 224, 192};
constexpr Rgb kFuoco{255, 192, 128};
const QColor kInchiostro(20, 40, 120);
const QColor kBordo(225, 160, 100);

QString rgb(const QColor &c)
{
    return QStringLiteral("rgb(%1, %2, %3)").arg(c.red()).arg(c.green()).arg(c.blue());
}

// A label whose accessible name tells its role; the screen adds the text
// it shows (see frmOperativo::scrivi).
QLabel *etichetta(QWidget *parent, const char *nome, const QString &ruolo, const QRect &g,
                  const QFont &f, Qt::Alignment allinea, const QString &testo = {})
{
    auto *l = new QLabel(testo, parent);
    l->setObjectName(QLatin1String(nome));
    l->setGeometry(g);
    l->setFont(f);
    l->setAlignment(allinea);
    l->setProperty("ruolo", ruolo);
    l->setAccessibleName(testo.trimmed().isEmpty() ? ruolo : testo.trimmed());
    l->setStyleSheet(QStringLiteral("QLabel { color: %1; background: transparent; }").arg(rgb(kInchiostro)));
    return l;
}

// The box the answer is built in: a clear frame, large bold text.
void casella(QLabel *l)
{
    l->setStyleSheet(QStringLiteral("QLabel { color: %1; background: %2; border: 3px solid %3;"
                                    " border-radius: 10px; }")
                         .arg(rgb(kInchiostro), rgb(QColor(255, 240, 225)), rgb(kBordo.darker(130))));
}

QGroupBox *riquadro(QWidget *parent, const char *nome, const QString &ruolo, const QRect &g,
                    const QString &titolo = {})
{
    auto *r = new QGroupBox(titolo, parent);
    r->setObjectName(QLatin1String(nome));
    r->setGeometry(g);
    r->setAccessibleName(ruolo);
    r->setFlat(false);
    // Opaque, so that the frame in front hides the ones stacked behind it.
    r->setAutoFillBackground(true);
    QString stile = QStringLiteral("QGroupBox { background: %1; border: 3px solid %2; border-radius: 14px; }")
                        .arg(rgb(QColor(kRiposo.r, kRiposo.g, kRiposo.b)), rgb(kBordo));
    if (!titolo.isEmpty())
        stile += QStringLiteral(" QGroupBox { color: %1; }"
                                " QGroupBox::title { subcontrol-origin: padding; subcontrol-position: top center;"
                                " padding: 14px 10px 0px 10px; color: %1; }")
                     .arg(rgb(kInchiostro));
    r->setStyleSheet(stile);
    if (!titolo.isEmpty())
        r->setFont(FontArialPixel(40, true));
    return r;
}

// Keys laid out in one row of equal keys from x, y.
void posa(RigaOpzioni *riga, int da, int a, int x, int y, int larghezza, int altezza, int spazio,
          const QFont &f)
{
    for (int i = da; i <= a; ++i) {
        QPushButton *b = riga->bottone(i);
        b->setGeometry(x + (i - da) * (larghezza + spazio), y, larghezza, altezza);
        b->setFont(f);
    }
}

void nomina(RigaOpzioni *riga, const QStringList &nomi)
{
    for (int i = 0; i < nomi.size(); ++i)
        riga->bottone(i)->setAccessibleName(nomi.at(i));
}

RigaOpzioni::Opzioni colori(const Settings &s)
{
    RigaOpzioni::Opzioni o;
    o.fuoco = ColoreDaTesto(s.ColoreFuoco, QColor(kFuoco.r, kFuoco.g, kFuoco.b));
    o.riposo = ColoreDaTesto(s.ColoreRiposo, QColor(kRiposo.r, kRiposo.g, kRiposo.b));
    o.saltaDisabilitati = true;
    o.flag = RigaOpzioni::Flag::PerRiga;
    o.mouseImpostaFlagTasto = false;
    return o;
}

} // namespace

frmOperativo::frmOperativo(Stato &stato, QWidget *parent) : QMainWindow(parent), stato_(stato)
{
    setObjectName(QStringLiteral("frmOperativo"));
    setWindowTitle(stato_.titoli.caption.isEmpty() ? QStringLiteral("COMPOSIZIONE") : stato_.titoli.caption);
    // The key colours are fixed on this screen, whatever the scanning colours
    // chosen for the options panel.
    stato_.settings.ColoreRiposo = TestoColore(kRiposo);
    stato_.settings.ColoreFuoco = TestoColore(kFuoco);
    costruisci();
    costruisciMenu();
    resize(kLarghezza, kAltezza + menuBar()->sizeHint().height());
    setMinimumSize(kLarghezza / 2, kAltezza / 2);
    resize_.prendi(centralWidget());
    carica();
}

frmOperativo::~frmOperativo()
{
    stato_.mostraNumeroModello = nullptr;
}

void frmOperativo::costruisci()
{
    auto *pagina = new QWidget(this);
    pagina->setObjectName(QStringLiteral("pagina"));
    setCentralWidget(pagina);
    pagina->resize(kLarghezza, kAltezza);
    pagina->setAutoFillBackground(true);
    QPalette p = pagina->palette();
    p.setColor(QPalette::Window, QColor(kRiposo.r, kRiposo.g, kRiposo.b));
    p.setColor(QPalette::WindowText, kInchiostro);
    pagina->setPalette(p);

    costruisciIntestazione(pagina);
    costruisciRiquadriEsercizio(pagina);
    costruisciTastierini(pagina);
    costruisciRiquadriAiuto(pagina);
}

void frmOperativo::costruisciIntestazione(QWidget *pagina)
{
    const auto sx = Qt::AlignLeft | Qt::AlignVCenter;
    label1_ = etichetta(pagina, "Label1", QStringLiteral("argomento"), {10, 8, 850, 34}, FontArialPixel(18, true), sx);
    label2_ = etichetta(pagina, "Label2", QStringLiteral("tipo di esercizio"), {10, 46, 850, 32},
                        FontArialPixel(18, true), sx);
    const QString scuro = rgb(QColor(128, 0, 0));
    label1_->setStyleSheet(QStringLiteral("QLabel { background: rgb(255, 240, 150); color: %1;"
                                          " border-radius: 6px; padding-left: 8px; }").arg(scuro));
    label2_->setStyleSheet(QStringLiteral("QLabel { background: rgb(250, 200, 110); color: %1;"
                                          " border-radius: 6px; padding-left: 8px; }").arg(scuro));
    label7_ = etichetta(pagina, "Label7", QStringLiteral("modello"), {870, 8, 120, 70}, FontArialPixel(14),
                        Qt::AlignRight | Qt::AlignTop);
    label7_->setStyleSheet(QStringLiteral("QLabel { color: rgb(150, 110, 80); background: transparent; }"));

    // Counts and times: a caption over each value.
    struct Contatore {
        const char *titolo, *nome, *ruolo;
        QString didascalia;
        QLabel **valore;
    };
    const Contatore contatori[] = {
        {"lblTitoloOperazione", "LblOperazione", "esercizio numero", QStringLiteral("Esercizio"), &lblOperazione_},
        {"lblTitoloEsatte", "lblRisEsatte", "risposte esatte", QStringLiteral("Esatte"), &lblRisEsatte_},
        {"lblTitoloErrate", "lblRisErrate", "risposte errate", QStringLiteral("Errate"), &lblRisErrate_},
        {"lblTitoloTempoParziale", "LblTempoParziale", "secondi per questo esercizio",
         QStringLiteral("Secondi"), &lblTempoParziale_},
        {"lblTitoloTempoTotale", "LblTempoTotale", "secondi in tutto", QStringLiteral("Tempo totale"),
         &lblTempoTotale_},
    };
    int x = 10;
    for (const Contatore &c : contatori) {
        etichetta(pagina, c.titolo, c.didascalia, {x, 84, 140, 26}, FontArialPixel(17), Qt::AlignCenter, c.didascalia);
        *c.valore = etichetta(pagina, c.nome, QString::fromLatin1(c.ruolo), {x, 110, 140, 50}, FontArialPixel(32, true),
                              Qt::AlignCenter);
        casella(*c.valore);
        x += 150;
    }
    lblEsito_ = etichetta(pagina, "LblEsito", QStringLiteral("esito"), {770, 84, 220, 76}, FontArialPixel(44, true),
                          Qt::AlignCenter);
}

void frmOperativo::costruisciRiquadriEsercizio(QWidget *pagina)
{
    const QRect area(10, 168, 980, 212);
    const QFont domanda = FontArialPixel(34);
    const QFont risposta = FontArialPixel(44, true);
    const auto dx = Qt::AlignRight | Qt::AlignVCenter;
    const auto sx = Qt::AlignLeft | Qt::AlignVCenter;
    const QString verde = QStringLiteral("QLabel { color: rgb(0, 120, 0); background: transparent; }");
    const QFont consegna = FontArialPixel(24);

    // Find the number: question = [answer] symbol
    fraSimbolo_ = riquadro(pagina, "fraSimbolo", QStringLiteral("trova il simbolo"), area);
    fraNumero_ = riquadro(pagina, "fraNumero", QStringLiteral("trova il numero"), area);
    lblNumero1_ = etichetta(fraNumero_, "lblNumero1", QStringLiteral("domanda"), {10, 30, 520, 90}, domanda, dx);
    lblUguale_ = etichetta(fraNumero_, "lblUguale", QStringLiteral("uguale"), {535, 30, 50, 90}, domanda,
                           Qt::AlignCenter, QStringLiteral("="));
    lblRisultato_ = etichetta(fraNumero_, "LblRisultato", QStringLiteral("risposta"), {590, 30, 250, 90},
                              risposta, Qt::AlignCenter, QStringLiteral("?"));
    casella(lblRisultato_);
    label11_ = etichetta(fraNumero_, "Label11", QStringLiteral("simbolo"), {845, 30, 125, 90}, domanda, sx);
    lblCorrezione_ = etichetta(fraNumero_, "lblCorrezione", QStringLiteral("risposta giusta"),
                               {590, 126, 250, 72}, risposta, Qt::AlignCenter);
    lblCorrezione_->setStyleSheet(verde);
    etichetta(fraNumero_, "lblConsegna", QStringLiteral("consegna"), {20, 136, 540, 56}, consegna, sx,
              QStringLiteral("Scrivi il numero"));
    line1_ = new LineaBarra(LineaBarra::Verso::Discendente, fraNumero_);
    line2_ = new LineaBarra(LineaBarra::Verso::Ascendente, fraNumero_);

    // Find the symbol: question = number [answer]
    lblNumero1S_ = etichetta(fraSimbolo_, "lblNumero1S", QStringLiteral("domanda"), {10, 30, 500, 90}, domanda, dx);
    lblUgualeS_ = etichetta(fraSimbolo_, "lblUgualeS", QStringLiteral("uguale"), {515, 30, 50, 90}, domanda,
                            Qt::AlignCenter, QStringLiteral("="));
    label11S_ = etichetta(fraSimbolo_, "Label11S", QStringLiteral("numero"), {570, 30, 220, 90}, domanda,
                          Qt::AlignCenter);
    lblRisultatoS_ = etichetta(fraSimbolo_, "lblRisultatoS", QStringLiteral("risposta"), {800, 30, 160, 90},
                               risposta, Qt::AlignCenter, QStringLiteral("?"));
    casella(lblRisultatoS_);
    lblCorrezioneS_ = etichetta(fraSimbolo_, "lblCorrezioneS", QStringLiteral("risposta giusta"),
                                {800, 126, 160, 72}, risposta, Qt::AlignCenter);
    lblCorrezioneS_->setStyleSheet(verde);
    label15_ = etichetta(fraSimbolo_, "Label15", QStringLiteral("consegna"), {20, 136, 540, 56}, consegna, sx,
                         QStringLiteral("Scegli il simbolo"));
    lineA1_ = new LineaBarra(LineaBarra::Verso::Discendente, fraSimbolo_);
    lineA2_ = new LineaBarra(LineaBarra::Verso::Ascendente, fraSimbolo_);

    const struct {
        QWidget *linea;
        const char *nome;
        QLabel *sopra;
    } linee[] = {{line1_, "Line1", lblRisultato_}, {line2_, "Line2", lblRisultato_},
                 {lineA1_, "LineA1", lblRisultatoS_}, {lineA2_, "LineA2", lblRisultatoS_}};
    for (const auto &l : linee) {
        l.linea->setObjectName(QLatin1String(l.nome));
        l.linea->setAccessibleName(QStringLiteral("risposta cancellata"));
        l.linea->setGeometry(l.sopra->geometry());
        l.linea->hide();
    }
}

void frmOperativo::costruisciTastierini(QWidget *pagina)
{
    const QRect area(10, 390, 980, 282);
    const RigaOpzioni::Opzioni o = colori(stato_.settings);

    fraSimboli_ = riquadro(pagina, "FraSimboli", QStringLiteral("tasti dei simboli"), area);
    fraTastierino_ = riquadro(pagina, "FraTastierino", QStringLiteral("tastierino"), area);

    QStringList tasti;
    for (int i = 0; i <= 9; ++i)
        tasti << QString::number(i);
    tasti << QStringLiteral(",") << QStringLiteral("Cancella") << QStringLiteral("Verifica")
          << QStringLiteral("Avanti") << QStringLiteral("Esci");
    option2_ = new RigaOpzioni(fraTastierino_, tasti, QStringLiteral("Option2"), o);
    posa(option2_, 0, 10, 10, 16, 80, 112, 8, FontArialPixel(46, true));
    posa(option2_, 11, 14, 10, 144, 233, 120, 9, FontArialPixel(32, true));
    QStringList nomi = tasti;
    nomi[10] = QStringLiteral("virgola");
    nomina(option2_, nomi);
    // Fifteen keys are too many to wait through one by one with one switch:
    // automatic scanning takes them in three groups, each a stretch of the
    // keypad, each starting at its key most often wanted. The comma and
    // "Verifica" come first in theirs: nearly every answer needs both. Only
    // then: the groups' frames change what a screen reader walks through.
    if (stato_.accesso.automatica && stato_.accesso.gruppi)
        option2_->setGruppi({{QStringLiteral("cifre da 0 a 4"), {0, 1, 2, 3, 4}},
                             {QStringLiteral("virgola e cifre da 5 a 9"), {10, 5, 6, 7, 8, 9}},
                             {QStringLiteral("Verifica, Avanti, Esci, Cancella"), {12, 13, 14, 11}}});

    option1_ = new RigaOpzioni(fraSimboli_,
                               {QStringLiteral("h"), QStringLiteral("da"), QStringLiteral("u"), QStringLiteral("d"),
                                QStringLiteral("Verifica"), QStringLiteral("Avanti"), QStringLiteral("Esci")},
                               QStringLiteral("Option1"), o);
    posa(option1_, 0, 3, 10, 16, 233, 112, 9, FontArialPixel(46, true));
    posa(option1_, 4, 6, 10, 144, 312, 120, 11, FontArialPixel(32, true));
    nomina(option1_, {QString(), QString(), QString(), QString(), QStringLiteral("Verifica"),
                      QStringLiteral("Avanti"), QStringLiteral("Esci")});

    option2_->tasto = [this](int i, QKeyEvent *k) { return tastoTastierino(i, k); };
    option1_->tasto = [this](int i, QKeyEvent *k) { return tastoSimboli(i, k); };
    connect(option2_, &RigaOpzioni::scelto, this, [this](int i) {
        if (option2_->bottone(i)->isEnabled())
            confine([&] { azioneTastierino(i); });
    });
    connect(option1_, &RigaOpzioni::scelto, this, [this](int i) {
        if (option1_->bottone(i)->isEnabled())
            confine([&] { azioneSimboli(i); });
    });
}

void frmOperativo::costruisciRiquadriAiuto(QWidget *pagina)
{
    const QRect area(10, 390, 980, 282);
    const RigaOpzioni::Opzioni o = colori(stato_.settings);
    const QFont tasto = FontArialPixel(46, true);

    fraAvviso_ = riquadro(pagina, "fraAvviso", QStringLiteral("fine degli esercizi"), area);
    optAvviso_ = new RigaOpzioni(fraAvviso_, {QStringLiteral("Stampa"), QStringLiteral("Ricomincia")},
                                 QStringLiteral("optAvviso"), o);
    posa(optAvviso_, 0, 1, 150, 34, 320, 130, 40, tasto);
    nomina(optAvviso_, {QStringLiteral("Stampa"), QStringLiteral("Ricomincia")});
    label4_ = etichetta(fraAvviso_, "Label4", QStringLiteral("avviso"), {20, 190, 940, 60}, FontArialPixel(30, true),
                        Qt::AlignCenter, QStringLiteral("Se ricominci gli esercizi andranno persi"));
    label4_->setStyleSheet(QStringLiteral("QLabel { color: rgb(190, 0, 0); background: transparent; }"));

    fraIntervento_ = riquadro(pagina, "fraIntervento", QStringLiteral("intervento"), area);
    lblIntervento_ = etichetta(fraIntervento_, "lblIntervento", QStringLiteral("intervento"), {20, 24, 940, 70},
                               FontArialPixel(44, true), Qt::AlignCenter, QStringLiteral("Intervengo io"));
    optOK_ = new RigaOpzioni(fraIntervento_, {QStringLiteral("OK")}, QStringLiteral("optOK"), o);
    optOK_->bottone(0)->setObjectName(QStringLiteral("optOK"));
    posa(optOK_, 0, 0, 350, 116, 280, 130, 0, tasto);
    nomina(optOK_, {QStringLiteral("OK")});

    fraAiuto_ = riquadro(pagina, "fraAiuto", QStringLiteral("Ti aiuto ?"), area, QStringLiteral("Ti aiuto ?"));
    option3_ = new RigaOpzioni(fraAiuto_, {QStringLiteral("SI"), QStringLiteral("NO")}, QStringLiteral("Option3"), o);
    posa(option3_, 0, 1, 170, 104, 280, 130, 80, tasto);
    nomina(option3_, {QStringLiteral("SI"), QStringLiteral("NO")});
    option3_->tasto = [this](int i, QKeyEvent *k) { return tastoAiuto(i, k); };

    const auto soloAbilitati = [](RigaOpzioni *riga, auto azione) {
        return [riga, azione](int i) {
            if (riga->bottone(i)->isEnabled())
                confine([&] { azione(i); });
        };
    };
    connect(option3_, &RigaOpzioni::scelto, this, soloAbilitati(option3_, [this](int i) { azioneAiuto(i); }));
    connect(optOK_, &RigaOpzioni::scelto, this, soloAbilitati(optOK_, [this](int) { MostraCorrezione(); }));
    connect(optAvviso_, &RigaOpzioni::scelto, this, soloAbilitati(optAvviso_, [this](int i) { azioneAvviso(i); }));
}

void frmOperativo::costruisciMenu()
{
    QMenuBar *barra = menuBar();
    barra->setFont(FontArialPixel(16));
    QAction *visualizza = barra->addAction(QStringLiteral("Visualizza esercizio"));
    visualizza->setObjectName(QStringLiteral("mnuVisualizza"));
    visualizza->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    QAction *quadro = barra->addAction(QStringLiteral("Il quadro"));
    quadro->setObjectName(QStringLiteral("mnuQuadro"));
    connect(visualizza, &QAction::triggered, this, [this] { confine([&] { apriStampa(); }); });
}

// What happens when the screen is loaded, before the first item.
void frmOperativo::carica()
{
    const Settings &s = stato_.settings;
    scrivi(label1_, stato_.titoli.Label6[2] + Spazi(10) + s.TestoOrdineSimboli);
    scrivi(label2_, s.TestoTipoEsercizio);
    risposteErrate_ = risposteEsatte_ = 0;
    tempoParziale_ = tempoTotale_ = 0;

    const std::array<QString, 5> unita = NomiUnita(stato_.titoli.Label6[2], stato_.topic.ClassePosizioni);
    for (int i = 0; i < 4; ++i) {
        const QString simbolo = stato_.topic.Simboli[std::size_t(i + 1)];
        QPushButton *b = option1_->bottone(i);
        b->setText(simbolo);
        b->setAccessibleName(Trim(simbolo).isEmpty() ? Frasi::simboloVuoto
                                                     : QStringLiteral("simbolo ") + Trim(simbolo));
        // The voice names the unit, never the letters of its symbol.
        const QString &nome = unita[std::size_t(i + 1)];
        b->setProperty("parlato", Trim(simbolo).isEmpty() || nome.isEmpty() ? Frasi::simboloVuoto : nome);
    }
    for (QString &riga : stato_.record.RigheEsercizio)
        riga.clear();

    if (ISound *suono = stato_.servizi.suono)
        suono->carica(QCoreApplication::applicationDirPath() + QStringLiteral("/positivo.wav"));
    stato_.mostraNumeroModello = [this](qint16 n) { scrivi(label7_, QString::number(n)); };

    confine([&] { NuovoEsercizio(); });
}
