#include "content/formatta.h"
#include "content/piattaforma.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace {

// The pupil types "," for decimals and sees "." between thousands, whatever
// the machine's locale, so the separators are fixed here rather than asked of
// QLocale (which would also cost a construction per call).
constexpr char separatoreDecimale = ',';
constexpr char separatoreMigliaia = '.';

// Plain text of a value: at most 15 significant digits, trailing zeros
// dropped, so 1340/1000 reads "1,34" and not "1,3400000000000001". Values of
// items and answers (whole thousandths, below 2^31) never take exponent form.
int testoSemplice(double n, char *buf, int spazio)
{
    const int lung = int(std::to_chars(buf, buf + spazio, n, std::chars_format::general, 15).ptr - buf);
    for (int i = 0; i < lung; ++i)
        if (buf[i] == '.')
            buf[i] = separatoreDecimale;
    return lung;
}

// W with "#,#": thousands grouped, no decimals (prints nothing for 0, which
// is why the caller treats 0 apart).
int interoRaggruppato(qint32 w, char *buf)
{
    char cifre[16];
    const int quante = int(std::to_chars(cifre, cifre + sizeof cifre, w).ptr - cifre);
    int out = 0;
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
    const double intero = std::floor(n);
    if (intero >= 2147483648.0) {
        if (box)
            box->mostra(QStringLiteral("Numero troppo grande!"), QStringLiteral("Errore di overflow"),
                        IMessageBox::Icona::Critica);
        return {};
    }
    const qint32 w = qint32(intero);

    char s[40];
    const int lungS = testoSemplice(n, s, int(sizeof s));
    char t[16];
    const int lungT = int(std::to_chars(t, t + sizeof t, w).ptr - t);

    // The decimals are the tail of S past the length of W's own text: copied,
    // never rounded again.
    const int coda = lungS > lungT ? lungS - lungT : 0;
    char risultato[64];
    int out = 1;
    if (w == 0)
        risultato[0] = '0';
    else
        out = interoRaggruppato(w, risultato);
    std::memcpy(risultato + out, s + (lungS - coda), std::size_t(coda));
    return QString::fromLatin1(risultato, out + coda);
}
