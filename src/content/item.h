#pragma once
#include <QString>
#include <array>

// The last generated item, rewritten in place by every call of the generator.
// Arrays are indexed 1..4 (index 0 unused), position 1 most significant.
struct Item {
    std::array<qint16, 5> Cifre{};
    std::array<QString, 5> TestoCifre;
    qint16 NumeroModello = 0;
    QString TestoDomanda;
    QString TestoNumero;
    QString TestoSimboli;
};
