#include "ui/qtstampante.h"

#include <QDir>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>

namespace {

// "Nimbus Mono PS [urw]" -> "Nimbus Mono PS"
QString nonScritto(const QString &file)
{
    return QStringLiteral("Impossibile scrivere il file %1.").arg(file);
}

QString senzaFonderia(QString famiglia)
{
    const qsizetype i = famiglia.indexOf(QLatin1String(" ["));
    if (i >= 0 && famiglia.endsWith(QLatin1Char(']')))
        famiglia.truncate(i);
    return famiglia;
}

} // namespace

QtPrinter::QtPrinter() = default;

QtPrinter::~QtPrinter()
{
    // A page left open by a stopped printout is sent, as the system would at exit.
    if (painter_ && painter_->isActive())
        painter_->end();
}

QStringList QtPrinter::elencoFont()
{
    QStringList r = QFontDatabase::families();
    QStringList installati;
    for (const QString &f : r)
        installati.append(senzaFonderia(f));
    // Linux seldom has the Windows faces by name, but the font configuration
    // maps them to metric-compatible ones; offer the name when that face
    // is really there and has a fixed pitch.
    for (const char *c : {"Courier New", "Courier"}) {
        const QString nome = QString::fromLatin1(c);
        if (r.contains(nome))
            continue;
        const QFontInfo fi{QFont(nome)};
        if (fi.fixedPitch() && installati.contains(senzaFonderia(fi.family()), Qt::CaseInsensitive))
            r.append(nome);
    }
    return r;
}

int QtPrinter::FontCount()
{
    fonts_ = elencoFont();
    fontsLetti_ = true;
    return int(fonts_.size());
}

QString QtPrinter::Fonts(int i)
{
    if (!fontsLetti_)
        FontCount();
    return fonts_.value(i);
}

void QtPrinter::setFontName(const QString &name)
{
    nomeFont_ = name;
}

void QtPrinter::setFontSize(double points)
{
    punti_ = points;
}

void QtPrinter::setFontBold(bool bold)
{
    grassetto_ = bold;
}

QStringList QtPrinter::printers()
{
    return QPrinterInfo::availablePrinterNames();
}

QString QtPrinter::defaultPrinter()
{
    return QPrinterInfo::defaultPrinterName();
}

QString QtPrinter::currentPrinter()
{
    if (!scelta_.isEmpty() && !QPrinterInfo::printerInfo(scelta_).isNull())
        return scelta_;
    const QString predefinita = QPrinterInfo::defaultPrinterName();
    if (!predefinita.isEmpty())
        return predefinita;
    // Queues but no default: the first one, rather than no printer at all.
    return QPrinterInfo::availablePrinterNames().value(0);
}

void QtPrinter::setCurrentPrinter(const QString &name)
{
    if (!QPrinterInfo::printerInfo(name).isNull())
        scelta_ = name;
}

void QtPrinter::setDocumentName(const QString &name)
{
    documento_ = name;
}

// The page is begun at the first line printed, like a line printer.
void QtPrinter::iniziaPagina()
{
    if (painter_ && painter_->isActive())
        return;
    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    const QString documento = documento_.isEmpty() ? QStringLiteral("Stampa") : documento_;
    printer_->setDocName(documento);
    const QString stampante = currentPrinter();
    if (soloPdf_ || stampante.isEmpty()) {
        filePdf_ = QDir::current().absoluteFilePath(documento + QStringLiteral(".pdf"));
        printer_->setOutputFormat(QPrinter::PdfFormat);
        printer_->setOutputFileName(filePdf_);
    } else {
        filePdf_.clear();
        printer_->setPrinterName(stampante);
        if (printer_->printerName() != stampante)
            throw ErroreStampa(QStringLiteral("La stampante %1 non è disponibile.").arg(stampante));
    }
    printer_->setResolution(1440);
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(printer_.get())) {
        painter_.reset();
        printer_.reset();
        throw ErroreStampa(filePdf_.isEmpty()
                               ? QStringLiteral("La stampante %1 non accetta la pagina.").arg(stampante)
                               : nonScritto(filePdf_));
    }
}

QFont QtPrinter::carattere() const
{
    QFont f(nomeFont_);
    f.setStyleHint(QFont::TypeWriter);
    f.setPointSizeF(punti_);
    f.setBold(grassetto_);
    return f;
}

double QtPrinter::larghezzaStampabile()
{
    iniziaPagina();
    return printer_->pageRect(QPrinter::DevicePixel).width();
}

double QtPrinter::larghezzaTesto(const QString &text)
{
    iniziaPagina();
    return QFontMetricsF(carattere(), printer_.get()).horizontalAdvance(text);
}

void QtPrinter::print(const QString &text)
{
    iniziaPagina();
    const QFont f = carattere();
    const QFontMetricsF fm(f, printer_.get());
    painter_->setFont(f);
    painter_->drawText(QPointF(x_, y_ + fm.ascent()), text);
    y_ += fm.height();
    x_ = 0;
}

void QtPrinter::endDoc()
{
    x_ = 0;
    y_ = 0;
    if (!painter_ || !painter_->isActive())
        return;
    const bool ok = painter_->end() && printer_->printerState() != QPrinter::Error;
    painter_.reset();
    printer_.reset();
    if (!ok)
        throw ErroreStampa(filePdf_.isEmpty() ? QStringLiteral("La pagina non è stata inviata alla stampante.")
                                              : nonScritto(filePdf_));
    if (!filePdf_.isEmpty())
        mostraPdf(filePdf_);
}

// The viewer is not waited for. When it cannot be started, or gives up
// (no program for PDF files), the user is told where the page went.
void QtPrinter::mostraPdf(const QString &file)
{
    auto *viewer = new QProcess;
    const auto fine = [viewer, file, vivo = std::weak_ptr<bool>(vivo_), messaggi = messaggi_](bool riuscito) {
        viewer->deleteLater();
        if (!riuscito && !vivo.expired() && messaggi)
            messaggi->mostra(QStringLiteral("Nessuna stampante installata: la pagina è stata salvata nel file\n%1")
                                 .arg(QDir::toNativeSeparators(file)),
                             QStringLiteral("Stampa"));
    };
    QObject::connect(viewer, &QProcess::finished, viewer,
                     [fine](int codice, QProcess::ExitStatus uscita) { fine(uscita == QProcess::NormalExit && codice == 0); });
    QObject::connect(viewer, &QProcess::errorOccurred, viewer, [fine](QProcess::ProcessError e) {
        if (e == QProcess::FailedToStart)
            fine(false);
    });
    viewer->start(visualizzatore_, {file});
}
