#pragma once
// A printer that writes down what a page would carry, for tests of the
// printouts and of the screens that start them. Nothing reaches a device.
#include "ui/stampante.h"
#include <QStringList>

class FakePrinter : public IPrinter
{
public:
    // What the device offers; change before the code under test runs.
    QStringList fonts{QStringLiteral("Arial"), QStringLiteral("Courier New")};
    QStringList stampanti{QStringLiteral("PDF")};
    QString corrente = QStringLiteral("PDF");
    // Failures: print() throws once this many lines have gone (-1 never);
    // endDoc() throws when erroreFine is set.
    int stampeRiuscite = -1;
    // The printable width in twips (an A4 sheet, edge to edge) and a face
    // of fixed pitch: 0.6 em, 12 twips a point for each character.
    double larghezza = 11906;
    bool erroreFine = false;

    // Every line as "x y font size[b] |text|", and "fine <document>" for a
    // document sent. A line moves y down 24 twips a point, about a fixed-pitch face.
    QStringList pagina;
    int righe = 0;
    QString font;
    double dimensione = 10, x = 0, y = 0;
    bool grassetto = false;

    int FontCount() override { return int(fonts.size()); }
    QString Fonts(int i) override { return fonts.value(i); }
    void setFontName(const QString &name) override { font = name; }
    void setFontSize(double points) override { dimensione = points; }
    void setFontBold(bool bold) override { grassetto = bold; }
    double currentX() const override { return x; }
    double currentY() const override { return y; }
    void setCurrentX(double twips) override { x = twips; }
    void setCurrentY(double twips) override { y = twips; }
    void print(const QString &text) override
    {
        if (righe++ == stampeRiuscite)
            throw ErroreStampa(QStringLiteral("fake printer: print failed"));
        pagina << QStringLiteral("%1 %2 %3 %4%5 |%6|").arg(x).arg(y).arg(font).arg(dimensione).arg(grassetto ? "b" : "", text);
        y += dimensione * 24;
        x = 0;
    }
    double larghezzaStampabile() override { return larghezza; }
    double larghezzaTesto(const QString &text) override { return double(text.size()) * dimensione * 12; }
    void endDoc() override
    {
        if (erroreFine)
            throw ErroreStampa(QStringLiteral("fake printer: end of document failed"));
        pagina << QStringLiteral("fine ") + documento_;
        x = y = 0;
    }
    QStringList printers() override { return stampanti; }
    QString defaultPrinter() override { return stampanti.value(0); }
    QString currentPrinter() override { return corrente; }
    void setCurrentPrinter(const QString &name) override
    {
        if (stampanti.contains(name))
            corrente = name;
    }
    void setDocumentName(const QString &name) override { documento_ = name; }

private:
    QString documento_;
};
