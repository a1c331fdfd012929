#pragma once
// The thick highlight: with "evidenziazione=spessa" a frame of kSpessore
// pixels is drawn around the key that has the focus, outside it so that the
// caption keeps all its room, in a colour that stands out from both the key
// and the page behind it.
#include "stato/accesso.h"
#include <QColor>
#include <QObject>
#include <QPointer>

class QWidget;

// WCAG contrast ratio of two colours, 1 to 21.
double Contrasto(const QColor &a, const QColor &b);
// The colours of the frame, next to the key and next to the page: one colour
// when one stands out 3:1 from both, else the best against each (a mid-tone
// key on a black page has no colour that stands out from both).
struct ColoriCornice {
    QColor dentro, fuori;
};
ColoriCornice ColoreCornice(const QColor &tasto, const QColor &pagina);

class Evidenziatore : public QObject
{
public:
    static constexpr int kSpessore = 8;
    static constexpr int kBordo = 4; // the outer band of a two-colour frame

    explicit Evidenziatore(const ImpostazioniAccesso &a);
    ~Evidenziatore() override;

    // The frame on show, or null.
    QWidget *cornice() const;

protected:
    bool eventFilter(QObject *o, QEvent *e) override;

private:
    void segui(QWidget *tasto);
    void posa();

    const ImpostazioniAccesso &a_;
    QPointer<QWidget> tasto_;
    QPointer<QWidget> cornice_;
};
