#include "app/gestoreschermi.h"

#include "access/frmaccesso.h"
#include "app/frmautore.h"
#include "settings/frminizio.h"
#include "settings/frmopzioni.h"
#include "ui/resizecolore.h"
#include "stato/stato.h"

#include <QDialog>
#include <QEvent>

#include "exercise/frmoperativo.h"
#include "printing/frmstampaeserciziotre.h"
#include "printing/frmstampaschedetre.h"
#include "printing/frmsceltastampante.h"
#include "results/frmrisultati.h"

GestoreSchermi::GestoreSchermi(Stato &stato, QObject *parent)
    : QObject(parent), stato_(stato), fabbrica_(&GestoreSchermi::creaSchermo)
{
}

GestoreSchermi::~GestoreSchermi()
{
    for (auto &[s, w] : schermi_)
        if (w) {
            w->removeEventFilter(this);
            delete w.data();
        }
}

QWidget *GestoreSchermi::creaSchermo(Schermo s, Stato &stato, QWidget *proprietario)
{
    switch (s) {
    case Schermo::Inizio:
        return new FrmInizio(stato);
    case Schermo::Opzioni:
        return new FrmOpzioni(stato);
    case Schermo::Autore:
        return new FrmAutore(proprietario);
    case Schermo::Operativo:
        return new frmOperativo(stato);
    case Schermo::StampaEsercizio:
        return new FrmStampaEsercizioTre(stato);
    case Schermo::Schede:
        return new FrmStampaSchedeTre(stato);
    case Schermo::SceltaStampante:
        return new frmSceltaStampante(stato);
    case Schermo::Accesso:
        return new FrmAccesso(stato);
    case Schermo::Risultati:
        return new FrmRisultati(stato);
    }
    return nullptr;
}

void GestoreSchermi::setFabbrica(Fabbrica f)
{
    fabbrica_ = std::move(f);
}

QWidget *GestoreSchermi::schermo(Schermo s) const
{
    const auto it = schermi_.find(s);
    return it == schermi_.end() ? nullptr : it->second.data();
}

bool GestoreSchermi::caricato(Schermo s) const
{
    return schermo(s) != nullptr;
}

void GestoreSchermi::apri(Schermo s)
{
    QPointer<QWidget> w = schermo(s);
    if (!w) {
        w = fabbrica_(s, stato_, schermo(Schermo::Inizio));
        if (!w)
            return;
        schermi_[s] = w;
        w->installEventFilter(this);
        AdattaAlloSchermo(w, cornice());
    }
    if (auto *d = qobject_cast<QDialog *>(w.data()); d && s == Schermo::Autore) {
        d->exec();
        return;
    }
    w->show();
    w->raise();
    w->activateWindow();
}

// What the window system draws around a screen, as seen on one already on
// view; before any is, a title bar and a thin border.
QMargins GestoreSchermi::cornice() const
{
    for (const auto &[s, w] : schermi_) {
        if (w && w->isVisible()) {
            const QRect g = w->geometry(), f = w->frameGeometry();
            return {g.left() - f.left(), g.top() - f.top(), f.right() - g.right(), f.bottom() - g.bottom()};
        }
    }
    return {4, 32, 4, 4};
}

void GestoreSchermi::chiudi(Schermo s)
{
    const auto it = schermi_.find(s);
    if (it == schermi_.end())
        return;
    QPointer<QWidget> w = it->second;
    schermi_.erase(it);
    if (w) {
        w->removeEventFilter(this);
        // A modal box still on view ends its own event loop first.
        if (auto *d = qobject_cast<QDialog *>(w.data()); d && d->isVisible())
            d->reject();
        w->hide();
        w->deleteLater();
    }
    controllaFine();
}

void GestoreSchermi::controllaFine()
{
    for (const auto &[s, w] : schermi_)
        if (w && w->isVisible())
            return;
    emit tuttiChiusi();
}

bool GestoreSchermi::eventFilter(QObject *o, QEvent *e)
{
    // A screen closed from its window frame is unloaded. The start screen
    // does this itself, since it unloads the others with it; the about box
    // only goes out of view, as with its own key.
    if (e->type() == QEvent::Close) {
        for (const auto &[s, w] : schermi_) {
            if (w == o && s != Schermo::Inizio && s != Schermo::Autore) {
                const Schermo chiuso = s;
                chiudi(chiuso);
                break;
            }
        }
    }
    return QObject::eventFilter(o, e);
}
