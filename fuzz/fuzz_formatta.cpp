// Any double, including the ones no item produces: the text is empty or made
// of digits, "." groups and at most one ",".
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
    if (size < sizeof(double))
        return 0;
    double n;
    std::memcpy(&n, data, sizeof n);
    Silenzioso box;
    const QString t = FormattaNumero(n, &box);
    int virgole = 0;
    for (QChar c : t) {
        if (c == u',')
            ++virgole;
        else if (!c.isDigit() && c != u'.' && c != u'-')
            std::abort();
    }
    if (virgole > 1 || box.volte > 1 || (box.volte == 1 && !t.isEmpty()))
        std::abort();
    return 0;
}
