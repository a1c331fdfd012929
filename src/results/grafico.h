#pragma once
// The chart above the results table: for each exercise, oldest on the left,
// its right answers as a green bar up from the middle line and its wrong
// answers as a red bar down from it. Drawn here with QPainter: a chart
// library would load at start-up with the program for one small picture.
#include "results/filerisultati.h"
#include <QWidget>

struct DatiGrafico {
    struct Barra {
        int esatte = 0, errate = 0;
        int indice = 0;   // the exercise's place in the list it came from
        bool operator==(const Barra &) const = default;
    };
    QList<Barra> barre;   // oldest first
    int scala = 20;       // what a full bar means, on both sides
};

// The last `posti` exercises of `risultati` (oldest first), and a scale that
// holds every bar: twenty answers, or more when wrong answers ran past it,
// rounded up to a multiple of five.
DatiGrafico CalcolaGrafico(const QList<Risultato> &risultati, int posti);

class GraficoRisultati : public QWidget
{
    Q_OBJECT
public:
    explicit GraficoRisultati(QWidget *parent = nullptr);

    void mostra(const QList<Risultato> *risultati);
    void evidenzia(int indice); // of the exercise chosen, -1 for none
    int posti() const;          // bars that fit at the current width

signals:
    void scelto(int indice);

protected:
    void paintEvent(QPaintEvent *e) override;
    void mousePressEvent(QMouseEvent *e) override;
    void resizeEvent(QResizeEvent *e) override;

private:
    void ricalcola();
    QRect area() const;

    const QList<Risultato> *risultati_ = nullptr;
    DatiGrafico dati_;
    int evidenziato_ = -1;
};
