// Any bytes in the access file: every setting read is within its range, and
// what is written back reads back to the very same file.
#include "access/fileaccesso.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    const ImpostazioniAccesso a = LeggiAccessoDa(bytes);
    if (a.intervallo < 0.3 || a.intervallo > 5.0 || a.primo < 0 || a.primo > 5.0 || a.giri < 1 || a.giri > 10 ||
        a.accettazione < 0 || a.accettazione > 2.0 || (a.ripetizione && (*a.ripetizione < 0 || *a.ripetizione > 2.0)) ||
        a.velocita < -100 || a.velocita > 100)
        std::abort();
    const QByteArray scritto = ScriviAccessoIn(a);
    if (ScriviAccessoIn(LeggiAccessoDa(scritto)) != scritto)
        std::abort();
    return 0;
}
