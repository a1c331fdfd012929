#include "access/frmaccesso.h"

#include "access/fileaccesso.h"
#include "access/vociaccesso.h"
#include "content/piattaforma.h"
#include "stato/stato.h"
#include "ui/caratteri.h"
#include "ui/confine.h"
#include "ui/rigaopzioni.h"
#include "ui/schermi.h"

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace {

QLabel *etichetta(QWidget *parent, const QString &nome, const QString &testo, const QRect &g, const QFont &f)
{
    auto *l = new QLabel(testo, parent);
    l->setObjectName(nome);
    l->setGeometry(g);
    l->setFont(f);
    l->setWordWrap(true);
    return l;
}

} // namespace

FrmAccesso::FrmAccesso(Stato &stato, QWidget *parent)
    : QWidget(parent, Qt::Window), stato_(stato), bozza_(stato.accesso)
{
    PreparaPannello(this, QStringLiteral("FrmAccesso"), QStringLiteral("Accesso"), {kLarghezza, kAltezza});

    etichetta(this, QStringLiteral("lblTitolo"),
              QStringLiteral("Come l'alunno raggiunge i tasti: con la tastiera, con uno o due sensori"),
              {20, 10, 900, 34}, FontArial(14, true));

    QStringList captions;
    for (int v = 0; v < VociAccesso::kNumero; ++v)
        captions << QStringLiteral("−") << QStringLiteral("+");
    captions << QStringLiteral("Memorizza") << QStringLiteral("Esci");
    tasti_ = new RigaOpzioni(this, captions, QStringLiteral("Accesso"));

    const QFont grassetto = FontArial(12, true), normale = FontArial(10);
    for (int v = 0; v < VociAccesso::kNumero; ++v) {
        const int y = 52 + v * 56;
        const QString nome = VociAccesso::nome(v);
        etichetta(this, QStringLiteral("lblNome(%1)").arg(v), nome, {20, y, 180, 46}, grassetto);
        QLabel *valore = etichetta(this, QStringLiteral("lblValore(%1)").arg(v), {}, {272, y, 170, 46}, grassetto);
        valore->setAlignment(Qt::AlignCenter);
        valori_ << valore;
        QLabel *spiega = etichetta(this, QStringLiteral("lblSpiegazione(%1)").arg(v), VociAccesso::spiegazione(v),
                                   {516, y - 4, 404, 54}, normale);
        for (int verso = 0; verso < 2; ++verso) {
            QPushButton *b = tasti_->bottone(2 * v + verso);
            b->setGeometry(verso ? 452 : 210, y, 54, 46);
            b->setFont(FontArial(18, true));
            b->setAccessibleName(nome + (verso ? QStringLiteral(": aumenta") : QStringLiteral(": diminuisci")));
            b->setAccessibleDescription(spiega->text());
        }
    }
    for (int i : {kMemorizza, kEsci}) {
        QPushButton *b = tasti_->bottone(i);
        b->setGeometry(i == kMemorizza ? 250 : 490, 672, 200, 60);
        b->setFont(grassetto);
        b->setAccessibleName(b->text());
    }
    esito_ = etichetta(this, QStringLiteral("lblEsito"), {}, {20, 738, 900, 40}, normale);
    esito_->setTextInteractionFlags(Qt::TextSelectableByMouse);

    tasti_->tasto = [this](int i, QKeyEvent *k) { return tasto(i, k); };
    connect(tasti_, &RigaOpzioni::scelto, this, [this](int i) { confine([&] { comando(i); }); });
    mostra();
    resize_.prendi(this);
}

void FrmAccesso::mostra()
{
    for (int v = 0; v < VociAccesso::kNumero; ++v) {
        valori_[v]->setText(VociAccesso::valore(bozza_, v));
        valori_[v]->setAccessibleName(VociAccesso::nome(v) + QStringLiteral(": ") + valori_[v]->text());
    }
}

bool FrmAccesso::tasto(int i, QKeyEvent *k)
{
    switch (k->key()) {
    case Qt::Key_M:
        tasti_->bottone(kMemorizza)->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_E:
        tasti_->bottone(kEsci)->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        comando(i);
        return true;
    default:
        return false;
    }
}

void FrmAccesso::comando(int i)
{
    if (i < kMemorizza) {
        VociAccesso::passo(bozza_, i / 2, i % 2 ? 1 : -1);
        mostra();
        esito_->clear();
        return;
    }
    if (i == kMemorizza) {
        const QString nome = NomeFileAccesso(stato_.settings.NomeFile);
        QString errore;
        if (!ScriviAccesso(nome, bozza_, &errore)) {
            if (stato_.servizi.messaggi)
                stato_.servizi.messaggi->mostra(
                    QStringLiteral("Impossibile salvare le impostazioni di accesso nel file %1: %2").arg(nome, errore));
            return;
        }
        stato_.accesso = bozza_;
        esito_->setText(QStringLiteral("Impostazioni in uso e memorizzate nel file ") +
                        QDir::toNativeSeparators(QDir::current().absoluteFilePath(nome)));
        return;
    }
    if (stato_.servizi.schermi)
        stato_.servizi.schermi->chiudi(Schermo::Accesso);
}

void FrmAccesso::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    resize_.applica();
}
