#pragma once
// Keeps every control of a screen at fixed fractions of the screen's size.
// Taken once from the design geometry when the screen loads, applied on every
// resize. Fonts are not scaled; combo boxes and lines keep their design place.
#include <QList>
#include <QPointer>
#include <QWidget>

class QFrame;

// The size a screen of design size `design` opens at in `spazio`: the design
// itself when it fits, else the largest size of the same proportions that does.
QSize DimensioneAdattata(QSize design, QSize spazio);

// Scales a screen about to be shown down to its screen's free area, frame
// included (`cornice`: what the window system adds around it), text and all,
// and centres it there, so that no row of keys opens off the screen.
void AdattaAlloSchermo(QWidget *schermo, const QMargins &cornice);

// A teacher's panel as every one opens: named, titled, at its design size,
// never below half of it, on the panels' own page colour.
void PreparaPannello(QWidget *pannello, const QString &nome, const QString &titolo, QSize design);

// A white sheet with a thin border, named "Foglio", on which lines stand as
// they will on paper.
QFrame *Foglio(QWidget *parent, const QString &nomeAccessibile, const QRect &g);

class ResizeColore
{
public:
    // Records every descendant control of `form` against form's current size.
    void prendi(QWidget *form);
    // Moves every recorded control to its fractions of the form's current size.
    void applica();

private:
    struct Voce {
        QPointer<QWidget> controllo;
        float larghezza = 0, altezza = 0, alto = 0, sinistra = 0;
    };
    QPointer<QWidget> form_;
    QList<Voce> tabella_;
};
