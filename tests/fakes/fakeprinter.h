#pragma once
// A printer that records every call, for tests of the printouts and of the
// screens that start them. Nothing reaches a real device.
//
//   FakePrinter p;                       // fonts {"Arial", "Courier New"}, one printer "PDF"
//   stato.servizi.stampante = &p;
//   ... StampaScheda(...) ...
//   p.stampe()          -> every printed line with x, y, font, size, bold in force
//   p.testiStampati()   -> the printed texts only
//   p.documentiFiniti   -> how many endDoc calls succeeded
//   p.eventi            -> everything, in call order
#include "ui/stampante.h"
#include <QList>
#include <QStringList>

class FakePrinter : public IPrinter
{
public:
    enum class Tipo { Font, Dimensione, Grassetto, X, Y, Stampa, FineDocumento, NomeDocumento, Stampante };

    struct Evento {
        Tipo tipo;
        QString testo;     // Stampa: the text; Font/NomeDocumento/Stampante: the name
        double valore = 0; // Dimensione/X/Y: the value set; Grassetto: 1 or 0
        // The state in force when the event happened (for Stampa: where the text went).
        double x = 0, y = 0;
        QString font;
        double dimensione = 0;
        bool grassetto = false;
    };

    // What the device offers; change before the code under test runs.
    QStringList fonts{QStringLiteral("Arial"), QStringLiteral("Courier New")};
    QStringList stampanti{QStringLiteral("PDF")};
    QString predefinita = QStringLiteral("PDF");
    QString corrente = QStringLiteral("PDF");

    // Failures: print() throws once `stampeRiuscite` texts have gone through
    // (-1 = never); endDoc() throws when `erroreFine` is set.
    int stampeRiuscite = -1;
    bool erroreFine = false;

    // Twips a printed line moves down per point of font size (a line of 10 pt
    // moves 240 twips, roughly what a fixed-pitch face gives).
    double twipsPerPunto = 24.0;

    QList<Evento> eventi;
    int documentiFiniti = 0;
    QString nomeDocumento;

    // State in force.
    double x = 0, y = 0;
    QString font;
    double dimensione = 10;
    bool grassetto = false;

    QList<Evento> stampe() const
    {
        QList<Evento> r;
        for (const Evento &e : eventi)
            if (e.tipo == Tipo::Stampa)
                r.append(e);
        return r;
    }
    QStringList testiStampati() const
    {
        QStringList r;
        for (const Evento &e : eventi)
            if (e.tipo == Tipo::Stampa)
                r.append(e.testo);
        return r;
    }
    void azzera()
    {
        eventi.clear();
        documentiFiniti = 0;
    }

    int FontCount() override { return int(fonts.size()); }
    QString Fonts(int i) override { return fonts.value(i); }
    void setFontName(const QString &name) override
    {
        font = name;
        registra(Tipo::Font, name);
    }
    void setFontSize(double points) override
    {
        dimensione = points;
        registra(Tipo::Dimensione, {}, points);
    }
    void setFontBold(bool bold) override
    {
        grassetto = bold;
        registra(Tipo::Grassetto, {}, bold ? 1 : 0);
    }
    double currentX() const override { return x; }
    double currentY() const override { return y; }
    void setCurrentX(double twips) override
    {
        x = twips;
        registra(Tipo::X, {}, twips);
    }
    void setCurrentY(double twips) override
    {
        y = twips;
        registra(Tipo::Y, {}, twips);
    }
    void print(const QString &text) override
    {
        if (stampeRiuscite >= 0 && int(stampe().size()) >= stampeRiuscite)
            throw ErroreStampa("fake printer: print failed");
        registra(Tipo::Stampa, text);
        y += dimensione * twipsPerPunto;
        x = 0;
    }
    void endDoc() override
    {
        if (erroreFine)
            throw ErroreStampa("fake printer: end of document failed");
        registra(Tipo::FineDocumento);
        ++documentiFiniti;
        x = 0;
        y = 0;
    }
    QStringList printers() override { return stampanti; }
    QString defaultPrinter() override { return predefinita; }
    QString currentPrinter() override { return corrente; }
    void setCurrentPrinter(const QString &name) override
    {
        registra(Tipo::Stampante, name);
        if (stampanti.contains(name))
            corrente = name;
    }
    void setDocumentName(const QString &name) override
    {
        nomeDocumento = name;
        registra(Tipo::NomeDocumento, name);
    }

private:
    void registra(Tipo t, const QString &testo = {}, double valore = 0)
    {
        eventi.append({t, testo, valore, x, y, font, dimensione, grassetto});
    }
};
