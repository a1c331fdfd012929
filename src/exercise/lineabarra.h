#pragma once
// One stroke of the cross that strikes out a wrong answer: a thick diagonal
// drawn across the widget's rectangle, letting clicks through to what lies below.
#include <QWidget>

class LineaBarra : public QWidget
{
public:
    enum class Verso { Discendente, Ascendente }; // top-left to bottom-right, or bottom-left to top-right

    LineaBarra(Verso verso, QWidget *parent);

protected:
    void paintEvent(QPaintEvent *e) override;

private:
    Verso verso_;
};
