// Any bytes in the settings file: the readers end, and keep either what the
// file says or the fall-backs.
#include "settings/filesettings.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), qsizetype(size));
    Settings s;
    if (!LeggiLivelliDa(bytes, s) && (s.Livello != 1 || s.NumeroCifre != 1))
        std::abort();
    if (LeggiImpostazioniDa(bytes, s)) {
        if (s.IndiceSfondo < 0 || s.IndiceSfondo > 10 || s.ColoreSfondo.isEmpty())
            std::abort();
    } else {
        Settings d;
        AspettoPredefinito(d);
        if (s.ColoreSfondo != d.ColoreSfondo || s.IndiceCaratteri != d.IndiceCaratteri)
            std::abort();
    }
    return 0;
}
