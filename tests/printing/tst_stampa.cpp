// Printing end to end: the record file, the two printouts on a recording
// printer, one page on the real device read back from its PDF, and the
// printer choice and worksheet screens driven by mouse and keys.
#include "fakes/attesi.h"
#include "fakes/cartella.h"
#include "fakes/estrazioni.h"
#include "fakes/mondo.h"
#include "printing/fileesercizio.h"
#include "printing/frmsceltastampante.h"
#include "printing/frmstampaeserciziotre.h"
#include "printing/frmstampaschedetre.h"
#include "printing/stampa.h"
#include "ui/qtstampante.h"

#include <QPrinter>
#include <QtWidgets>
#include <QtTest>

using Righe = QList<QPair<int, QString>>; // (index, text) as told to the screen

namespace {
// "E07", "S12": one word a line, so that each line can be found on a PDF page.
QString riga(char tipo, int k) { return QStringLiteral("%1%2").arg(QLatin1Char(tipo)).arg(k, 2, 10, QLatin1Char('0')); }
// Where line k stands, in twips. The exercise (tipo 0): from 2000 by 400, a gap
// after the tenth. Worksheets: blocks of ten at 2000, 6400 and 10900 (and on).
int yRiga(int tipo, int k)
{
    if (!tipo)
        return (k <= 10 ? 2000 : 5000) + (k - 1) * 400;
    return k <= 10 ? 2000 + (k - 1) * 400 : k <= 20 ? 6000 + (k - 10) * 400 : 10500 + (k - 20) * 400;
}
} // namespace

