#include "exercise/lineabarra.h"

#include <QPainter>
#include <QPen>

LineaBarra::LineaBarra(Verso verso, QWidget *parent) : QWidget(parent), verso_(verso)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void LineaBarra::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(200, 0, 0), 5, Qt::SolidLine, Qt::RoundCap));
    const QRectF r = QRectF(rect()).adjusted(6, 6, -6, -6);
    if (verso_ == Verso::Discendente)
        p.drawLine(r.topLeft(), r.bottomRight());
    else
        p.drawLine(r.bottomLeft(), r.topRight());
}
