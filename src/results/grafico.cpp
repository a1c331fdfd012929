#include "results/grafico.h"

#include "ui/caratteri.h"

#include <QMouseEvent>
#include <QPainter>

namespace {

constexpr int kPassoMinimo = 6, kPassoMassimo = 24;
const QColor kVerde(40, 150, 60), kRosso(205, 50, 40);

QString giorno(const QList<Risultato> &r, int i)
{
    return r.at(i).quando.toString(QStringLiteral("dd/MM/yyyy"));
}

} // namespace

DatiGrafico CalcolaGrafico(const QList<Risultato> &risultati, int posti)
{
    DatiGrafico d;
    const qsizetype primo = std::max<qsizetype>(0, risultati.size() - std::max(posti, 0));
    int massimo = 20;
    for (qsizetype i = primo; i < risultati.size(); ++i) {
        const Risultato &r = risultati.at(i);
        d.barre << DatiGrafico::Barra{r.esatte, r.errate, int(i)};
        massimo = std::max({massimo, r.esatte, r.errate});
    }
    d.scala = (massimo + 4) / 5 * 5;
    return d;
}

GraficoRisultati::GraficoRisultati(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("grafico"));
    setAccessibleName(QStringLiteral("Grafico delle risposte: esatte in verde verso l'alto, errate in rosso verso il basso"));
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, Qt::white);
    setPalette(p);
    setFont(FontArial(8));
}

void GraficoRisultati::mostra(const QList<Risultato> *risultati)
{
    risultati_ = risultati;
    ricalcola();
}

void GraficoRisultati::evidenzia(int indice)
{
    evidenziato_ = indice;
    update();
}

QRect GraficoRisultati::area() const
{
    return rect().adjusted(34, 18, -10, -8);
}

int GraficoRisultati::posti() const
{
    return std::max(1, area().width() / kPassoMinimo);
}

// What a screen reader says of the picture: how many bars, from when to
// when, and the last exercise's counts.
void GraficoRisultati::ricalcola()
{
    dati_ = CalcolaGrafico(risultati_ ? *risultati_ : QList<Risultato>(), posti());
    if (dati_.barre.isEmpty()) {
        setAccessibleDescription(QStringLiteral("Nessun esercizio registrato"));
    } else {
        const DatiGrafico::Barra &ultima = dati_.barre.last();
        setAccessibleDescription(QStringLiteral("%1 esercizi, dal %2 al %3; l'ultimo: %4 esatte, %5 errate")
                                     .arg(dati_.barre.size())
                                     .arg(giorno(*risultati_, dati_.barre.first().indice),
                                          giorno(*risultati_, ultima.indice))
                                     .arg(ultima.esatte)
                                     .arg(ultima.errate));
    }
    update();
}

void GraficoRisultati::resizeEvent(QResizeEvent *e)
{
    QWidget::resizeEvent(e);
    ricalcola();
}

void GraficoRisultati::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.setPen(Qt::gray);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
    if (dati_.barre.isEmpty()) {
        p.setPen(Qt::black);
        p.drawText(rect(), Qt::AlignCenter, QStringLiteral("Nessun esercizio registrato in questa cartella"));
        return;
    }
    const QRect a = area();
    const int mezzo = a.center().y(), alto = a.height() / 2;
    const int passo = std::clamp(a.width() / int(dati_.barre.size()), kPassoMinimo, kPassoMassimo);
    const int barra = std::max(2, passo * 2 / 3);

    // The scale, the middle line, the legend.
    p.setPen(QColor(200, 200, 200));
    p.drawLine(a.left(), a.top(), a.right(), a.top());
    p.drawLine(a.left(), a.bottom(), a.right(), a.bottom());
    p.setPen(Qt::black);
    p.drawLine(a.left(), mezzo, a.right(), mezzo);
    const QRect etichetta(0, 0, a.left() - 4, 12);
    p.drawText(etichetta.translated(0, a.top() - 6), Qt::AlignRight, QString::number(dati_.scala));
    p.drawText(etichetta.translated(0, mezzo - 6), Qt::AlignRight, QStringLiteral("0"));
    p.drawText(etichetta.translated(0, a.bottom() - 6), Qt::AlignRight, QString::number(dati_.scala));
    p.fillRect(a.left(), 4, 10, 10, kVerde);
    p.drawText(a.left() + 14, 13, QStringLiteral("esatte"));
    p.fillRect(a.left() + 70, 4, 10, 10, kRosso);
    p.drawText(a.left() + 84, 13, QStringLiteral("errate"));

    for (int i = 0; i < dati_.barre.size(); ++i) {
        const DatiGrafico::Barra &b = dati_.barre.at(i);
        const int x = a.left() + i * passo + (passo - barra) / 2;
        const int su = b.esatte * alto / dati_.scala, giu = b.errate * alto / dati_.scala;
        p.fillRect(x, mezzo - su, barra, su, kVerde);
        p.fillRect(x, mezzo + 1, barra, giu, kRosso);
        if (b.indice == evidenziato_) {
            p.setPen(QPen(Qt::black, 2));
            p.drawRect(a.left() + i * passo, a.top(), passo - 1, a.height());
        }
    }
    p.setPen(Qt::black);
    const QString primo = giorno(*risultati_, dati_.barre.first().indice),
                  ultimo = giorno(*risultati_, dati_.barre.last().indice);
    p.drawText(QRect(a.left(), 2, a.width(), 14), Qt::AlignRight,
               primo == ultimo ? QStringLiteral("il %1").arg(primo) : QStringLiteral("dal %1 al %2").arg(primo, ultimo));
}

void GraficoRisultati::mousePressEvent(QMouseEvent *e)
{
    const QRect a = area();
    if (dati_.barre.isEmpty() || !a.contains(e->position().toPoint()))
        return;
    const int passo = std::clamp(a.width() / int(dati_.barre.size()), kPassoMinimo, kPassoMassimo);
    const int i = (e->position().toPoint().x() - a.left()) / passo;
    if (i < dati_.barre.size())
        emit scelto(dati_.barre.at(i).indice);
}
