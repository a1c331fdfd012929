#include "results/filerisultati.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <optional>

namespace {

const QByteArray kBom("\xEF\xBB\xBF");
const QByteArray kFineRiga("\r\n");
constexpr int kCampiFissi = 9;
constexpr int kCampi = kCampiFissi + kRigheRisultato;

// ISO 8601 to the second, local time: a spreadsheet sorts it as it is, and
// reads it as a date where it knows the form.
const QString kFormatoData = QStringLiteral("yyyy-MM-dd'T'HH:mm:ss");

QStringList intestazione()
{
    QStringList t{QStringLiteral("Data e ora"), QStringLiteral("Argomento"), QStringLiteral("Numero argomento"),
                  QStringLiteral("Cifre"),      QStringLiteral("Tipo"),      QStringLiteral("Ordine"),
                  QStringLiteral("Esatte"),     QStringLiteral("Errate"),    QStringLiteral("Secondi")};
    for (int i = 1; i <= kRigheRisultato; ++i)
        t << QStringLiteral("Riga %1").arg(i);
    return t;
}

QByteArray unisci(const QStringList &campi)
{
    QByteArray riga;
    for (const QString &c : campi)
        riga += (riga.isEmpty() ? QByteArray() : QByteArray(";")) + CampoCsv(c);
    return riga + kFineRiga;
}

// The fields of the row that starts at `i`, and where the next row starts.
// `intera` is false when a quote is left open or stray bytes follow one.
struct Riga {
    QList<QByteArray> campi;
    qsizetype dopo = 0;
    bool intera = true;
};

Riga leggiRiga(const QByteArray &d, qsizetype i)
{
    Riga r;
    const qsizetype n = d.size();
    for (;;) {
        QByteArray campo;
        if (i < n && d[i] == '"') {
            ++i;
            for (;;) {
                const qsizetype q = d.indexOf('"', i);
                if (q < 0) {
                    r.intera = false;
                    i = n;
                    break;
                }
                campo += QByteArrayView(d).sliced(i, q - i);
                i = q + 1;
                if (i >= n || d[i] != '"')
                    break;
                campo += '"'; // a doubled quote
                ++i;
            }
            while (i < n && d[i] == '\r')
                ++i;
            if (i < n && d[i] != ';' && d[i] != '\n')
                r.intera = false;
        } else {
            const qsizetype inizio = i;
            while (i < n && d[i] != ';' && d[i] != '\n')
                ++i;
            campo = d.mid(inizio, i - inizio);
            if (i < n && d[i] == '\n' && campo.endsWith('\r'))
                campo.chop(1);
        }
        r.campi << campo;
        if (!r.intera || i >= n || d[i] == '\n') {
            r.dopo = i < n && r.intera ? i + 1 : n;
            return r;
        }
        ++i; // the ';'
    }
}

bool numero(const QByteArray &t, int &valore)
{
    bool ok = false;
    valore = t.trimmed().toInt(&ok);
    return ok && valore >= 0;
}

// Dates as this program writes them, and as a spreadsheet may save them back.
QDateTime data(const QByteArray &t)
{
    const QString s = QString::fromUtf8(t.trimmed());
    for (const QString &f : {kFormatoData, QStringLiteral("yyyy-MM-dd HH:mm:ss"), QStringLiteral("dd/MM/yyyy HH:mm:ss"),
                             QStringLiteral("dd/MM/yyyy HH:mm")})
        if (const QDateTime q = QDateTime::fromString(s, f); q.isValid())
            return q;
    return {};
}

std::optional<Risultato> risultato(const QList<QByteArray> &c)
{
    Risultato r;
    r.quando = data(c[0]);
    r.argomento = QString::fromUtf8(c[1]);
    r.tipo = QString::fromUtf8(c[4]);
    r.ordine = QString::fromUtf8(c[5]);
    if (!r.quando.isValid() || !numero(c[2], r.numeroArgomento) || !numero(c[3], r.cifre) ||
        !numero(c[6], r.esatte) || !numero(c[7], r.errate) || !numero(c[8], r.secondi))
        return std::nullopt;
    for (int i = 0; i < kRigheRisultato; ++i)
        r.righe << QString::fromUtf8(c[kCampiFissi + i]);
    return r;
}

QString perche(const QFileDevice &f)
{
    if (QFileInfo(f.fileName()).isDir())
        return QStringLiteral("al posto del file c'è una cartella");
    switch (f.error()) {
    case QFileDevice::ResourceError:
        return QStringLiteral("il disco è pieno o non è disponibile");
    case QFileDevice::OpenError:
    case QFileDevice::PermissionsError:
        return QStringLiteral("il file non si può aprire in scrittura (forse è protetto)");
    default:
        return QStringLiteral("la scrittura non è riuscita (%1)").arg(f.errorString());
    }
}

bool fallito(QString *errore, const QFileDevice &f)
{
    if (errore)
        *errore = perche(f);
    return false;
}

} // namespace

