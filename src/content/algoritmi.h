#pragma once
#include "content/item.h"
#include "content/topic.h"
#include <QList>
#include <functional>

class IClock;
class IRandom;

// One piece of a template's question, in the order it is shown: a position
// with its count, its symbol, or both (a few templates drop one of the two).
struct PezzoDomanda {
    qint16 posizione = 0;
    bool conteggio = true;
    bool simbolo = true;
};
// The pieces of template `modello`'s question; none outside 1..182.
QList<PezzoDomanda> PezziDomanda(qint16 modello);

// One exercise item (ALGORITMI): reseeds `random` from `clock`, draws four
// counts and a template for the symbol order, rewrites `item`; for order 3
// also writes `tipoCorrente`. `mostraNumeroModello`, when set, is told the
// template drawn (the exercise screen shows it in Label7).
struct Generatore {
    IClock &clock;
    IRandom &random;
    std::function<void(qint16)> mostraNumeroModello;

    void genera(qint16 valoreMassimo, qint16 ordineSimboli, const TopicInstallato &topic,
                Item &item, qint16 &tipoCorrente) const;
};
