// Every value an item or an answer can hold, whole thousandths, and far past
// the 32-bit limit: the text is empty (with one message) or made of digits,
// "." groups and at most one ",".
#include "content/formatta.h"
#include "content/piattaforma.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {
class Silenzioso final : public IMessageBox
{
public:
    int volte = 0;
    void mostra(const QString &, const QString &, Icona) override { ++volte; }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < sizeof(std::uint64_t))
        return 0;
    std::uint64_t millesimi;
    std::memcpy(&millesimi, data, sizeof millesimi);
    const double n = double(millesimi % (std::uint64_t(1) << 44)) / 1000.0;
    Silenzioso box;
    const QString t = FormattaNumero(n, &box);
    int virgole = 0;
    for (QChar c : t) {
        if (c == u',')
            ++virgole;
        else if (!c.isDigit() && c != u'.')
            std::abort();
    }
    if (virgole > 1 || box.volte > 1 || (box.volte == 1 && !t.isEmpty()))
        std::abort();
    return 0;
}
