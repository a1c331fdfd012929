#include "access/fileaccesso.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cmath>

namespace {

constexpr qint64 kMassimoLetto = 64 * 1024;

// A number as a teacher may write it: "0,5" as well as "0.5". Out of range is
// no value of the key: it keeps its default, as a word would.
std::optional<double> decimale(QByteArray v, double minimo, double massimo)
{
    v.replace(',', '.');
    bool ok = false;
    const double d = v.toDouble(&ok);
    if (!ok || !std::isfinite(d) || d < minimo || d > massimo)
        return std::nullopt;
    return d;
}

std::optional<int> intero(const QByteArray &v, int minimo, int massimo)
{
    bool ok = false;
    const int n = v.toInt(&ok);
    if (!ok || n < minimo || n > massimo)
        return std::nullopt;
    return n;
}

std::optional<bool> parola(const QByteArray &v, const char *falso, const char *vero)
{
    if (v == falso)
        return false;
    if (v == vero)
        return true;
    return std::nullopt;
}

QByteArray numero(double d)
{
    QByteArray t = QByteArray::number(d, 'f', 2);
    while (t.endsWith('0') && !t.endsWith(".0"))
        t.chop(1);
    return t;
}

} // namespace

QString NomeFileAccesso(const QString &nomeFile)
{
    return nomeFile + QStringLiteral("Accesso.dat");
}

ImpostazioniAccesso LeggiAccessoDa(const QByteArray &dati)
{
    const ImpostazioniAccesso base;
    ImpostazioniAccesso a;
    QByteArray testo = dati.left(kMassimoLetto);
    if (testo.startsWith("\xEF\xBB\xBF"))
        testo.remove(0, 3);
    for (const QByteArray &grezza : testo.split('\n')) {
        const QByteArray riga = grezza.trimmed();
        if (riga.isEmpty())
            continue;
        const qsizetype uguale = riga.indexOf('=');
        const QByteArray chiave = riga.left(uguale < 0 ? 0 : uguale).trimmed().toLower();
        const QByteArray valore = riga.mid(uguale + 1).trimmed().toLower();
        if (chiave == "scansione") {
            a.automatica = parola(valore, "manuale", "automatica").value_or(base.automatica);
        } else if (chiave == "intervallo") {
            a.intervallo = decimale(valore, 0.3, 5.0).value_or(base.intervallo);
        } else if (chiave == "primo") {
            a.primo = decimale(valore, 0.0, 5.0).value_or(base.primo);
        } else if (chiave == "giri") {
            a.giri = intero(valore, 1, 10).value_or(base.giri);
        } else if (chiave == "accettazione") {
            a.accettazione = decimale(valore, 0.0, 2.0).value_or(base.accettazione);
        } else if (chiave == "ripetizione") {
            a.ripetizione = decimale(valore, 0.0, 2.0);
        } else if (chiave == "evidenziazione") {
            a.spessa = parola(valore, "normale", "spessa").value_or(base.spessa);
        } else if (chiave == "gruppi") {
            a.gruppi = parola(valore, "no", "si").value_or(base.gruppi);
        } else if (chiave == "voce") {
            a.voce = parola(valore, "no", "si").value_or(base.voce);
        } else if (chiave == "voce_tasti") {
            a.voceTasti = parola(valore, "no", "si").value_or(base.voceTasti);
        } else if (chiave == "velocita") {
            a.velocita = intero(valore, -100, 100).value_or(base.velocita);
        } else {
            QByteArray tenuta = grezza;
            while (tenuta.endsWith('\r'))
                tenuta.chop(1);
            a.altreRighe.append(tenuta);
        }
    }
    return a;
}

QByteArray ScriviAccessoIn(const ImpostazioniAccesso &a)
{
    QByteArray out;
    const auto riga = [&out](const char *chiave, const QByteArray &valore) {
        out += chiave + QByteArray("=") + valore + '\n';
    };
    riga("scansione", a.automatica ? "automatica" : "manuale");
    riga("intervallo", numero(a.intervallo));
    riga("primo", numero(a.primo));
    riga("giri", QByteArray::number(a.giri));
    riga("accettazione", numero(a.accettazione));
    if (a.ripetizione)
        riga("ripetizione", numero(*a.ripetizione));
    riga("evidenziazione", a.spessa ? "spessa" : "normale");
    riga("gruppi", a.gruppi ? "si" : "no");
    riga("voce", a.voce ? "si" : "no");
    riga("voce_tasti", a.voceTasti ? "si" : "no");
    riga("velocita", QByteArray::number(a.velocita));
    for (const QByteArray &r : a.altreRighe)
        out += r + '\n';
    return out;
}

ImpostazioniAccesso LeggiAccesso(const QString &percorso)
{
    if (!QFileInfo(percorso).isFile())
        return {};
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return LeggiAccessoDa(f.read(kMassimoLetto));
}

bool ScriviAccesso(const QString &percorso, const ImpostazioniAccesso &a, QString *errore)
{
    QSaveFile f(percorso);
    const bool ok = f.open(QIODevice::WriteOnly) && f.write(ScriviAccessoIn(a)) >= 0 && f.commit();
    if (!ok && errore)
        *errore = f.errorString();
    return ok;
}
