#pragma once
// Files of expected lines under tests/data: written from the program's rules,
// read by the tests, compared line by line with what the program shows.
#include <QFile>
#include <QStringList>
#include <QTest>

// The lines of tests/data/<nome>. Comments ("#") and blank lines are there
// too: a test copies them as they are, so that lines keep their numbers.
inline QStringList righeAttese(const QString &nome)
{
    QFile f(QStringLiteral(CARTELLA_DATI "/") + nome);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(f.fileName()));
    QStringList righe = QString::fromUtf8(f.readAll()).split(u'\n');
    if (righe.last().isEmpty())
        righe.removeLast();
    return righe;
}

// The lines that differ, each expected over what came, numbered as in the
// file; the first ten are enough to see what went wrong.
inline QString differenze(const QStringList &attese, const QStringList &viste)
{
    QString d;
    int mostrate = 0;
    for (qsizetype i = 0; i < qMax(attese.size(), viste.size()) && mostrate < 10; ++i) {
        const QString a = attese.value(i, QStringLiteral("(none)")), v = viste.value(i, QStringLiteral("(none)"));
        if (a != v && ++mostrate)
            d += QStringLiteral("\nline %1\n  expected: %2\n  came:     %3").arg(i + 1).arg(a, v);
    }
    return d;
}

#define CONFRONTA_RIGHE(viste, attese)                                                                        \
    do {                                                                                                      \
        const QString d_ = differenze((attese), (viste));                                                     \
        QVERIFY2(d_.isEmpty(), qPrintable(d_));                                                               \
    } while (false)
