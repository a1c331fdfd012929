#include "settings/frmopzioni.h"

#include "content/errori.h"
#include "ui/coloriopzioni.h"
#include "settings/filesettings.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

template <typename T>
T *elemento(const QList<T *> &lista, int i)
{
    if (i < 0 || i >= lista.size())
        throw ErroreIntervallo("option index out of range");
    return lista.at(i);
}

const QStringList &argomenti()
{
    static const QStringList a{
        QStringLiteral("u    d    c    m :       unità  decimi centesimi millesimi"),
        QStringLiteral("k     h    da   u:      migliaia  centinaia  dxecine  unità"),
        QStringLiteral("m  dm  cm  mm:    metro  decimetro  centimetro  millimetro"),
        QStringLiteral("km hm dam  m:    chilometro, ettometro  decametro metro"),
        QStringLiteral("g    dg  cg  mg:    grammo  decigrammo   centigrammo   milligrammo "),
        QStringLiteral("kg   hg   dag   g:   chilogrammo ettogrammo decagrammo grammo"),
        QStringLiteral("t   q  Mg Kg :         tonnellata quintale miriagrammo chilogrammo"),
        QStringLiteral("l   dl  cl  ml:            litro  decilitro centilitro millilitro"),
        QStringLiteral("      hl dal l:            ettolitro  decalitro litro "),
    };
    return a;
}

} // namespace

