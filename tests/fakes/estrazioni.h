#pragma once
// The draws that make the generator give chosen items, and the topics as
// tests/data/argomenti.txt lists them.
#include "fakes/attesi.h"
#include "fakes/fakes.h"
#include <deque>

// A topic's line: "number class", the four symbols, the names line.
inline QStringList argomento(int livello)
{
    for (const QString &r : righeAttese(QStringLiteral("argomenti.txt")))
        if (r.section(u' ', 0, 0).toInt() == livello)
            return r.split(u'|');
    return {};
}
inline int classe(int livello) { return argomento(livello).value(0).section(u' ', 1, 1).toInt(); }

// Each of `voci` is "M c1 c2 c3 c4 [numero|simbolo]": template M, the counts of
// positions 1 to 4 (each from 1 to `massimo`) and, when the exercise screen
// draws the kind of every item (kind 3), that kind.
inline std::deque<double> estrazioni(const QStringList &voci, int classe, int ordine, int tipo, int massimo)
{
    // Where each template group starts and how many it holds: [class][order - 1].
    static const int gruppi[3][2][2] = {{}, {{1, 12}, {47, 25}}, {{13, 34}, {72, 111}}};
    std::deque<double> d;
    for (const QString &v : voci) {
        const QStringList c = v.split(u' ');
        for (int p = 1; p <= 4; ++p)
            d.push_back(FakeRandom::per(c[p].toInt(), massimo));
        const int m = c[0].toInt(), gruppo = m >= gruppi[classe][1][0] ? 2 : 1;
        if (ordine == 3)
            d.push_back(FakeRandom::per(gruppo, 2));
        const auto [primo, quanti] = gruppi[classe][(ordine == 3 ? gruppo : ordine) - 1];
        d.push_back(FakeRandom::per(m - primo + 1, quanti));
        if (tipo == 3)
            d.push_back(FakeRandom::per(c.value(5) == QLatin1String("simbolo") ? 2 : 1, 2));
    }
    return d;
}
