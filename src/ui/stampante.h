#pragma once
#include <QString>
#include <QStringList>
#include <stdexcept>

// A printer failed while a page was being made or sent. The text, in UTF-8,
// is meant for the user.
struct ErroreStampa : std::runtime_error {
    explicit ErroreStampa(const QString &testo) : std::runtime_error(testo.toStdString()) {}
    QString testo() const { return QString::fromUtf8(what()); }
};

// The current printer of the run, as the printing screens use it: a line
// printer that places text in twips (1440 per inch) from the top-left of the
// printable area. A printed line moves the position one line of the current
// font down and back to the left edge.
class IPrinter
{
public:
    virtual ~IPrinter() = default;

    virtual int FontCount() = 0;
    virtual QString Fonts(int i) = 0;            // i from 0
    virtual void setFontName(const QString &name) = 0;
    virtual void setFontSize(double points) = 0;
    virtual void setFontBold(bool bold) = 0;
    virtual double currentX() const = 0;
    virtual double currentY() const = 0;
    virtual void setCurrentX(double twips) = 0;
    virtual void setCurrentY(double twips) = 0;
    virtual void print(const QString &text) = 0; // text, then end of line
    // In twips: the width of the printable area, and of a text in the
    // current font. Either may begin the page.
    virtual double larghezzaStampabile() = 0;
    virtual double larghezzaTesto(const QString &text) = 0;
    virtual void endDoc() = 0;                   // sends the page; throws ErroreStampa

    // Installed printers by device name, in the system's order.
    virtual QStringList printers() = 0;
    virtual QString defaultPrinter() = 0;
    virtual QString currentPrinter() = 0;
    // Makes an installed printer the current one until the program ends.
    virtual void setCurrentPrinter(const QString &name) = 0;

    // The name of the next document, without extension (NomeFile +
    // "Esercizio", "SchedaAlunni" or "SchedaDocenti"); a device that has to
    // write the page to a file of its own names the file after it.
    virtual void setDocumentName(const QString &name) { (void)name; }
};
