#include "printing/fileesercizio.h"
#include "content/piattaforma.h"
#include "stato/stato.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>
#include <cmath>
#include <memory>
#include <vector>

namespace {

const QString testoNessunEsercizio = QStringLiteral("Nessun esercizio eseguito presente");

// A record line is about a hundred characters; anything longer is not ours
// and is cut here so that a stray file cannot eat the memory.
constexpr qsizetype campoMassimo = 4096;
constexpr qsizetype numeroMassimo = 64;

// A loaded file stays open for the rest of the run, as the program has
// always done. The handles are kept here; past this many the oldest is let
// go so that endless reloading cannot run out of descriptors.
constexpr std::size_t fileApertiMassimo = 255;
std::vector<std::unique_ptr<QFile>> &fileAperti()
{
    static std::vector<std::unique_ptr<QFile>> aperti;
    return aperti;
}

void tieniAperto(std::unique_ptr<QFile> f)
{
    auto &aperti = fileAperti();
    if (aperti.size() >= fileApertiMassimo)
        aperti.erase(aperti.begin());
    aperti.push_back(std::move(f));
}

// A number in the classic line-printing style: sign place, digits, one blank.
QByteArray numeroStampato(qint16 n)
{
    return (n < 0 ? QByteArray("-") : QByteArray(" ")) + QByteArray::number(std::abs(int(n))) + ' ';
}

QByteArray codifica(const QString &testo)
{
    QStringEncoder enc("windows-1252");
    if (!enc.isValid())
        return testo.toLatin1();
    return enc.encode(testo);
}

// Reads the file a small block at a time, so that a huge file costs time, not
// memory (the record itself is a few kilobytes).
class Lettore
{
public:
    explicit Lettore(QIODevice &d) : dev_(d) {}

    int guarda()
    {
        if (pos_ >= buf_.size()) {
            if (finito_)
                return -1;
            buf_ = dev_.read(1 << 12);
            pos_ = 0;
            if (buf_.isEmpty()) {
                finito_ = true;
                return -1;
            }
        }
        return static_cast<unsigned char>(buf_.at(pos_));
    }
    int prendi()
    {
        const int c = guarda();
        if (c >= 0)
            ++pos_;
        return c;
    }
    bool fine() { return guarda() < 0; }

    void saltaBlanchi(bool ancheFineRiga)
    {
        for (int c = guarda(); c == ' ' || c == '\t' || (ancheFineRiga && (c == '\r' || c == '\n')); c = guarda())
            prendi();
    }

    // After a field: a comma or a line end (CR LF, CR or LF) is the delimiter.
    void prendiDelimitatore()
    {
        const int c = prendi();
        if (c == '\r' && guarda() == '\n')
            prendi();
    }

    // One comma-delimited field, leading blanks dropped. A field opened by a double quote runs to the
    // closing quote; whatever follows it up to the delimiter is dropped.
    // `ancheBlanco`: a blank ends the field too (numbers).
    QByteArray campo(qsizetype massimo, bool ancheBlanco)
    {
        QByteArray r;
        auto aggiungi = [&](int c) {
            if (r.size() < massimo)
                r.append(char(c));
        };
        auto delimitatore = [&](int c) {
            return c < 0 || c == ',' || c == '\r' || c == '\n' || (ancheBlanco && (c == ' ' || c == '\t'));
        };
        saltaBlanchi(false);
        if (guarda() == '"') {
            prendi();
            for (int c = prendi(); c >= 0 && c != '"'; c = prendi())
                aggiungi(c);
            while (!delimitatore(guarda()))
                prendi();
        } else {
            while (!delimitatore(guarda()))
                aggiungi(prendi());
        }
        if (ancheBlanco) {
            saltaBlanchi(false);
            if (guarda() == ',' || guarda() == '\r' || guarda() == '\n')
                prendiDelimitatore();
        } else if (!fine()) {
            prendiDelimitatore();
        }
        return r;
    }

private:
    QIODevice &dev_;
    QByteArray buf_;
    qsizetype pos_ = 0;
    bool finito_ = false;
};

// A whole number of the first line, rounded like any integer read from text;
// anything else, or a value beyond 16 bits, is not a record file.
bool leggiNumero(Lettore &l, qint16 &out)
{
    l.saltaBlanchi(true);
    if (l.fine())
        return false;
    const QByteArray t = l.campo(numeroMassimo, true);
    if (t.isEmpty() || t.size() >= numeroMassimo)
        return false;
    qsizetype i = (t.at(0) == '+' || t.at(0) == '-') ? 1 : 0;
    int cifre = 0, punti = 0;
    for (; i < t.size(); ++i) {
        if (t.at(i) >= '0' && t.at(i) <= '9')
            ++cifre;
        else if (t.at(i) == '.' && ++punti == 1)
            continue;
        else
            return false;
    }
    if (cifre == 0)
        return false;
    bool ok = false;
    const double v = std::nearbyint(t.toDouble(&ok));
    if (!ok || v > 32767 || v < -32768)
        return false;
    out = qint16(v);
    return true;
}

} // namespace