class TestStampa : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    std::unique_ptr<Mondo> m_;
    std::unique_ptr<QWidget> w_;
    const QString dat_ = QStringLiteral("provaEsercizio.dat");


    template <typename T = QWidget>
    T *ctl(const QString &nome) const { return w_->findChild<T *>(nome); }
    QString testo(const QString &nome) const { return ctl<QLabel>(nome)->text(); }
    // A fresh state, every record and sheet line telling its index.
    void nuovo(int livello = 3)
    {
        w_.reset();
        m_ = std::make_unique<Mondo>(livello);
        m_->caso.dopo = 0.37;
        for (int k = 1; k <= 60; ++k) {
            m_->stato.record.riga(k) = riga('E', k);
            m_->stato.fogli.RigheScheda[std::size_t(k)] = riga('S', k);
        }
    }
    template <typename F> Utente apri()
    {
        w_ = m_->apri<F>();
        return Utente{w_.get()};
    }
    QStringList anteprima() const
    {
        QStringList r;
        for (int k = 1; k <= 30; ++k)
            r << testo(QStringLiteral("LblOp(%1)").arg(k));
        return r;
    }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init()
    {
        // A handler the program did not mean to stop fails the test.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped")));
        QFile::remove(dat_);
        QDir(dat_).removeRecursively();
        nuovo();
    }
    void cleanup() { w_.reset(); }

    void salva_data()
    {
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("ridotta");
        QTest::addColumn<QStringList>("righe");
        QTest::addColumn<QByteArray>("byte");
        QTest::newRow("signs, no lines") << -3 << -1 << QStringList{"unsaved"} << QByteArray("-3 -1 \r\n");
        QTest::newRow("lines as they stand, one byte a character")
            << 3 << 1 << QStringList{"   1 h = 1,5", "x, \"y\"", QString::fromUtf8("unità € è"), "unsaved"}
            << QByteArray(" 3  1 \r\n   1 h = 1,5\r\nx, \"y\"\r\nunit\xe0 \x80 \xe8\r\n");
        QTest::newRow("largest, nothing previewed")
            << 60 << 32767 << QStringList() << QByteArray(" 60  32767 \r\n") + QByteArray(60, '\r').replace("\r", "\r\n");
        // A folder under the file's name cannot be replaced: the user is told.
        QTest::newRow("a folder in its place") << 2 << 0 << QStringList() << QByteArray();
    }
    void salva()
    {
        QFETCH(int, numero);
        QFETCH(int, ridotta);
        QFETCH(QStringList, righe);
        QFETCH(QByteArray, byte);
        m_->stato.record.NumeroEsercizio = qint16(numero);
        m_->stato.fogli.StampaRidotta = qint16(ridotta);
        m_->stato.fogli.RigheScheda.fill({});
        for (int i = 0; i < righe.size(); ++i)
            m_->stato.fogli.RigheScheda[std::size_t(i + 1)] = righe[i];
        if (byte.isNull())
            QVERIFY(QDir().mkdir(dat_));
        else
            QVERIFY(scriviFile(dat_, "old file, longer than the new one................................"));
        SalvaEsercizio(m_->stato); // the exercise's own lines (RigheEsercizio) are never saved
        QCOMPARE(leggiFile(dat_), byte);
        QCOMPARE(m_->stato.fogli.NumeroOperazioni, qint16(qMax(numero, 0) + 1));
        QCOMPARE(m_->messaggi.mostrati.size(), int(byte.isNull()));
        QVERIFY(byte.isNull() == m_->messaggi.mostrati.value(0).contains(dat_));
    }

    void carica_data()
    {
        QTest::addColumn<QByteArray>("file"); // null: no file; "/": a folder in its place
        QTest::addColumn<int>("contatore");   // NumeroOperazioni before the load
        QTest::addColumn<int>("numero");
        QTest::addColumn<int>("ridotta");
        QTest::addColumn<Righe>("righe");     // none: the load failed
        QTest::newRow("lines land at the counter; commas split, quotes keep them")
            << QByteArray(" 2  1 \r\n uno \r\n\r\n  \"a, b\" tail,c") << 21 << 2 << 1
            << Righe{{21, "uno "}, {22, ""}, {23, "a, b"}, {24, "c"}};
        QTest::newRow("numbers split by a comma, LF ends") << QByteArray("3,1\nx\n") << 1 << 3 << 1 << Righe{{1, "x"}};
        QTest::newRow("one byte a character, past 60 skipped")
            << QByteArray(" 9  0 \r\nunit\xe0 \x80\r\nb\r\nc\r\n") << 59 << 9 << 0 << Righe{{59, QString::fromUtf8("unità €")}, {60, "b"}};
        QTest::newRow("decimals rounded to even") << QByteArray(" 2.5 1.5\r\nx") << 1 << 2 << 2 << Righe{{1, "x"}};
        QTest::newRow("missing file") << QByteArray() << 1 << 7 << 3 << Righe{};
        QTest::newRow("folder in its place") << QByteArray("/") << 1 << 7 << 3 << Righe{};
        QTest::newRow("one number only") << QByteArray(" 12 \r\n") << 1 << 12 << 3 << Righe{};
        QTest::newRow("beyond 16 bits") << QByteArray(" 40000  0 \r\n") << 1 << 7 << 3 << Righe{};
    }
    void carica()
    {
        QFETCH(QByteArray, file);
        QFETCH(int, contatore);
        if (file == "/")
            QVERIFY(QDir().mkdir(dat_));
        else if (!file.isNull())
            QVERIFY(scriviFile(dat_, file));
        m_->stato.record.NumeroEsercizio = 7;
        m_->stato.fogli.StampaRidotta = 3;
        m_->stato.fogli.NumeroOperazioni = qint16(contatore);
        Righe r;
        CaricaEsercizio(m_->stato, [&](int i, const QString &t) { r.append({i, t}); });
        QTEST(int(m_->stato.record.NumeroEsercizio), "numero");
        QTEST(int(m_->stato.fogli.StampaRidotta), "ridotta");
        QTEST(r, "righe");
        for (const auto &[i, t] : r)
            QCOMPARE(m_->stato.fogli.RigheScheda[std::size_t(i)], t);
        // A failed load says so, and leaves the counter where it was.
        QCOMPARE(m_->messaggi.mostrati, r.isEmpty() ? QStringList{"Nessun esercizio eseguito presente"} : QStringList());
        QVERIFY(!r.isEmpty() || m_->stato.fogli.NumeroOperazioni == contatore);
    }

    // The font is the first of "Courier New" and "Courier" the printer lists,
    // by exact name; with neither, nothing is printed and the user is told.
    // A worksheet tells of any failure (here a line past the buffer). Lines
    // print at the largest size, up to 10 (12 on pupils' sheets) in tenths of
    // a point, at which the longest printed one ends inside the page: 12
    // twips a point a character on the recording printer, from x = 1000.
    void stampe_data()
    {
        QTest::addColumn<int>("tipo"); // 0 the exercise, 1 pupils' worksheet, 2 teachers'
        QTest::addColumn<int>("righe");
        QTest::addColumn<int>("ridotta");
        QTest::addColumn<QStringList>("fonts");
        QTest::addColumn<QString>("font");
        QTest::addColumn<int>("stampate");
        QTest::addColumn<QString>("detto");
        QTest::addColumn<int>("lunga");     // characters of line 20 (0: as it is)
        QTest::addColumn<double>("pagina"); // printable width, twips
        QTest::addColumn<QString>("dimensione");
        const QStringList cn{"Arial", "Courier New"}, simili{"courier new", "COURIER", "Courier ", " Courier New",
                                                              "Courier New Bold", "Courier 10 Pitch", "DejaVu Sans Mono"};
        const QString senza = "Devi installare il font Courier o il font Courier New", c = "Courier New";
        const double a4 = 11906, letter = 12240;
        QTest::newRow("exercise, 10") << 0 << 10 << 0 << cn << c << 10 << "" << 0 << a4 << "10b";
        QTest::newRow("exercise, 20 reduced") << 0 << 20 << 1 << cn << c << 10 << "" << 0 << a4 << "10b";
        QTest::newRow("exercise, 30, flag 2 is not reduced: line 20 counts") << 0 << 30 << 2 << QStringList{"Courier", "Arial", c} << "Courier" << 30 << "" << 107 << a4 << "8.4b";
        QTest::newRow("exercise, no font") << 0 << 20 << 0 << simili << "" << 0 << senza << 0 << a4 << "";
        QTest::newRow("pupils, 10") << 1 << 10 << 0 << cn << c << 10 << "" << 0 << a4 << "12";
        QTest::newRow("teachers, 20") << 2 << 20 << 0 << QStringList{c, "Courier"} << c << 20 << "" << 0 << a4 << "10";
        QTest::newRow("pupils, 30, Courier") << 1 << 30 << 0 << QStringList{"Courier"} << "Courier" << 30 << "" << 0 << a4 << "12";
        QTest::newRow("pupils, no font") << 1 << 30 << 0 << simili << "" << 0 << senza << 0 << a4 << "";
        QTest::newRow("pupils, 61: no line 61") << 1 << 61 << 0 << cn << c << 60 << "Problema di stampa nella stampante utilizzata." << 0 << a4 << "12";
        QTest::newRow("exercise, 90 characters fit at 10") << 0 << 20 << 0 << cn << c << 20 << "" << 90 << a4 << "10b";
        QTest::newRow("exercise, 91 characters") << 0 << 20 << 0 << cn << c << 20 << "" << 91 << a4 << "9.9b";
        QTest::newRow("exercise, a record line on A4") << 0 << 20 << 0 << cn << c << 20 << "" << 107 << a4 << "8.4b";
        QTest::newRow("exercise, a record line on Letter") << 0 << 20 << 0 << cn << c << 20 << "" << 107 << letter << "8.7b";
        QTest::newRow("exercise reduced: line 20 is not printed") << 0 << 20 << 1 << cn << c << 10 << "" << 107 << a4 << "10b";
        QTest::newRow("pupils, 75 characters fit at 12") << 1 << 20 << 0 << cn << c << 20 << "" << 75 << a4 << "12";
        QTest::newRow("pupils, 76 characters") << 1 << 20 << 0 << cn << c << 20 << "" << 76 << a4 << "11.9";
        QTest::newRow("teachers, 91 characters") << 2 << 20 << 0 << cn << c << 20 << "" << 91 << a4 << "9.9";
    }
    void stampe()
    {
        QFETCH(int, tipo);
        QFETCH(int, righe);
        QFETCH(QString, font);
        QFETCH(int, stampate);
        QFETCH(QString, detto);
        QFETCH(int, ridotta);
        QFETCH(QStringList, fonts);
        QFETCH(int, lunga);
        QFETCH(QString, dimensione);
        QFETCH(double, pagina);
        m_->stampante.fonts = fonts;
        m_->stampante.larghezza = pagina;
        m_->stato.record.NumeroEsercizio = m_->stato.fogli.NumeroOperazioni = qint16(righe);
        m_->stato.fogli.StampaRidotta = qint16(ridotta);
        const bool es = tipo == 0;
        QString &r20 = es ? m_->stato.record.riga(20) : m_->stato.fogli.RigheScheda[20];
        r20 = r20.leftJustified(lunga, u'.');
        m_->stampante.grassetto = true; // the device keeps the font the last document left: each starts plain
        es ? StampaEsercizio(m_->stato) : StampaScheda(m_->stato, qint16(tipo), QStringLiteral("Trova il numero"), QStringLiteral("Simboli ordinati"));
        // The header, every line of it in its place, is in the pages of
        // tests/data; here it only has to start plain. Then "x y font size[b] |text|".
        QVERIFY(!QRegularExpression(QStringLiteral(" \\d+b \\|")).match(m_->stampante.pagina.value(0)).hasMatch());
        QStringList attese;
        for (int k = 1; k <= stampate; ++k)
            attese << QStringLiteral("1000 %1 %2 %3 |%4|").arg(yRiga(tipo, k))
                          .arg(es ? font : QStringLiteral("Courier New"), dimensione, k == 20 ? r20 : riga(es ? 'E' : 'S', k));
        if (detto.isEmpty())
            attese << (es ? "fine provaEsercizio" : tipo == 1 ? "fine provaSchedaAlunni" : "fine provaSchedaDocenti");
        QCOMPARE(m_->stampante.pagina.mid(stampate ? 3 - es : 0), attese);
        QCOMPARE(m_->messaggi.mostrati, detto.isEmpty() ? QStringList() : QStringList{detto});
        // The exercise's loop runs on the shared counter: the record file counts on where it stops.
        QCOMPARE(m_->stato.fogli.NumeroOperazioni, qint16(righe + (es && stampate)));
    }

    // The printout screen shows the lines in the printer's face, counts the
    // shared counter on past them, and tells the teacher when the printer
    // fails (here after three lines) instead of failing silently.
    void schermoEsercizio()
    {
        m_->stato.record.NumeroEsercizio = 30;
        m_->stampante.stampeRiuscite = 3;
        Utente u = apri<FrmStampaEsercizioTre>();
        QCOMPARE(testo("LblOp(30)"), riga('E', 30));
        const QFont f = ctl("LblOp(30)")->font(); // the printer's face, to the last label
        QCOMPARE(QStringLiteral("%1 %2 %3").arg(f.family()).arg(f.pointSize()).arg(f.bold()), "Courier New 10 1");
        QCOMPARE(m_->stato.fogli.NumeroOperazioni, qint16(31));
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("Command1(1)"));
        u.esegui(QStringLiteral("Return*2")); // "STAMPA L'ESERCIZIO", held: one page
        QCOMPARE(m_->messaggi.mostrati, QStringList{"fake printer: print failed | Errore di stampa (!)"});
        QCOMPARE(m_->stampante.pagina.size(), 3); // the header and one line, and no second try
        u.esegui(QStringLiteral("Space Return")); // "SALVA  L'ESERCIZIO"
        QVERIFY(QFile::exists(dat_));
        u.esegui(QStringLiteral("click:Command1(0)")); // "ESCI"
        QCOMPARE(m_->schermi.chiamate, "apri Operativo, chiudi StampaEsercizio");
    }

    // The real device writing a PDF, as with no printer installed: one file
    // for each kind of page; the viewer shows it, or the user is told where it
    // is; a PDF that cannot be written is a printer error like any other.
    // Each line lies within a point of its twips from the printable area's
    // corner, and every word of it inside that area.
    void paginaPdf_data()
    {
        QTest::addColumn<int>("tipo"); // 0 the exercise, 1 pupils' worksheet, 2 teachers'
        QTest::addColumn<QString>("visualizzatore");
        QTest::addColumn<bool>("bloccato"); // a folder stands where the file goes
        QTest::addColumn<QString>("detto");
        const QString file = QDir::current().absoluteFilePath(QStringLiteral("provaEsercizio.pdf"));
        const QString dove = QStringLiteral("Nessuna stampante installata: la pagina è stata salvata nel file\n") + file + " | Stampa";
        QTest::newRow("the viewer shows it") << 0 << "true" << false << "";
        QTest::newRow("the viewer gives up") << 0 << "false" << false << dove;
        QTest::newRow("no viewer") << 0 << "/no/such/viewer" << false << dove;
        QTest::newRow("cannot be written") << 0 << "true" << true << "Impossibile scrivere il file " + file + ".";
        QTest::newRow("pupils' sheet") << 1 << "true" << false << "";
        QTest::newRow("teachers' sheet") << 2 << "true" << false << "";
    }
    void paginaPdf()
    {
        QFETCH(int, tipo);
        QFETCH(QString, visualizzatore);
        QFETCH(bool, bloccato);
        QFETCH(QString, detto);
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("pdftotext (poppler-utils) is not installed");
        QtPrinter qt;
        qt.setSoloPdf(true);
        qt.setVisualizzatore(visualizzatore);
        qt.setMessaggi(&m_->messaggi);
        m_->stato.servizi.stampante = &qt;
        m_->stato.record.NumeroEsercizio = m_->stato.fogli.NumeroOperazioni = 20;
        // As long as record lines and keys: "E07 ... F07  (sec.  12)", "S07 ... T07".
        for (int k = 1; k <= 20; ++k) {
            m_->stato.record.riga(k) = riga('E', k) + QString(92, u' ') + riga('F', k) + QStringLiteral("  (sec.  12)");
            m_->stato.fogli.RigheScheda[std::size_t(k)] = riga('S', k) + QString(66, u' ') + riga('T', k);
        }
        const QString pdf = QDir::current().absoluteFilePath(QStringList{"provaEsercizio.pdf", "provaSchedaAlunni.pdf", "provaSchedaDocenti.pdf"}[tipo]);
        QFile::remove(pdf);
        QVERIFY(QDir(pdf).removeRecursively() && (!bloccato || QDir().mkdir(pdf)));
        try {
            tipo ? StampaScheda(m_->stato, qint16(tipo), {}, {}) : StampaEsercizio(m_->stato);
        } catch (const ErroreStampa &e) {
            m_->messaggi.mostra(e.testo(), {}, {});
        }
        QTest::qWait(200); // the viewer runs on its own
        QTRY_COMPARE(m_->messaggi.mostrati, detto.isEmpty() ? QStringList() : QStringList{detto});
        if (!detto.isEmpty())
            return;
        QCOMPARE(qt.filePdf(), pdf);

        QProcess pt;
        pt.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
        QVERIFY(pt.waitForFinished(30000));
        static const QRegularExpression re(QStringLiteral(R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)"[^>]*>([^<]*)</word>)re"));
        QPrinter pr(QPrinter::HighResolution);
        pr.setOutputFormat(QPrinter::PdfFormat);
        const QRectF area = pr.pageLayout().paintRect(QPageLayout::Point);
        QMap<QString, QPointF> trovate; // first place of each word, points from the page's top-left
        for (const auto &m : re.globalMatch(QString::fromUtf8(pt.readAllStandardOutput()))) {
            QVERIFY2(m.captured(3).toDouble() <= area.right(), qPrintable(m.captured(4) + " runs off the page"));
            if (!trovate.contains(m.captured(4)))
                trovate.insert(m.captured(4), {m.captured(1).toDouble(), m.captured(2).toDouble()});
        }
        QMap<QString, QPointF> attesi{{tipo ? "Classe" : "SCUOLA", QPointF(1000, tipo ? 900 : 1000)}}; // twips
        for (int k = 1; k <= 20; ++k) {
            attesi.insert(riga(tipo ? 'S' : 'E', k), QPointF(1000, yRiga(tipo, k)));
            QVERIFY2(trovate.contains(riga(tipo ? 'T' : 'F', k)), "a line lost its end");
        }
        for (auto it = attesi.cbegin(); it != attesi.cend(); ++it) {
            const QPointF d = trovate.value(it.key(), {-1e6, -1e6}) - area.topLeft() - it.value() / 20.0; // missing: far off
            QVERIFY2(qAbs(d.x()) <= 1 && qAbs(d.y()) <= 1, qPrintable(QStringLiteral("%1 off by (%2, %3) pt").arg(it.key()).arg(d.x()).arg(d.y())));
        }
        // The second header line follows the first by one line of the device.
        QVERIFY(tipo || trovate["Componi"].y() - trovate["SCUOLA"].y() > 14);
    }

    // The first combo click of the run comes from the screen's own opening
    // and only arms a flag; from the next opening on it is a real choice.
    void sceltaStampante()
    {
        const QString predefinita = QStringLiteral("La stampante predefinita è \r\n"), scelta = QStringLiteral("La stampante scelta è \r\n");
        m_->stampante.stampanti = {"Ufficio", "Aula 2", "PDF"};
        Utente u = apri<frmSceltaStampante>();
        auto *f = static_cast<frmSceltaStampante *>(w_.get());
        QCOMPARE(f->Label1->text() + f->Label2->text(), predefinita + "PDF"); // nothing chosen
        u.esegui(QStringLiteral("Down Down Up"));
        QCOMPARE(m_->stampante.corrente, QStringLiteral("Aula 2"));
        QCOMPARE(f->Label2->text(), scelta + "Aula 2");
        u.esegui(QStringLiteral("tab:Command2 Space"));
        QCOMPARE(m_->schermi.chiamate, "chiudi SceltaStampante");
        apri<frmSceltaStampante>();
        f = static_cast<frmSceltaStampante *>(w_.get());
        QCOMPARE(f->Label1->text() + f->Label2->text(), predefinita + "Ufficio" + scelta + "Ufficio");
        // With no printer the pages become PDF files: the screen says where.
        m_->stampante.stampanti.clear();
        apri<frmSceltaStampante>();
        QCOMPARE(ctl("lblCartella")->isVisible() ? testo("lblCartella").remove(QChar(0x200B)) : "",
                 "Nessuna stampante installata: le pagine diventano file PDF nella cartella \r\n" + QDir::toNativeSeparators(QDir::currentPath()));
    }

    // Worksheets of thirty lines on a three- and a four-position topic, as
    // tests/data/schede.txt writes them from the layout rules, chosen by keys
    // and by mouse: both previews line by line, and printed pages.
    void schede()
    {
        const QStringList attese = righeAttese(QStringLiteral("schede.txt"));
        QStringList viste;
        Utente u{nullptr};
        for (qsizetype i = 0; i < attese.size() && !QTest::currentTestFailed(); ++i) {
            const QStringList a = attese[i].split(u' ');
            if (a[0] == QLatin1String("scheda")) {
                QStringList voci;
                for (qsizetype j = i + 1; j < attese.size() && a[0] != attese[j].section(u' ', 0, 0); ++j)
                    if (attese[j].startsWith(QLatin1String("voce ")))
                        voci << attese[j].mid(5);
                nuovo(a[2].toInt());
                m_->caso.valori = estrazioni(voci, classe(a[2].toInt()), 3, 0, 19);
                u = apri<FrmStampaSchedeTre>();
                // Kind and order 3 by keys or by the mouse; then the pupils' preview.
                // A stray key held down (X) is no key of these rows: the next one still counts.
                u.esegui((a[4] == u'2' ? QStringLiteral("X+ 2 Return X+ 3 Return") : QStringLiteral("click:Option1(0) click:Option2(2)")) +
                         " click:CmdVisualizzaSchedaAlunni");
                const QStringList alunni = anteprima();
                u.esegui(QStringLiteral("tab:CmdVisualizzaSchedaDocenti Return"));
                const QStringList docenti = anteprima();
                viste << attese[i];
                for (int k = 0; k < voci.size(); ++k)
                    viste << "voce " + voci[k] << "alunni |" + alunni.value(k) + u'|' << "docenti |" + docenti.value(k) + u'|';
            } else if (a[0] == QLatin1String("stampa")) {
                const QString chi = a[1] == QLatin1String("alunni") ? QStringLiteral("Alunni") : QStringLiteral("Docenti");
                const int n = a.value(2, QStringLiteral("30")).toInt();
                m_->stampante.pagina.clear();
                if (n != 30)
                    u.esegui(QStringLiteral("tab:Opt1(%1) Space click:Option2(2)").arg(n / 10 - 1));
                u.esegui("click:CmdVisualizzaScheda" + chi + " click:CmdStampaScheda" + chi);
                // The preview shows the count, as the page; the print keys only its own.
                QCOMPARE(anteprima().indexOf(QStringLiteral(" ")), n < 30 ? n : -1);
                QVERIFY(!u.controllo(chi == QLatin1String("Alunni") ? "CmdStampaSchedaDocenti" : "CmdStampaSchedaAlunni")->isVisible());
                viste << attese[i];
                for (const QString &r : std::as_const(m_->stampante.pagina))
                    viste << QStringLiteral("pagina ") + r;
            } else if (!QStringList{"voce", "alunni", "docenti", "pagina"}.contains(a[0])) {
                viste << attese[i]; // comments
            }
        }
        CONFRONTA_RIGHE(viste, attese);
        QVERIFY(m_->messaggi.mostrati.isEmpty());
        u.esegui(QStringLiteral("tab:cmdEsci Return"));
        QCOMPARE(m_->schermi.chiamate, "chiudi Schede");
    }

};

QTEST_MAIN(TestStampa)
#include "tst_stampa.moc"
