// Any bytes in the record file: the reader ends, stores lines only where a
// sheet line can live, and reads the same whether the bytes come in one
// block or a few at a time.
#include "printing/fileesercizio.h"
#include "stato/stato.h"

#include <QBuffer>
#include <algorithm>
#include <cstring>
#include <cstdint>
#include <cstdlib>

namespace {

// Hands out the bytes in short, uneven reads, like a slow disk or a pipe.
class Contagocce final : public QIODevice
{
public:
    explicit Contagocce(QByteArray b) : dati_(std::move(b)) { open(QIODevice::ReadOnly); }

protected:
    qint64 readData(char *out, qint64 max) override
    {
        const qint64 n = std::min<qint64>({max, 1 + pos_ % 7, dati_.size() - pos_});
        std::memcpy(out, dati_.constData() + pos_, std::size_t(n));
        pos_ += n;
        return n;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray dati_;
    qint64 pos_ = 0;
};

struct Esito {
    bool letto = false;
    Stato s;
    int mostrati = 0;
};

void leggi(QIODevice &d, qint16 inizio, Esito &e)
{
    e.s.fogli.NumeroOperazioni = inizio;
    e.letto = CaricaEsercizioDa(d, e.s, [&](int i, const QString &t) {
        if (i < 0 || i > 60 || t.size() > 4096)
            std::abort();
        ++e.mostrati;
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 1)
        return 0;
    // The first byte says where the shared counter stands when the file is read.
    const auto inizio = qint16(std::int8_t(data[0]));
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));

    QBuffer blocco;
    blocco.setData(bytes);
    blocco.open(QIODevice::ReadOnly);
    Esito a, b;
    leggi(blocco, inizio, a);
    Contagocce gocce(bytes);
    leggi(gocce, inizio, b);

    if (a.letto != b.letto || a.mostrati != b.mostrati || a.s.fogli.NumeroOperazioni < inizio)
        std::abort();
    if (a.letto && (a.s.record.NumeroEsercizio != b.s.record.NumeroEsercizio ||
                    a.s.fogli.StampaRidotta != b.s.fogli.StampaRidotta))
        std::abort();
    for (std::size_t i = 0; i < a.s.fogli.RigheScheda.size(); ++i)
        if (a.s.fogli.RigheScheda[i] != b.s.fogli.RigheScheda[i])
            std::abort();
    return 0;
}
