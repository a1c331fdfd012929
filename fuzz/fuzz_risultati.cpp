// Any bytes in the results file: reading never fails, every row read has
// counts of no sign, and written back on its own it reads back as the same row.
#include "results/filerisultati.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const LetturaRisultati l = LeggiRisultatiDa(bytes);
    if (l.scartate < 0 || l.risultati.size() + l.scartate > bytes.count('\n') + 1)
        std::abort();
    for (const Risultato &r : l.risultati) {
        if (r.esatte < 0 || r.errate < 0 || r.secondi < 0 || r.righe.size() != kRigheRisultato || !r.quando.isValid())
            std::abort();
        const LetturaRisultati di = LeggiRisultatiDa(IntestazioneCsv() + RigaCsv(r));
        if (di.scartate != 0 || di.risultati != QList<Risultato>{r})
            std::abort();
    }
    return 0;
}
