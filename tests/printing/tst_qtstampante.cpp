// The real Qt device, printing to PDF files read back with pdftotext.
#include "fakes/cartella.h"
#include "fakes/fakes.h"
#include "printing/stampa.h"
#include "settings/stato.h"
#include "ui/qtstampante.h"

#include <QDir>
#include <QFontDatabase>
#include <QPrinter>
#include <QPrinterInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

using Posti = QMap<QString, QPointF>;

namespace {

struct Parola {
    QString testo;
    double x, y; // top-left, points from the top-left of the page
};

QList<Parola> parole(const QString &pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    if (!p.waitForFinished(30000))
        return {};
    static const QRegularExpression re(QStringLiteral(R"re(<word xMin="([\d.]+)" yMin="([\d.]+)"[^>]*>([^<]*)</word>)re"));
    QList<Parola> r;
    for (const auto &m : re.globalMatch(QString::fromUtf8(p.readAllStandardOutput())))
        r.append({m.captured(3), m.captured(1).toDouble(), m.captured(2).toDouble()});
    return r;
}

// Where twip (0, 0) of the device lies on the page: the printable area's corner.
QPointF origine()
{
    QPrinter pr(QPrinter::HighResolution);
    pr.setOutputFormat(QPrinter::PdfFormat);
    return pr.pageLayout().paintRect(QPageLayout::Point).topLeft();
}

} // namespace

class TestQtStampante : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    FakeMessageBox box_;
    Stato s_;
    QtPrinter p_;
    QStringList aperti_;

private slots:
    void initTestCase()
    {
        QVERIFY(cartella_.valida());
        p_.setSoloPdf(true);
        p_.setApriPdf([this](const QString &f) { aperti_.append(f); });
        s_.settings.NomeFile = QStringLiteral("prova");
        s_.servizi.stampante = &p_;
        s_.servizi.messaggi = &box_;
        for (int i = 1; i <= 60; ++i) {
            s_.record.RigheEsercizio[std::size_t(i)] = QStringLiteral("E%1 = 1.234").arg(i, 2, 10, QLatin1Char('0'));
            s_.fogli.RigheScheda[std::size_t(i)] = QStringLiteral("S%1 = ......").arg(i, 2, 10, QLatin1Char('0'));
        }
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
    }
    void init() { aperti_.clear(); }

    void elencoFont()
    {
        const QStringList l = QtPrinter::elencoFont();
        const QStringList famiglie = QFontDatabase::families();
        QCOMPARE(l.mid(0, famiglie.size()), famiglie);
        QVERIFY(l.size() <= famiglie.size() + 2);
        if (!famiglie.contains("Liberation Mono") && !famiglie.contains("Nimbus Mono PS"))
            QSKIP("no metric-compatible fixed-pitch face installed (fonts-liberation, fonts-urw-base35)");
        QVERIFY(l.contains("Courier New") || l.contains("Courier"));
        QVERIFY(!CercaCarattere(p_).isEmpty());
        QCOMPARE(l.count("Courier New"), famiglie.contains("Liberation Mono") ? 1 : 0);
    }

    // Each line k must stand at its twips within a point.
    void pagina_data()
    {
        QTest::addColumn<bool>("scheda");
        QTest::addColumn<QString>("file");
        QTest::addColumn<Posti>("attesi"); // first word -> twips
        Posti es{{"SCUOLA", {1000, 1000}}}, sc{{"Classe", {1000, 900}}};
        for (int i = 1; i <= 20; ++i)
            es.insert(QStringLiteral("E%1").arg(i, 2, 10, QLatin1Char('0')), {1000.0, i <= 10 ? 2000.0 + (i - 1) * 400 : 5000.0 + (i - 1) * 400});
        for (int k = 1; k <= 30; ++k)
            sc.insert(QStringLiteral("S%1").arg(k, 2, 10, QLatin1Char('0')),
                      {1000.0, k <= 10 ? 2000.0 + (k - 1) * 400 : k <= 20 ? 6000.0 + (k - 10) * 400 : 10500.0 + (k - 20) * 400});
        QTest::newRow("exercise, 20 lines") << false << "provaEsercizio.pdf" << es;
        QTest::newRow("worksheet, 30 lines") << true << "provaScheda.pdf" << sc;
    }
    void pagina()
    {
        QFETCH(bool, scheda);
        QFETCH(QString, file);
        QFETCH(Posti, attesi);
        s_.record.NumeroEsercizio = 20;
        s_.fogli.StampaRidotta = 0;
        s_.fogli.NumeroOperazioni = 30;
        scheda ? StampaScheda(s_, 1, "Trova il numero", "Simboli ordinati") : StampaEsercizio(s_);
        QVERIFY(box_.mostrati.isEmpty());
        const QString percorso = QDir::current().absoluteFilePath(file);
        QCOMPARE(aperti_, QStringList{percorso});

        const QPointF o = origine();
        QMap<QString, Parola> trovate;
        for (const Parola &w : parole(percorso))
            if (!trovate.contains(w.testo))
                trovate.insert(w.testo, w);
        for (auto it = attesi.cbegin(); it != attesi.cend(); ++it) {
            QVERIFY2(trovate.contains(it.key()), qPrintable(it.key() + " not on the page"));
            const Parola &w = trovate[it.key()];
            const QPointF atteso = o + it.value() / 20.0;
            QVERIFY2(qAbs(w.x - atteso.x()) <= 1.0 && qAbs(w.y - atteso.y()) <= 1.0,
                     qPrintable(QStringLiteral("%1 at (%2, %3) pt, expected (%4, %5)")
                                    .arg(it.key()).arg(w.x).arg(w.y).arg(atteso.x()).arg(atteso.y())));
        }
        // The second header line follows the first by one line of the device.
        if (!scheda)
            QVERIFY(trovate["Componi"].y - trovate["SCUOLA"].y > 14);
    }

    void erroriEPaginaPigra()
    {
        // Nothing printed: ending the document makes no file and opens nothing.
        p_.setDocumentName(QStringLiteral("vuoto"));
        p_.endDoc();
        QVERIFY(!QFile::exists(QStringLiteral("vuoto.pdf")));
        QVERIFY(aperti_.isEmpty());
        // A page that cannot be begun.
        p_.setDocumentName(QStringLiteral("manca/dentro"));
        QVERIFY_THROWS_EXCEPTION(ErroreStampa, p_.print(QStringLiteral("x")));
        // A printed line goes down by the line height and back to the left.
        p_.setDocumentName(QStringLiteral("righe"));
        p_.setCurrentX(500);
        p_.setCurrentY(700);
        p_.setFontSize(10);
        p_.print(QStringLiteral("x"));
        QCOMPARE(p_.currentX(), 0.0);
        QVERIFY(p_.currentY() > 700 + 200 && p_.currentY() < 700 + 300);
        p_.endDoc();
        QVERIFY(QFile::exists(QStringLiteral("righe.pdf")));
    }

    void senzaStampantiScriveIlPdf()
    {
        if (!QPrinterInfo::availablePrinterNames().isEmpty())
            QSKIP("print queues are installed here");
        QtPrinter p;
        p.setApriPdf([this](const QString &f) { aperti_.append(f); });
        QCOMPARE(p.currentPrinter(), QString());
        p.setDocumentName(QStringLiteral("predefinito"));
        p.print(QStringLiteral("x"));
        p.endDoc();
        QCOMPARE(aperti_, QStringList{QDir::current().absoluteFilePath("predefinito.pdf")});
    }
};

QTEST_MAIN(TestQtStampante)
#include "tst_qtstampante.moc"