FrmOpzioni::FrmOpzioni(Stato &stato, QWidget *parent) : QWidget(parent), stato_(stato)
{
    PreparaPannello(this, QStringLiteral("FrmOpzioni"), QStringLiteral("PANNELLO OPZIONI"), {kLarghezza, kAltezza});

    QGroupBox *quadro =
        riquadro(this, QStringLiteral("Frame2"), QStringLiteral("QUADRO DELLE SCELTE"), {10, 8, 700, 464});
    quadro->setFont(FontArial(11, true));

    const QStringList nomi = ColoriOpzioni::nomi();
    option1_ = elenco(riquadro(quadro, QStringLiteral("Frame3"), QStringLiteral("COLORE SFONDO PAGINA"),
                               {12, 28, 196, 330}),
                      QStringLiteral("Option1"), nomi, 1, 27);
    option27_ = elenco(riquadro(quadro, QStringLiteral("Frame4"), QStringLiteral("COLORE CARATTERI"),
                                {214, 28, 190, 330}),
                       QStringLiteral("Option27"), nomi, 1, 27);
    option17_ = elenco(riquadro(quadro, QStringLiteral("Frame5"), QStringLiteral("COLORE SCANSIONE"),
                                {410, 28, 280, 330}),
                       QStringLiteral("Option17"), ColoriOpzioni::nomiScansione(), 1, 27);

    const QStringList attivato{QStringLiteral("Attivato"), QStringLiteral("Disattivato")};
    const QList<QRadioButton *> option9 = elenco(
        riquadro(quadro, QStringLiteral("Frame6"), QStringLiteral("TIPO CARATTERI"), {12, 366, 164, 86}),
        QStringLiteral("Option9"), {QStringLiteral("MAIUSCOLO"), QStringLiteral("Minuscolo")}, 1, 26);
    elenco(riquadro(quadro, QStringLiteral("Frame7"), QStringLiteral("RINFORZO SONORO"), {182, 366, 164, 86}),
           QStringLiteral("Option28"), attivato, 1, 26);
    option3_ = elenco(riquadro(quadro, QStringLiteral("Frame8"), QStringLiteral("BEEP"), {352, 366, 164, 86}),
                      QStringLiteral("Option3"), attivato, 1, 26);
    elenco(riquadro(quadro, QStringLiteral("Frame9"), QStringLiteral("SINTESI VOCALE"), {522, 366, 166, 86}),
           QStringLiteral("Option11"), {QStringLiteral("Attivata"), QStringLiteral("Disattivata")}, 1, 26);

    QGroupBox *frame10 = riquadro(this, QStringLiteral("Frame10"), QString(), {10, 480, 700, 216});
    frame10->setAccessibleName(QStringLiteral("elenco degli argomenti"));
    const QList<QRadioButton *> option6 = elenco(frame10, QStringLiteral("Option6"), argomenti(), 1, 21);

    for (int i = 0; i < int(option1_.size()); ++i) {
        connect(option1_[i], &QRadioButton::clicked, this, [this, i] { confine([&] { clickSfondo(i); }); });
        connect(option27_[i], &QRadioButton::clicked, this, [this, i] { confine([&] { clickCaratteri(i); }); });
        connect(option17_[i], &QRadioButton::clicked, this, [this, i] { confine([&] { clickScansione(i); }); });
    }
    for (int i = 0; i < int(option9.size()); ++i)
        connect(option9[i], &QRadioButton::clicked, this, [this, i] { clickMaiuscolo(i); });
    for (int i = 0; i < int(option6.size()); ++i)
        connect(option6[i], &QRadioButton::clicked, this, [this, i] { clickArgomento(i); });

    frame1_ = riquadro(this, QStringLiteral("Frame1"), QStringLiteral("ANTEPRIMA DELLE TUE SCELTE"),
                       {720, 8, 270, 226});
    frame1_->setFont(FontArial(11, true));
    option4_ = new QPushButton(QStringLiteral("123"), frame1_);
    option4_->setObjectName(QStringLiteral("Option4"));
    option4_->setAccessibleName(QStringLiteral("anteprima del tasto evidenziato"));
    option4_->setGeometry(16, 36, 114, 70);
    option2_ = new QPushButton(QStringLiteral("AAAA"), frame1_);
    option2_->setObjectName(QStringLiteral("Option2"));
    option2_->setAccessibleName(QStringLiteral("anteprima del tasto a riposo"));
    option2_->setGeometry(140, 36, 114, 70);
    label5_ = new QLabel(QStringLiteral("ADC"), frame1_);
    label5_->setObjectName(QStringLiteral("Label5"));
    label5_->setGeometry(16, 124, 114, 70);
    label4_ = new QLabel(QStringLiteral("123"), frame1_);
    label4_->setObjectName(QStringLiteral("Label4"));
    label4_->setGeometry(140, 124, 114, 70);
    for (QWidget *w : {static_cast<QWidget *>(option4_), static_cast<QWidget *>(option2_),
                       static_cast<QWidget *>(label5_), static_cast<QWidget *>(label4_)})
        w->setFont(FontArial(22, true));
    label5_->setAlignment(Qt::AlignCenter);
    label4_->setAlignment(Qt::AlignCenter);
    testoLabel4_ = QColor(Qt::black);

    RigaOpzioni::Opzioni o;
    o.flag = RigaOpzioni::Flag::PerEvento;
    o.saltaDisabilitati = false;
    option5_ = new RigaOpzioni(this,
                               {QStringLiteral("Impostazioni predefinite"),
                                QStringLiteral("Memorizza nuove impostazioni"), QStringLiteral("Esci")},
                               QStringLiteral("Option5"), o);
    for (int i = 0; i < option5_->count(); ++i) {
        QPushButton *b = option5_->bottone(i);
        b->setFont(FontArial(12, true));
        b->setAccessibleName(b->text());
        b->setGeometry(720, 250 + i * 78, 270, 66);
    }
    option5_->tasto = [this](int i, QKeyEvent *k) { return tasto(i, k); };
    connect(option5_, &RigaOpzioni::scelto, this, [this](int i) { comando(i); });

    dipingiAnteprima();
    resize_.prendi(this);
}

QGroupBox *FrmOpzioni::riquadro(QWidget *parent, const QString &nome, const QString &titolo, const QRect &g)
{
    auto *f = new QGroupBox(titolo, parent);
    f->setObjectName(nome);
    f->setGeometry(g);
    if (!titolo.isEmpty())
        f->setAccessibleName(titolo);
    return f;
}

