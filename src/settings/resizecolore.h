#pragma once
// Keeps every control of a screen at fixed fractions of the screen's size.
// Taken once from the design geometry when the screen loads, applied on every
// resize. Fonts are not scaled; combo boxes and lines keep their design place.
#include <QList>
#include <QPointer>
#include <QWidget>

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
