#include "content/formatta.h"
#include "content/piattaforma.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

// The pupil types "," for decimals and sees "." between thousands, whatever
// the machine's locale, so the separators are fixed here rather than asked of
// QLocale (which would also cost a construction per call).
constexpr char separatoreDecimale = ',';
constexpr char separatoreMigliaia = '.';

// The smallest double spelled out in full: "-0," + 323 zeros + 15 digits.
constexpr int lungMassima = 360;

// Plain text of a value: at most 15 significant digits, trailing zeros
// dropped, so 1340/1000 reads "1,34" and not "1,3400000000000001". Never in
// exponent form: tiny values are spelled out with their leading zeros.
// `buf` must hold lungMassima chars; returns the length written.
int testoSemplice(double n, char *buf)
{
    char grezzo[40];
    const auto ris = std::to_chars(grezzo, grezzo + sizeof grezzo, n, std::chars_format::general, 15);
    const int lung = int(ris.ptr - grezzo);
    grezzo[lung] = '\0'; // to_chars leaves no terminator, and atoi reads one
    const char *e = static_cast<const char *>(std::memchr(grezzo, 'e', std::size_t(lung)));

    int out = 0;
    if (!e) {
        for (int i = 0; i < lung; ++i)
            buf[out++] = grezzo[i] == '.' ? separatoreDecimale : grezzo[i];
        return out;
    }

    // Mantissa "d.ddd" with a negative exponent: move the decimal point by hand.
    const int esponente = std::atoi(e + 1);
    const char *c = grezzo;
    if (*c == '-')
        buf[out++] = *c++;
    char cifre[20];
    int quante = 0;
    for (; c < e; ++c)
        if (*c != '.')
            cifre[quante++] = *c;
    // Only tiny values come out in exponent form here: FormattaNumero has already
    // turned away anything too large for 32 bits, far below 1e15.
    buf[out++] = '0';
    buf[out++] = separatoreDecimale;
    for (int i = 0; i < -esponente - 1; ++i)
        buf[out++] = '0';
    for (int i = 0; i < quante; ++i)
        buf[out++] = cifre[i];
    return out;
}

// W with "#,#": thousands grouped, no decimals (prints nothing for 0, which
// is why the caller treats 0 apart).
int interoRaggruppato(qint64 w, char *buf)
{
    char cifre[24];
    const auto ris = std::to_chars(cifre, cifre + sizeof cifre, w < 0 ? -w : w);
    const int quante = int(ris.ptr - cifre);
    int out = 0;
    if (w < 0)
        buf[out++] = '-';
    for (int i = 0; i < quante; ++i) {
        if (i > 0 && (quante - i) % 3 == 0)
            buf[out++] = separatoreMigliaia;
        buf[out++] = cifre[i];
    }
    return out;
}

} // namespace

QString FormattaNumero(double n, IMessageBox *box)
{
    if (!std::isfinite(n))
        return {};
    if (n == 0.0)
        n = 0.0; // no "-0"

    const double intero = std::floor(n);
    if (intero >= 2147483648.0 || intero < -2147483648.0) {
        if (box)
            box->mostra(QStringLiteral("Numero troppo grande!"), QStringLiteral("Errore di overflow"),
                        IMessageBox::Icona::Critica);
        return {};
    }
    const qint32 w = qint32(intero);

    char s[lungMassima];
    const int lungS = testoSemplice(n, s);
    char t[16];
    const int lungT = int(std::to_chars(t, t + sizeof t, w).ptr - t);

    // The decimals are the tail of S past the length of W's own text: copied,
    // never rounded again.
    int coda = lungS - lungT;
    if (coda < 0)
        coda = 0;

    char risultato[lungMassima + 16];
    int out;
    if (w == 0) {
        risultato[0] = '0';
        out = 1;
    } else {
        out = interoRaggruppato(w, risultato);
    }
    std::memcpy(risultato + out, s + (lungS - coda), std::size_t(coda));
    out += coda;
    return QString::fromLatin1(risultato, out);
}