QList<QRadioButton *> FrmOpzioni::elenco(QGroupBox *frame, const QString &nome, const QStringList &captions,
                                         int colonne, int altezzaRiga)
{
    QList<QRadioButton *> out;
    const int larghezza = (frame->width() - 16) / colonne;
    const int righe = (int(captions.size()) + colonne - 1) / colonne;
    for (int i = 0; i < captions.size(); ++i) {
        auto *b = new QRadioButton(captions[i], frame);
        b->setObjectName(QStringLiteral("%1(%2)").arg(nome).arg(i));
        b->setFont(FontArial(10));
        b->setGeometry(10 + (i / righe) * larghezza, 24 + (i % righe) * altezzaRiga, larghezza - 4,
                       altezzaRiga - 2);
        out.append(b);
    }
    return out;
}

void FrmOpzioni::clickSfondo(int i)
{
    Settings &s = stato_.settings;
    s.ColoreSfondo = TestoColore(ColoriOpzioni::sfondo.at(std::size_t(i)));
    sfondoFrame_ = ColoreDaTesto(s.ColoreSfondo);
    s.IndiceSfondo = qint16(i);
    dipingiAnteprima();
}

void FrmOpzioni::clickCaratteri(int i)
{
    Settings &s = stato_.settings;
    s.ColoreCaratteri = TestoColore(ColoriOpzioni::caratteri.at(std::size_t(i)));
    s.IndiceCaratteri = qint16(i);
    testoAnteprima_ = testoLabel4_ = ColoreDaTesto(s.ColoreCaratteri);
    dipingiAnteprima();
    dipingiComandi();
}

void FrmOpzioni::clickScansione(int i)
{
    Settings &s = stato_.settings;
    s.ColoreScansioneChiaro = TestoColore(ColoriOpzioni::scansioneChiaro.at(std::size_t(i)));
    s.ColoreScansioneScuro = TestoColore(ColoriOpzioni::scansioneScuro.at(std::size_t(i)));
    sfondoOption4_ = ColoreDaTesto(s.ColoreScansioneScuro);
    // The resting key shows the page colour here, not the light scanning one.
    sfondoOption2_ = ColoreDaTesto(s.ColoreSfondo);
    s.IndiceScansione = qint16(i);
    dipingiAnteprima();
    dipingiComandi();
}

void FrmOpzioni::clickMaiuscolo(int i)
{
    const QString t = i == 0 ? QStringLiteral("AAAA") : QStringLiteral("aaaa");
    option4_->setText(t);
    option2_->setText(t);
    label5_->setText(t);
    label4_->setText(t);
}

void FrmOpzioni::clickArgomento(int)
{
    for (int p = 1; p <= 4; ++p)
        stato_.topic.Simboli[std::size_t(p)].clear();
}

void FrmOpzioni::comando(int i)
{
    Settings &s = stato_.settings;
    switch (i) {
    case 0:
        // Not the colours used when the file cannot be read: those are paler.
        s.ColoreSfondo = TestoColore({255, 200, 255});
        s.ColoreCaratteri = TestoColore({5, 5, 5});
        s.ColoreScansioneChiaro = s.ColoreSfondo;
        s.ColoreScansioneScuro = TestoColore({255, 50, 255});
        s.IndiceSfondo = 4;
        s.IndiceCaratteri = 9;
        s.IndiceScansione = 4;
        [[fallthrough]];
    case 1:
        ScriviImpostazioni(s);
        applicaImpostazioni();
        // The preview keeps what it shows; only the command row follows the
        // scanning colours now in force.
        dipingiComandi();
        break;
    case 2:
        if (IScreens *schermi = stato_.servizi.schermi)
            schermi->chiudi(Schermo::Opzioni);
        break;
    default:
        break;
    }
}

void FrmOpzioni::applicaImpostazioni()
{
    const Settings &s = stato_.settings;
    elemento(option1_, s.IndiceSfondo)->setChecked(true);
    elemento(option27_, s.IndiceCaratteri)->setChecked(true);
    elemento(option17_, s.IndiceScansione)->setChecked(true);
    option3_[s.BeepAttivo ? 0 : 1]->setChecked(true);
    // The panel never had a button of this name: the lookup finds nothing.
    if (s.ImpostazioneB.value_or(false))
        if (auto *b = findChild<QAbstractButton *>(QStringLiteral("Option29")))
            b->setChecked(true);
}

