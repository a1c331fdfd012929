#pragma once
// Installed on the application, before any screen sees an event: applies the
// acceptance time and the repeat window to every key press and to every mouse
// press on a key. With the defaults it does what the program always did: a
// double click on a key is one press, and nothing else is touched.
#include "access/regolepressioni.h"
#include <QObject>
#include <QPointer>
#include <memory>

class IClock;
class ISveglia;
class QWidget;

class FiltroIngressi : public QObject
{
public:
    FiltroIngressi(const ImpostazioniAccesso &a, IClock &orologio, ISveglia &sveglia);
    ~FiltroIngressi() override;

    // A press is being held and has not counted yet.
    bool trattiene() const;

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    bool tastiera(QWidget *w, QEvent *e);
    bool mouse(QWidget *w, QEvent *e);
    bool decidi(quintptr chiave, QWidget *w, QEvent *e);
    void scade();

    const ImpostazioniAccesso &a_;
    IClock &orologio_;
    ISveglia &sveglia_;
    RegolePressioni regole_;
    bool reinvio_ = false;
    QPointer<QWidget> destinatario_;       // who the held press was meant for
    std::unique_ptr<QEvent> trattenuto_;   // the held press, sent when it counts
};
