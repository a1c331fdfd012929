#pragma once
// The teacher's access panel: every access setting with its value and what it
// does, "−" and "+" to change it, "Memorizza" to use and keep it, "Esci".
// Its keys are one scanned row, so it works by switch as well as by mouse.
#include "access/vociaccesso.h"
#include "stato/accesso.h"
#include "ui/resizecolore.h"
#include <QList>
#include <QWidget>

class QKeyEvent;
class QLabel;
class RigaOpzioni;
struct Stato;

class FrmAccesso : public QWidget
{
public:
    explicit FrmAccesso(Stato &stato, QWidget *parent = nullptr);

    static constexpr int kLarghezza = 940;
    static constexpr int kAltezza = 790;
    // Keys 2v and 2v+1 step line v down and up; then these two.
    static constexpr int kMemorizza = 2 * VociAccesso::kNumero, kEsci = kMemorizza + 1;

    RigaOpzioni *tasti() const { return tasti_; }
    const ImpostazioniAccesso &bozza() const { return bozza_; }
    void comando(int i);

protected:
    void resizeEvent(QResizeEvent *e) override;

private:
    bool tasto(int i, QKeyEvent *k);
    void mostra();

    Stato &stato_;
    ImpostazioniAccesso bozza_;
    ResizeColore resize_;
    RigaOpzioni *tasti_ = nullptr;
    QList<QLabel *> valori_;
    QLabel *esito_ = nullptr;
};