// What the panel shows whenever it comes to the front: the preview and the
// command row in the current colours, and the focus on the command row.
void FrmOpzioni::attiva()
{
    const Settings &s = stato_.settings;
    sfondoFrame_ = ColoreDaTesto(s.ColoreSfondo);
    testoAnteprima_ = ColoreDaTesto(s.ColoreCaratteri, Qt::black);
    sfondoOption4_ = ColoreDaTesto(s.ColoreScansioneScuro);
    sfondoOption2_ = ColoreDaTesto(s.ColoreScansioneChiaro);
    dipingiComandi();
    dipingiAnteprima();
    if (option5_->indiceFuoco() < 0)
        option5_->bottone(0)->setFocus();
}

void FrmOpzioni::dipingiComandi()
{
    const Settings &s = stato_.settings;
    option5_->setColori(ColoreDaTesto(s.ColoreScansioneScuro), ColoreDaTesto(s.ColoreScansioneChiaro));
}

void FrmOpzioni::dipingiAnteprima()
{
    // Flat, so that the preview shows the page colour exactly as chosen.
    const QColor pagina = sfondoFrame_.isValid() ? sfondoFrame_ : palette().color(QPalette::Window);
    frame1_->setStyleSheet(
        QStringLiteral("QGroupBox#Frame1 { background-color: %1; border: 2px solid %2; border-radius: 8px;"
                       " padding-top: 24px; }"
                       " QGroupBox#Frame1::title { subcontrol-origin: padding; subcontrol-position: top center;"
                       " padding: 4px; }")
            .arg(pagina.name(), pagina.darker(160).name()));

    const auto tasto = [](QPushButton *b, const QColor &sfondo, const QColor &testo) {
        b->setStyleSheet(QStringLiteral("QPushButton { background-color: %1; color: %2;"
                                        " border: 2px solid %3; border-radius: 10px; }")
                             .arg(sfondo.isValid() ? sfondo.name() : QStringLiteral("#ffffff"),
                                  testo.isValid() ? testo.name() : QStringLiteral("#000000"),
                                  sfondo.isValid() ? sfondo.darker(160).name() : QStringLiteral("#999999")));
    };
    tasto(option4_, sfondoOption4_, testoAnteprima_);
    tasto(option2_, sfondoOption2_, testoAnteprima_);
    const auto etichetta = [](QLabel *l, const QColor &testo) {
        QPalette lp = l->palette();
        lp.setColor(QPalette::WindowText, testo.isValid() ? testo : QColor(Qt::black));
        l->setPalette(lp);
    };
    etichetta(label5_, testoAnteprima_);
    etichetta(label4_, testoLabel4_);
}

bool FrmOpzioni::tasto(int indice, QKeyEvent *k)
{
    const int key = k->key();
    int verso = -1;
    switch (key) {
    case Qt::Key_I:
    case Qt::Key_1:
        verso = 0;
        break;
    case Qt::Key_M:
    case Qt::Key_2:
        verso = 1;
        break;
    case Qt::Key_E:
    case Qt::Key_3:
        verso = 2;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const int f = option5_->indiceFuoco();
        option5_->scegli(f >= 0 ? f : indice);
        return true;
    }
    case Qt::Key_Left:
    case Qt::Key_Up:
    case Qt::Key_Right:
    case Qt::Key_Down: {
        // The arrows walk the row as they walk any group of option buttons.
        const int n = option5_->count();
        const int passo = key == Qt::Key_Left || key == Qt::Key_Up ? n - 1 : 1;
        option5_->bottone((indice + passo) % n)->setFocus();
        return true;
    }
    default:
        return false;
    }
    option5_->bottone(verso)->setFocus();
    return true;
}

void FrmOpzioni::changeEvent(QEvent *e)
{
    QWidget::changeEvent(e);
    if (e->type() == QEvent::ActivationChange && isActiveWindow())
        attiva();
}

void FrmOpzioni::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    resize_.applica();
}
