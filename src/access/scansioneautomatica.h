#pragma once
// Automatic scanning for a pupil with one switch: the highlight moves by
// itself along the keys of the screen in front, in the order of a space step,
// and the switch (Space or Enter) chooses the highlighted key. A row with
// groups (the keypad) is taken group first, then key. With scanning set to
// manual it stays out of the way entirely.
#include "stato/accesso.h"
#include <QObject>
#include <QPointer>
#include <QSet>

class FiltroIngressi;
class ISveglia;
class QWidget;
class RigaOpzioni;

class ScansioneAutomatica : public QObject
{
public:
    ScansioneAutomatica(const ImpostazioniAccesso &a, ISveglia &sveglia, const FiltroIngressi *filtro = nullptr);
    ~ScansioneAutomatica() override;

    // Stopped after its loops with no press; the next press restarts it.
    bool ferma() const { return ferma_; }

    // Whether the scan visits w: a key of a row, a group of keys, a button or
    // a list to pick from.
    static bool tasto(const QWidget *w);
    // The key a space step would reach from w, on a screen of loose buttons.
    static QWidget *prossimo(QWidget *w);

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void fuocoCambiato(QWidget *prima, QWidget *ora);
    void suona();
    void riparti(bool primo);
    void scegli(QWidget *w);
    // The scan's own focus moves. A step is a Tab move, as a space step is;
    // a move that only takes up what the screen brought forward is not.
    void metti(QWidget *w, Qt::FocusReason perche = Qt::TabFocusReason);
    // The groups of a row: highlight group g, or go into it.
    void aiGruppi(RigaOpzioni *r, int g, Qt::FocusReason perche = Qt::TabFocusReason);
    void nelGruppo(RigaOpzioni *r, int g);
    static int quanti(QWidget *w);

    const ImpostazioniAccesso &a_;
    ISveglia &sveglia_;
    const FiltroIngressi *filtro_;
    bool mioPasso_ = false;
    bool ferma_ = false;
    int passi_ = 0;
    QPointer<QWidget> ricordato_;  // in a row with groups: the key to start from inside a group
    QSet<int> inghiottiti_;        // switch keys whose press the scan took
};
