#pragma once
#include "content/item.h"
#include "content/topic.h"
#include <functional>

class IClock;
class IRandom;

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
