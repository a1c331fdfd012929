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
// The colour of the frame: the candidate with the best contrast against the
// worse of the two.
QColor ColoreCornice(const QColor &tasto, const QColor &pagina);

class Evidenziatore : public QObject
{
public:
    static constexpr int kSpessore = 8;

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
