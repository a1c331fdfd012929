#pragma once
// The current printer of the run on Qt's print system. One device unit is one
// twip. With no printer installed at all, each page is written as a PDF in
// the current folder (named after the document) and shown in the system's
// PDF viewer.
#include "content/piattaforma.h"
#include "ui/stampante.h"
#include <QStringList>
#include <memory>

class QFont;
class QPainter;
class QPrinter;

class QtPrinter final : public IPrinter
{
public:
    QtPrinter();
    ~QtPrinter() override;

    int FontCount() override;
    QString Fonts(int i) override;
    void setFontName(const QString &name) override;
    void setFontSize(double points) override;
    void setFontBold(bool bold) override;
    double currentX() const override { return x_; }
    double currentY() const override { return y_; }
    void setCurrentX(double twips) override { x_ = twips; }
    void setCurrentY(double twips) override { y_ = twips; }
    void print(const QString &text) override;
    double larghezzaStampabile() override;
    double larghezzaTesto(const QString &text) override;
    void endDoc() override;

    QStringList printers() override;
    QString defaultPrinter() override;
    QString currentPrinter() override;
    void setCurrentPrinter(const QString &name) override;
    void setDocumentName(const QString &name) override;

    // The installed font families, then "Courier New" and "Courier" when the
    // font configuration maps them to an installed fixed-pitch face.
    static QStringList elencoFont();

    // The program that shows a finished PDF ("xdg-open": the desktop's
    // viewer), and where to say where the file is when it cannot.
    void setVisualizzatore(const QString &programma) { visualizzatore_ = programma; }
    void setMessaggi(IMessageBox *messaggi) { messaggi_ = messaggi; }
    // Writes PDF files even when printers are installed (tests).
    void setSoloPdf(bool solo) { soloPdf_ = solo; }
    // The PDF file of the page being made, or of the last one (empty: none).
    QString filePdf() const { return filePdf_; }

private:
    void iniziaPagina();
    QFont carattere() const;
    void mostraPdf(const QString &file);

    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QPainter> painter_;
    QStringList fonts_;
    bool fontsLetti_ = false;
    QString nomeFont_ = QStringLiteral("Courier New");
    double punti_ = 10;
    bool grassetto_ = false;
    double x_ = 0, y_ = 0;
    QString scelta_;
    QString documento_;
    QString filePdf_;
    bool soloPdf_ = false;
    QString visualizzatore_ = QStringLiteral("xdg-open");
    IMessageBox *messaggi_ = nullptr;
    // Outlived by the viewers still running: they look at it before speaking.
    std::shared_ptr<bool> vivo_ = std::make_shared<bool>(true);
};
