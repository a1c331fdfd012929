#include "settings/filesettings.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

// Nothing legitimate comes near this; a larger file is not a settings file.
constexpr qint64 kMassimoLetto = 64 * 1024;

QString nomeDat(const QString &stem) { return stem + QStringLiteral(".dat"); }

// Reads the file whole, or nothing when it is missing, not a plain file or unreadable.
std::optional<QByteArray> leggiTutto(const QString &nome)
{
    const QFileInfo info(nome);
    if (!info.isFile())
        return std::nullopt;
    QFile f(nome);
    if (!f.open(QIODevice::ReadOnly))
        return std::nullopt;
    return f.read(kMassimoLetto);
}

// Comma- and line-delimited reading of a text file, the way the settings were
// always read: leading blanks skipped, a field ends at a comma or a line end,
// a field that opens with a double quote runs to the closing quote.
class Campi
{
public:
    explicit Campi(const QByteArray &dati) : d_(dati) {}

    bool fine() const { return p_ >= d_.size(); }

    std::optional<QByteArray> campo(bool finePerBlank)
    {
        while (p_ < d_.size() && (d_[p_] == ' ' || d_[p_] == '\t'))
            ++p_;
        if (fine())
            return std::nullopt;
        QByteArray out;
        if (d_[p_] == '"') {
            ++p_;
            while (p_ < d_.size() && d_[p_] != '"' && d_[p_] != '\n' && d_[p_] != '\r')
                out += d_[p_++];
            if (p_ < d_.size() && d_[p_] == '"')
                ++p_;
        } else {
            while (p_ < d_.size() && d_[p_] != ',' && d_[p_] != '\n' && d_[p_] != '\r' &&
                   !(finePerBlank && (d_[p_] == ' ' || d_[p_] == '\t')))
                out += d_[p_++];
        }
        salta_delimitatore();
        return out.trimmed();
    }

private:
    void salta_delimitatore()
    {
        while (p_ < d_.size() && (d_[p_] == ' ' || d_[p_] == '\t'))
            ++p_;
        if (p_ >= d_.size())
            return;
        if (d_[p_] == ',') {
            ++p_;
        } else if (d_[p_] == '\r') {
            ++p_;
            if (p_ < d_.size() && d_[p_] == '\n')
                ++p_;
        } else if (d_[p_] == '\n') {
            ++p_;
        }
    }

    const QByteArray &d_;
    qsizetype p_ = 0;
};

std::optional<qint16> intero16(const std::optional<QByteArray> &campo)
{
    if (!campo || campo->isEmpty())
        return std::nullopt;
    bool ok = false;
    const int v = campo->toInt(&ok);
    if (!ok || v < -32768 || v > 32767)
        return std::nullopt;
    return qint16(v);
}

std::optional<QString> colore(const std::optional<QByteArray> &campo)
{
    if (!campo || campo->isEmpty())
        return std::nullopt;
    for (char c : *campo)
        if (c < '0' || c > '9')
            return std::nullopt;
    bool ok = false;
    const qlonglong v = campo->toLongLong(&ok);
    if (!ok || v > 0xFFFFFF)
        return std::nullopt;
    return QString::number(v);
}

// True/False as written; numbers as yes when not zero; empty is "no value".
struct SiNo {
    bool letto = false;
    std::optional<bool> valore;
};

SiNo sino(const std::optional<QByteArray> &campo)
{
    SiNo r;
    if (!campo)
        return r;
    const QByteArray t = campo->toLower();
    r.letto = true;
    if (t == "true" || t == "#true#") {
        r.valore = true;
    } else if (t == "false" || t == "#false#") {
        r.valore = false;
    } else if (!t.isEmpty()) {
        bool ok = false;
        const double v = t.toDouble(&ok);
        r.letto = ok;
        if (ok)
            r.valore = v != 0.0;
    }
    return r;
}

QByteArray parola(const std::optional<bool> &b)
{
    if (!b)
        return {};
    return *b ? QByteArrayLiteral("True") : QByteArrayLiteral("False");
}

// A number as it is printed: a blank for the sign of a non-negative value.
QByteArray numeroStampato(qint16 v)
{
    return (v >= 0 ? QByteArrayLiteral(" ") : QByteArray()) + QByteArray::number(v);
}

bool sostituisci(const QString &nome, const QByteArray &contenuto)
{
    QSaveFile f(nome);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    if (f.write(contenuto) != contenuto.size()) {
        f.cancelWriting();
        return false;
    }
    return f.commit();
}

} // namespace

QString NomeFileDaEseguibile(const QString &percorsoEseguibile)
{
    return QFileInfo(percorsoEseguibile).completeBaseName();
}

