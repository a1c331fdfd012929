#include "results/frmrisultati.h"

#include "content/piattaforma.h"
#include "printing/stampa.h"
#include "results/grafico.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/sceltafile.h"
#include "ui/schermi.h"
#include "ui/stampante.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

constexpr int kPassoRiga = 16;

QString quando(const Risultato &r)
{
    return r.quando.toString(QStringLiteral("dd/MM/yyyy HH:mm"));
}

QLabel *etichetta(QWidget *parent, const QString &nome, const QRect &g, const QFont &f)
{
    auto *l = new QLabel(parent);
    l->setObjectName(nome);
    l->setGeometry(g);
    l->setFont(f);
    l->setTextFormat(Qt::PlainText);
    return l;
}

} // namespace

// The rows of the file, newest first, for the table.
class FrmRisultati::Modello : public QAbstractTableModel
{
public:
    explicit Modello(const QList<Risultato> &r, QObject *parent) : QAbstractTableModel(parent), r_(r) {}
    void cambiato()
    {
        beginResetModel();
        endResetModel();
    }
    int indice(int riga) const { return int(r_.size()) - 1 - riga; }
    int rowCount(const QModelIndex &p) const override { return p.isValid() ? 0 : int(r_.size()); }
    int columnCount(const QModelIndex &p) const override { return p.isValid() ? 0 : 6; }
    QVariant data(const QModelIndex &i, int ruolo) const override
    {
        if (ruolo == Qt::TextAlignmentRole)
            return i.column() >= 3 ? int(Qt::AlignRight | Qt::AlignVCenter) : int(Qt::AlignLeft | Qt::AlignVCenter);
        if (ruolo != Qt::DisplayRole || !i.isValid())
            return {};
        const Risultato &r = r_.at(indice(i.row()));
        switch (i.column()) {
        case 0: return quando(r);
        case 1: return QStringLiteral("%1. %2").arg(r.numeroArgomento).arg(r.argomento.simplified());
        case 2: return r.tipo;
        case 3: return r.esatte;
        case 4: return r.errate;
        default: return r.secondi;
        }
    }
    QVariant headerData(int s, Qt::Orientation o, int ruolo) const override
    {
        static const char *const titoli[] = {"Data", "Argomento", "Tipo", "Esatte", "Errate", "Secondi"};
        if (o != Qt::Horizontal || ruolo != Qt::DisplayRole || s < 0 || s > 5)
            return QAbstractTableModel::headerData(s, o, ruolo);
        return QString::fromLatin1(titoli[s]);
    }

private:
    const QList<Risultato> &r_;
};

