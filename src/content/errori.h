#pragma once
// Errors that end the handler they occur in. Screens catch them at the event
// boundary (see ui/confine.h): the handler stops, the program goes on.
#include <QtGlobal>
#include <stdexcept>

struct ErroreIntervallo : std::out_of_range {
    using std::out_of_range::out_of_range;
};

struct ErroreOverflow : std::overflow_error {
    using std::overflow_error::overflow_error;
};

// 16-bit counters: the sum must fit, or the handler stops.
inline qint16 somma16(qint16 a, int b)
{
    const int r = int(a) + b;
    if (r > 32767 || r < -32768)
        throw ErroreOverflow("16-bit overflow");
    return qint16(r);
}

// Fixed arrays of 61 lines (indices 0..60): any other index stops the handler.
template <typename Array>
auto &voce(Array &a, int i)
{
    if (i < 0 || i >= int(a.size()))
        throw ErroreIntervallo("index out of range");
    return a[std::size_t(i)];
}