QString NomeFileRisultati(const QString &nomeFile)
{
    return nomeFile + QStringLiteral("Risultati.csv");
}

QByteArray CampoCsv(const QString &testo)
{
    QByteArray t = testo.toUtf8();
    const bool virgolette = t.contains(';') || t.contains('"') || t.contains('\n') || t.contains('\r') ||
                            t.startsWith(' ') || t.endsWith(' ');
    if (!virgolette)
        return t;
    return '"' + t.replace('"', "\"\"") + '"';
}

QByteArray IntestazioneCsv()
{
    return kBom + unisci(intestazione());
}

QByteArray RigaCsv(const Risultato &r)
{
    QStringList campi{r.quando.toString(kFormatoData),
                      r.argomento,
                      QString::number(r.numeroArgomento),
                      QString::number(r.cifre),
                      r.tipo,
                      r.ordine,
                      QString::number(r.esatte),
                      QString::number(r.errate),
                      QString::number(r.secondi)};
    for (int i = 0; i < kRigheRisultato; ++i)
        campi << r.righe.value(i);
    return unisci(campi);
}

LetturaRisultati LeggiRisultatiDa(const QByteArray &dati)
{
    LetturaRisultati l;
    const QByteArray testa = unisci(intestazione());
    qsizetype i = dati.startsWith(kBom) ? kBom.size() : 0;
    for (bool prima = true; i < dati.size(); prima = false) {
        const Riga r = leggiRiga(dati, i);
        if (r.intera && r.campi.size() == 1 && r.campi[0].trimmed().isEmpty()) {
            i = r.dopo; // a blank line is no row
            continue;
        }
        const std::optional<Risultato> letto =
            r.intera && r.campi.size() >= kCampi ? risultato(r.campi) : std::nullopt;
        if (letto) {
            l.risultati << *letto;
        } else if (!(prima && r.intera && testa.startsWith(r.campi.value(0) + ';'))) {
            ++l.scartate;
            // Whatever the damaged row swallowed may hold whole rows: go on
            // from the next line it started.
            const qsizetype a = dati.indexOf('\n', i);
            i = a < 0 ? dati.size() : a + 1;
            continue;
        }
        i = r.dopo;
    }
    return l;
}

LetturaRisultati LeggiRisultati(const QString &percorso)
{
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return LeggiRisultatiDa(f.readAll());
}

bool AggiungiRisultato(const QString &percorso, const Risultato &r, QString *errore)
{
    const QByteArray riga = RigaCsv(r);
    const QFileInfo info(percorso);
    if (!info.exists() || (info.isFile() && info.size() == 0)) {
        QSaveFile nuovo(percorso);
        const QByteArray tutto = IntestazioneCsv() + riga;
        if (nuovo.open(QIODevice::WriteOnly) && nuovo.write(tutto) == tutto.size() && nuovo.commit())
            return true;
        return fallito(errore, nuovo);
    }
    // Unbuffered: the row reaches the system in one write.
    QFile f(percorso);
    if (!f.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        return fallito(errore, f);
    // A device in the file's place (a pipe, /dev/full) is written as it comes.
    const bool flusso = f.isSequential();
    const qint64 fine = f.size();
    char ultimo = '\n';
    if (fine > 0 && !flusso && (!f.seek(fine - 1) || !f.getChar(&ultimo)))
        return fallito(errore, f);
    const QByteArray dati = ultimo == '\n' ? riga : kFineRiga + riga;
    if ((flusso || f.seek(fine)) && f.write(dati) == dati.size() && f.flush())
        return true;
    fallito(errore, f);
    // A row half written would only be skipped when read: take it back.
    f.resize(fine);
    return false;
}

QString CopiaRisultati(const QString &da, const QString &verso)
{
    QFile f(da);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("il file dei risultati non si può leggere");
    const QByteArray dati = f.readAll();
    QSaveFile copia(verso);
    if (copia.open(QIODevice::WriteOnly) && copia.write(dati) == dati.size() && copia.commit())
        return {};
    QString errore;
    fallito(&errore, copia);
    return errore;
}