FrmRisultati::FrmRisultati(Stato &stato, QWidget *parent)
    : QWidget(parent, Qt::Window), stato_(stato), percorso_(NomeFileRisultati(stato.settings.NomeFile))
{
    PreparaPannello(this, QStringLiteral("FrmRisultati"), QStringLiteral("Risultati"), {kLarghezza, kAltezza});

    etichetta(this, QStringLiteral("lblTitolo"), {20, 6, 400, 30}, FontArial(14, true))
        ->setText(QStringLiteral("Risultati degli esercizi"));
    lblStato_ = etichetta(this, QStringLiteral("lblStato"), {430, 4, 550, 50}, FontArial(9));
    lblStato_->setWordWrap(true);
    lblStato_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    grafico_ = new GraficoRisultati(this);
    grafico_->setGeometry(20, 58, 960, 130);
    connect(grafico_, &GraficoRisultati::scelto, this, [this](int i) { scegli(i); });

    // The table lives in a frame of its own: the frame is scaled with the
    // screen, the table's inner parts are laid out by the table itself.
    auto *cornice = new QWidget(this);
    cornice->setObjectName(QStringLiteral("cornice"));
    cornice->setGeometry(20, 194, 960, 140);

    QFrame *foglio = Foglio(this, QStringLiteral("Righe dell'esercizio scelto"), {20, 340, 960, 352});
    esercizio_ = etichetta(foglio, QStringLiteral("lblEsercizio"), {8, 4, 940, 20}, FontArial(10, true));
    QFont riga(QStringLiteral("Courier New"), 10, QFont::Bold);
    riga.setStyleHint(QFont::TypeWriter);
    for (int i = 0; i < kRigheRisultato; ++i)
        righe_[std::size_t(i)] = etichetta(foglio, QStringLiteral("LblRiga(%1)").arg(i + 1),
                                           {8, 26 + i * kPassoRiga, 944, kPassoRiga}, riga);

    tasti_ = new RigaOpzioni(this, {QStringLiteral("Più recente"), QStringLiteral("Meno recente"),
                                    QStringLiteral("Stampa"), QStringLiteral("Esporta"), QStringLiteral("Esci")},
                             QStringLiteral("Risultati"));
    const QStringList nomi{QStringLiteral("Esercizio più recente"), QStringLiteral("Esercizio meno recente"),
                           QStringLiteral("Stampa le righe dell'esercizio scelto"),
                           QStringLiteral("Esporta una copia del file dei risultati"), QStringLiteral("Esci")};
    for (int i = 0; i < tasti_->count(); ++i) {
        QPushButton *b = tasti_->bottone(i);
        b->setGeometry(20 + i * 195, 700, 180, 46);
        b->setFont(FontArial(12, true));
        b->setAccessibleName(nomi[i]);
    }
    tasti_->tasto = [this](int i, QKeyEvent *k) { return tasto(i, k); };
    connect(tasti_, &RigaOpzioni::scelto, this, [this](int i) { confine([&] { comando(i); }); });

    resize_.prendi(this);

    // Made after the screen's controls were taken for scaling: the frame
    // moves, the table fills it.
    modello_ = new Modello(letti_.risultati, this);
    // A list of rows with columns: unlike a table view it has no corner key
    // for a screen reader to stumble on, and it keeps its rows one line high.
    tabella_ = new QTreeView(cornice);
    tabella_->setObjectName(QStringLiteral("tabella"));
    tabella_->setAccessibleName(QStringLiteral("Esercizi, dal più recente"));
    tabella_->setModel(modello_);
    // The keys of the row move through it; the mouse chooses in it.
    tabella_->setFocusPolicy(Qt::NoFocus);
    tabella_->setSelectionBehavior(QAbstractItemView::SelectRows);
    tabella_->setSelectionMode(QAbstractItemView::SingleSelection);
    tabella_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    tabella_->setRootIsDecorated(false);
    tabella_->setItemsExpandable(false);
    tabella_->setUniformRowHeights(true);
    tabella_->setAlternatingRowColors(true);
    tabella_->setFont(FontArial(10));
    QHeaderView *testata = tabella_->header();
    testata->setFont(FontArial(10, true));
    testata->setStretchLastSection(false);
    testata->setDefaultAlignment(Qt::AlignCenter);
    for (int c : {0, 3, 4, 5})
        testata->resizeSection(c, c ? 80 : 140);
    testata->setSectionResizeMode(1, QHeaderView::Stretch);
    testata->resizeSection(2, 260);
    auto *strato = new QVBoxLayout(cornice);
    strato->setContentsMargins(0, 0, 0, 0);
    strato->addWidget(tabella_);
    connect(tabella_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &i) { scegli(i.isValid() ? modello_->indice(i.row()) : -1); });

    carica();
    tasti_->bottone(tasti_->pronto(kStampa) ? kStampa : kEsci)->setFocus();
}

FrmRisultati::~FrmRisultati() = default;

void FrmRisultati::carica()
{
    const QFileInfo info(percorso_);
    letto_ = info.lastModified();
    dimensione_ = info.exists() ? info.size() : -1;
    letti_ = LeggiRisultati(percorso_);
    modello_->cambiato();
    grafico_->mostra(&letti_.risultati);
    // The name only: the folder is the one the program works in, and the
    // whole path is a hover or a screen reader away.
    const QString file = info.fileName();
    lblStato_->setToolTip(QDir::toNativeSeparators(info.absoluteFilePath()));
    lblStato_->setAccessibleDescription(lblStato_->toolTip());
    const qsizetype n = letti_.risultati.size();
    QString t = dimensione_ < 0
                    ? QStringLiteral("Ancora nessun esercizio: il file %1 nasce alla fine del primo esercizio finito.").arg(file)
                : n == 0 ? QStringLiteral("Nessun esercizio nel file %1.").arg(file)
                : n == 1 ? QStringLiteral("1 esercizio nel file %1.").arg(file)
                         : QStringLiteral("%1 esercizi nel file %2.").arg(n).arg(file);
    if (letti_.scartate == 1)
        t += QStringLiteral(" 1 riga danneggiata non si può leggere ed è saltata.");
    else if (letti_.scartate > 1)
        t += QStringLiteral(" %1 righe danneggiate non si possono leggere e sono saltate.").arg(letti_.scartate);
    lblStato_->setText(t);
    scelto_ = -2; // whatever is chosen now is news
    scegli(int(n) - 1);
    tasti_->bottone(kEsporta)->setEnabled(dimensione_ > 0);
}