QString NomeFileEsercizio(const Stato &s)
{
    return s.settings.NomeFile + QStringLiteral("Esercizio");
}

void SalvaEsercizio(Stato &s)
{
    // The whole file is made in memory first: a line index out of range stops
    // the save before the old file is touched.
    QByteArray dati = numeroStampato(s.record.NumeroEsercizio) + numeroStampato(s.fogli.StampaRidotta) + "\r\n";
    qint16 &n = s.fogli.NumeroOperazioni;
    for (n = 1; n <= s.record.NumeroEsercizio; n = somma16(n, 1)) {
        dati += codifica(voce(s.fogli.RigheScheda, n) + voce(s.fogli.RigheRiserva, n));
        dati += "\r\n";
    }

    const QString nome = NomeFileEsercizio(s) + QStringLiteral(".dat");
    QSaveFile f(nome);
    bool ok = f.open(QIODevice::WriteOnly);
    ok = ok && f.write(dati) == dati.size();
    ok = ok && f.commit();
    if (!ok && s.servizi.messaggi)
        s.servizi.messaggi->mostra(QStringLiteral("Impossibile salvare l'esercizio nel file %1: %2").arg(nome, f.errorString()));
}

bool CaricaEsercizioDa(QIODevice &file, Stato &s, const std::function<void(int, const QString &)> &mostra)
{
    Lettore l(file);
    qint16 valore = 0;
    if (!leggiNumero(l, valore))
        return false;
    s.record.NumeroEsercizio = valore;
    if (!leggiNumero(l, valore))
        return false;
    s.fogli.StampaRidotta = valore;

    // From here a line that cannot be stored is skipped, and the lines land
    // where the shared counter stands, not from 1.
    QStringDecoder dec("windows-1252");
    while (!l.fine()) {
        const QByteArray campo = l.campo(campoMassimo, false);
        const int i = s.fogli.NumeroOperazioni;
        if (i >= 0 && i <= 60) {
            const QString testo = dec.isValid() ? dec.decode(campo) : QString::fromLatin1(campo);
            s.fogli.RigheScheda[std::size_t(i)] = testo;
            if (mostra)
                mostra(i, testo);
        }
        if (s.fogli.NumeroOperazioni < 32767)
            ++s.fogli.NumeroOperazioni;
    }
    return true;
}

void CaricaEsercizio(Stato &s, const std::function<void(int, const QString &)> &mostra)
{
    auto nessuno = [&] {
        if (s.servizi.messaggi)
            s.servizi.messaggi->mostra(testoNessunEsercizio);
    };
    const QString nome = NomeFileEsercizio(s) + QStringLiteral(".dat");
    // Only a plain file: a folder or a pipe under the same name is no record.
    if (!QFileInfo(nome).isFile()) {
        nessuno();
        return;
    }
    auto f = std::make_unique<QFile>(nome);
    if (!f->open(QIODevice::ReadOnly)) {
        nessuno();
        return;
    }
    QFile &file = *f;
    tieniAperto(std::move(f));
    if (!CaricaEsercizioDa(file, s, mostra))
        nessuno();
}