bool LeggiLivelliDa(const QByteArray &dati, Settings &s)
{
    Campi campi(dati);
    const auto livello = intero16(campi.campo(true));
    const auto cifre = intero16(campi.campo(true));
    if (livello && cifre) {
        s.Livello = *livello;
        s.NumeroCifre = *cifre;
        return true;
    }
    s.Livello = 1;
    s.NumeroCifre = 1;
    return false;
}

bool LeggiLivelli(Settings &s, const QString &strNomeFile)
{
    const auto dati = leggiTutto(nomeDat(strNomeFile));
    return LeggiLivelliDa(dati.value_or(QByteArray()), s);
}

bool ScriviLivelli(const Settings &s)
{
    return sostituisci(nomeDat(s.NomeFile), numeroStampato(s.Livello) + ' ' + numeroStampato(s.NumeroCifre) +
                                                 QByteArrayLiteral(" \r\n"));
}

void AspettoPredefinito(Settings &s)
{
    s.ColoreSfondo = QStringLiteral("12640511");          // 255, 224, 192
    s.ColoreRiserva = QStringLiteral("8438015");          // 255, 192, 128
    s.ColoreCaratteri = QStringLiteral("328965");         // 5, 5, 5
    s.BeepAttivo = true;
    s.ImpostazioneA = true;
    s.ImpostazioneB = true;
    s.ColoreScansioneChiaro = QStringLiteral("16754175"); // 255, 165, 255
    s.ColoreScansioneScuro = QStringLiteral("16745215");  // 255, 130, 255
    s.IndiceSfondo = 4;
    s.IndiceScansione = 4;
    s.IndiceCaratteri = 9;
}

bool LeggiImpostazioniDa(const QByteArray &dati, Settings &s)
{
    Campi c(dati);
    const auto sfondo = colore(c.campo(false));
    const auto riserva = colore(c.campo(false));
    const auto caratteri = colore(c.campo(false));
    const auto beep = sino(c.campo(false));
    const auto a = sino(c.campo(false));
    const auto b = sino(c.campo(false));
    const auto chiaro = colore(c.campo(false));
    const auto scuro = colore(c.campo(false));
    const auto iSfondo = intero16(c.campo(false));
    const auto iScansione = intero16(c.campo(false));
    const auto iCaratteri = intero16(c.campo(false));
    // The indices pick one of eleven buttons: anything else is a damaged file.
    const auto indice = [](const std::optional<qint16> &i) { return i && *i >= 0 && *i <= 10; };
    if (sfondo && riserva && caratteri && beep.valore && a.letto && b.letto && chiaro && scuro &&
        indice(iSfondo) && indice(iScansione) && indice(iCaratteri)) {
        s.ColoreSfondo = *sfondo;
        s.ColoreRiserva = *riserva;
        s.ColoreCaratteri = *caratteri;
        s.BeepAttivo = *beep.valore;
        s.ImpostazioneA = a.valore;
        s.ImpostazioneB = b.valore;
        s.ColoreScansioneChiaro = *chiaro;
        s.ColoreScansioneScuro = *scuro;
        s.IndiceSfondo = *iSfondo;
        s.IndiceScansione = *iScansione;
        s.IndiceCaratteri = *iCaratteri;
        return true;
    }
    AspettoPredefinito(s);
    return false;
}

bool LeggiImpostazioni(Settings &s)
{
    const auto dati = leggiTutto(nomeDat(s.NomeFile));
    return LeggiImpostazioniDa(dati.value_or(QByteArray()), s);
}

bool ScriviImpostazioni(const Settings &s)
{
    const QByteArray fine = QByteArrayLiteral("\r\n");
    QByteArray out;
    out += s.ColoreSfondo.toLatin1() + fine;
    out += s.ColoreRiserva.toLatin1() + fine;
    out += s.ColoreCaratteri.toLatin1() + fine;
    out += parola(s.BeepAttivo) + fine;
    out += parola(s.ImpostazioneA) + fine;
    out += parola(s.ImpostazioneB) + fine;
    out += s.ColoreScansioneChiaro.toLatin1() + fine;
    out += s.ColoreScansioneScuro.toLatin1() + fine;
    out += numeroStampato(s.IndiceSfondo) + fine;
    out += numeroStampato(s.IndiceScansione) + fine;
    out += numeroStampato(s.IndiceCaratteri) + fine;
    return sostituisci(nomeDat(s.NomeFile), out);
}

void VerificaEsistenzaFile(const QString &FileName)
{
    QFile f(FileName);
    if (f.open(QIODevice::ReadOnly))
        f.close();
}