void FrmRisultati::scegli(int indice)
{
    const int n = int(letti_.risultati.size());
    indice = n == 0 ? -1 : std::clamp(indice, 0, n - 1);
    if (indice == scelto_)
        return;
    scelto_ = indice;
    const Risultato *r = indice >= 0 ? &letti_.risultati.at(indice) : nullptr;
    if (r) {
        const int riga = n - 1 - indice;
        tabella_->setCurrentIndex(modello_->index(riga, 0));
        tabella_->scrollTo(modello_->index(riga, 0));
    }
    esercizio_->setText(r ? QStringLiteral("%1   %2   %3: %4 esatte, %5 errate, %6 secondi")
                                .arg(quando(*r), r->argomento.simplified(), r->tipo)
                                .arg(r->esatte)
                                .arg(r->errate)
                                .arg(r->secondi)
                          : QString());
    esercizio_->setAccessibleName(r ? QStringLiteral("Esercizio scelto: ") + esercizio_->text()
                                    : QStringLiteral("Nessun esercizio scelto"));
    for (int i = 0; i < kRigheRisultato; ++i) {
        QLabel *l = righe_[std::size_t(i)];
        l->setText(r ? r->righe.value(i) : QString());
        const QString t = l->text().simplified();
        l->setAccessibleName(t.isEmpty() ? QStringLiteral("Riga %1").arg(i + 1)
                                         : QStringLiteral("Riga %1: %2").arg(i + 1).arg(t));
    }
    grafico_->evidenzia(indice);
    // A key that has nothing to do is passed over by the scan.
    tasti_->bottone(kPiuRecente)->setEnabled(r && indice < n - 1);
    tasti_->bottone(kMenoRecente)->setEnabled(r && indice > 0);
    tasti_->bottone(kStampa)->setEnabled(r);
}

void FrmRisultati::sposta(int verso)
{
    if (scelto_ >= 0)
        scegli(scelto_ + verso);
}

bool FrmRisultati::tasto(int i, QKeyEvent *k)
{
    switch (k->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        comando(i);
        return true;
    case Qt::Key_Up:
        sposta(1);
        return true;
    case Qt::Key_Down:
        sposta(-1);
        return true;
    case Qt::Key_PageUp:
        sposta(10);
        return true;
    case Qt::Key_PageDown:
        sposta(-10);
        return true;
    case Qt::Key_Home:
        scegli(int(letti_.risultati.size()) - 1);
        return true;
    case Qt::Key_End:
        scegli(0);
        return true;
    default:
        return false;
    }
}

void FrmRisultati::comando(int i)
{
    switch (i) {
    case kPiuRecente:
        sposta(1);
        break;
    case kMenoRecente:
        sposta(-1);
        break;
    case kStampa:
        stampa();
        break;
    case kEsporta:
        esporta();
        break;
    default:
        if (stato_.servizi.schermi)
            stato_.servizi.schermi->chiudi(Schermo::Risultati);
        break;
    }
    // The key chosen may have nothing more to do: the focus goes on to one that has.
    if (QWidget *f = QApplication::focusWidget(); f && !f->isEnabled())
        tasti_->passo();
}

void FrmRisultati::stampa()
{
    if (scelto_ < 0)
        return;
    const Risultato &r = letti_.risultati.at(scelto_);
    try {
        StampaRighe(stato_, r.righe,
                    QStringLiteral("Esercizio del %1, ore %2")
                        .arg(r.quando.toString(QStringLiteral("dd/MM/yyyy")), r.quando.toString(QStringLiteral("HH:mm"))));
    } catch (const ErroreStampa &e) {
        if (stato_.servizi.messaggi)
            stato_.servizi.messaggi->mostra(e.testo(), QStringLiteral("Errore di stampa"), IMessageBox::Icona::Critica);
    }
}

void FrmRisultati::esporta()
{
    ISceltaFile *scelta = stato_.servizi.file;
    if (!scelta)
        return;
    QString cartella = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(cartella).isDir())
        cartella = QDir::homePath();
    const QString proposto = QDir(cartella).filePath(
        QStringLiteral("%1Risultati-%2.csv").arg(stato_.settings.NomeFile, QDate::currentDate().toString(Qt::ISODate)));
    const QString verso = scelta->salvaCome(QStringLiteral("Esporta i risultati"), proposto);
    if (verso.isEmpty())
        return;
    if (const QString errore = CopiaRisultati(percorso_, verso); !errore.isEmpty()) {
        if (stato_.servizi.messaggi)
            stato_.servizi.messaggi->mostra(
                QStringLiteral("I risultati non sono stati esportati nel file %1: %2.").arg(QDir::toNativeSeparators(verso), errore),
                QStringLiteral("Esporta"), IMessageBox::Icona::Critica);
        return;
    }
    lblStato_->setText(QStringLiteral("Copia dei risultati scritta nel file %1.").arg(QDir::toNativeSeparators(verso)));
}

// Back from an exercise with the screen still open: a file grown meanwhile
// is read again.
void FrmRisultati::changeEvent(QEvent *e)
{
    QWidget::changeEvent(e);
    if (e->type() != QEvent::ActivationChange || !isActiveWindow())
        return;
    const QFileInfo info(percorso_);
    if ((info.exists() ? info.size() : -1) != dimensione_ || info.lastModified() != letto_)
        confine([&] { carica(); });
}

void FrmRisultati::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    resize_.applica();
}
