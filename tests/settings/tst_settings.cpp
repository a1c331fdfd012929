// The settings file, the start screen and the options panel that write it, and
// the resizing the screens share.
#include "fakes/cartella.h"
#include "fakes/estrazioni.h"
#include "fakes/mondo.h"
#include "settings/filesettings.h"
#include "settings/frminizio.h"
#include "settings/frmopzioni.h"
#include "ui/coloriopzioni.h"
#include "ui/rigaopzioni.h"

#include <QtTest>
#include <QtWidgets>
#include <memory>

namespace {

const QString kDat = QStringLiteral("composizione.dat");
const QString kPannello = QStringLiteral("prova.dat");
// The eleven appearance values when the file cannot be read.
const QString kPredefinito = QStringLiteral("12640511 8438015 328965 1 1 1 16754175 16745215 4 4 9");
// A black page, the first variant off and the second empty: the first value even fits a level.
const QByteArray kAspetto("0\r\n8438015\r\n328965\r\nTrue\r\nFalse\r\n\r\n16754175\r\n16745215\r\n 4\r\n 4\r\n 0\r\n");

// The eleven appearance values in file order, "-" for an empty variant.
QString aspetto(const Settings &s)
{
    const auto sn = [](const std::optional<bool> &b) { return b ? QString::number(*b) : QStringLiteral("-"); };
    return QStringList{s.ColoreSfondo, s.ColoreRiserva, s.ColoreCaratteri, QString::number(s.BeepAttivo),
                       sn(s.ImpostazioneA), sn(s.ImpostazioneB), s.ColoreScansioneChiaro, s.ColoreScansioneScuro,
                       QString::number(s.IndiceSfondo), QString::number(s.IndiceScansione),
                       QString::number(s.IndiceCaratteri)}
        .join(' ');
}

} // namespace

class TestSettings : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    std::unique_ptr<Mondo> m_;
    std::unique_ptr<QWidget> f_;

    // The start screen's file is named after this executable.
    static QString datInizio() { return QCoreApplication::applicationName() + QStringLiteral(".dat"); }
    QString testo(const QString &nome) const { return f_->findChild<QLabel *>(nome)->text(); }

    // A screen on a fresh state; the panel keeps its settings in prova.dat.
    // The start screen's curtains are run out: the mouse would meet them.
    template <class F> void apri(bool tendine = false)
    {
        f_.reset();
        m_ = std::make_unique<Mondo>(0); // no topic: the start screen installs it
        AspettoPredefinito(m_->stato.settings);
        f_ = m_->apri<F>();
        if (auto *inizio = qobject_cast<FrmInizio *>(f_.get()); inizio && !tendine)
            while (inizio->tendine().attiva())
                inizio->tickTendine();
    }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init()
    {
        // A handler the program did not mean to stop fails the test.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped")));
        for (const QString &n : {kDat, kPannello, datInizio()})
            QFile::remove(n);
        QDir().rmdir(kDat);
    }
    void cleanup() { f_.reset(); }

    // Either reader falls back on a file in the other's format, or on anything damaged.
    void lettura_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("livelli"); // level and digits read; empty: fallen back to 1 1
        QTest::addColumn<QString>("letto");   // the eleven values read; empty: the defaults
        QTest::newRow("no file") << QByteArray() << "" << "";
        QTest::newRow("a folder in its place") << QByteArray("<folder>") << "" << "";
        QTest::newRow("levels line") << QByteArray(" 3  2 \r\n") << "3 2" << "";
        QTest::newRow("appearance lines") << kAspetto << "" << "0 8438015 328965 1 0 - 16754175 16745215 4 4 0";
        QTest::newRow("LF line ends") << QByteArray("16777215\n8438015\n328965\nFalse\nTrue\nTrue\n1\n2\n 3\n 4\n 9\n")
                                      << "" << "16777215 8438015 328965 0 1 1 1 2 3 4 9";
        QTest::newRow("commas, a quoted value") << QByteArray("0,8438015,\"328965\",True,True,True,1,2,3,4,5") << ""
                                << "0 8438015 328965 1 1 1 1 2 3 4 5";
        QTest::newRow("blanks around") << QByteArray("  255 \r\n 1\r\n2\r\n true \r\n0\r\n1\r\n3\r\n4\r\n 10 \r\n0\r\n0")
                                       << "255 1" << "255 1 2 1 0 1 3 4 10 0 0";
        QTest::newRow("ten lines") << QByteArray("1\n2\n3\nTrue\nTrue\nTrue\n4\n5\n6\n7\n") << "1 2" << "";
        QTest::newRow("colour too large") << QByteArray("16777216\n2\n3\nTrue\nTrue\nTrue\n4\n5\n1\n1\n1\n") << "" << "";
        QTest::newRow("index out of list") << QByteArray("1\n2\n3\nTrue\nTrue\nTrue\n4\n5\n11\n1\n1\n") << "1 2" << "";
        QTest::newRow("beep is a word") << QByteArray("1\n2\n3\nForse\nTrue\nTrue\n4\n5\n1\n1\n1\n") << "1 2" << "";
        QTest::newRow("one number") << QByteArray(" 2 \r\n") << "" << "";
        QTest::newRow("decimal") << QByteArray("1.5 2\r\n") << "" << "";
    }
    void lettura()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, livelli);
        QFETCH(QString, letto);
        const bool cartella = file == "<folder>";
        if (cartella)
            QVERIFY(QDir().mkdir(kDat));
        else if (!file.isNull())
            QVERIFY(scriviFile(kDat, file));
        Settings s;
        s.NomeFile = "composizione";
        s.Livello = s.NumeroCifre = 7;
        QCOMPARE(LeggiLivelli(s, s.NomeFile), !livelli.isEmpty());
        QCOMPARE(QStringLiteral("%1 %2").arg(s.Livello).arg(s.NumeroCifre), livelli.isEmpty() ? "1 1" : livelli);
        QCOMPARE(LeggiImpostazioni(s), !letto.isEmpty());
        QCOMPARE(aspetto(s), letto.isEmpty() ? kPredefinito : letto);
        // Each writer replaces the whole file with its own lines, byte for byte
        // those it reads; a folder is left alone.
        QCOMPARE(livelli.isEmpty() ? ScriviImpostazioni(s) : ScriviLivelli(s), !cartella);
        QCOMPARE(QFileInfo(kDat).isDir(), cartella);
        if (file == kAspetto || file == " 3  2 \r\n")
            QCOMPARE(leggiFile(kDat), file);
    }

    // Read at start; stepped and written at once, then read back by the next start.
    void livelloECifre_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("atteso"); // level | digits | largest value | title | page colour | worksheets menu
        QTest::addColumn<QString>("fuoco");  // after the script
        const QString dec = "|SISTEMA DECIMALE: composizione|", k0 = "Option1(0)";
        const QString uno = "|1 cifra|9" + dec + "12640511|Stampa schede:  unità,    decimi, centesimi, millesimi";
        QTest::newRow("no file") << QByteArray() << "" << "1" + uno << k0;
        QTest::newRow("levels line") << QByteArray(" 7  2 \r\n") << "" << "7|2 cifre|19|SISTEMA METRICO: composizione|12640511"
                                        "|Stampa schede:  grammi,    decigrammi, centigrammi, milligrammi" << k0;
        QTest::newRow("appearance lines") << kAspetto << "" << QString("1" + uno).replace("12640511", "0") << k0;
        // No topic for this level: the titles stay as they were drawn, the menu follows them.
        QTest::newRow("level without topic") << QByteArray(" 13  1 \r\n") << ""
                                             << "13|1 cifra|9|COMPOSIZIONE|12640511|Stampa schede:  u   d c m" << k0;
        QTest::newRow("level: arrow and titles, wraps after 3") << QByteArray()
            << "click:Label8 click:Label6(0) click:Label6(2) click:Label8" << "2|1 cifra|9" + dec + "12640511|Stampa schede: centinaia, decine, unità" << k0;
        QTest::newRow("digits wrap") << QByteArray() << "click:Label7 click:lblCifre click:Label7"
                                     << QString("1" + uno).replace("1 cifra|9", "2 cifre|19") << k0;
        // The arrows never take the focus: space still steps the row it was on.
        // Any topic from the menu, by keys; the stepper goes on from there and, above 3, does not wrap.
        QTest::newRow("topic menu, then the stepper") << QByteArray() << "Ctrl+L Down*8 Return click:Label8"
            << "10|1 cifra|9|SISTEMA METRICO: composizione|12640511|Stampa schede:  tonnellate,    quintali, miriagrammi, chilogrammi" << k0;
        QTest::newRow("double clicks step once, focus stays") << QByteArray() << "dclick:Label8 dclick:Label6(1) dclick:Label7 Space"
            << "3|2 cifre|19" + dec + "12640511|Stampa schede:  migliaia,    centinaia, decine, unità" << "Option1(1)";
    }
    void livelloECifre()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, script);
        QFETCH(QString, atteso);
        if (!file.isEmpty())
            QVERIFY(scriviFile(datInizio(), file));
        for (int volta = 0; volta < 2; ++volta) {
            apri<FrmInizio>();
            if (volta == 0) {
                Utente{f_.get()}.esegui(script);
                QTEST(Utente::fuoco(), "fuoco");
            }
            const Settings &s = m_->stato.settings;
            QCOMPARE(QStringList({testo("Label3"), testo("lblCifre"), QString::number(s.ValoreMassimo), f_->windowTitle(),
                                  s.ColoreSfondo, f_->findChild<QAction *>("mnuSchede")->text()}).join('|'), atteso);
            Utente{f_.get()}.esegui(QStringLiteral("Ctrl+L Escape")); // the topic menu is made when first opened
            const auto voci = f_->findChild<QMenu *>("mnuArgomenti")->actions();
            QCOMPARE(voci.size(), 12);
            for (int n = 1; n <= 12; ++n) // the topic menu: every names line, the installed topic checked
                QCOMPARE(std::pair(voci[n - 1]->text(), voci[n - 1]->isChecked()), std::pair(argomento(n).value(5).trimmed(), n == s.Livello));
        }
        QCOMPARE(QFile::exists(datInizio()), !file.isEmpty() || !script.isEmpty());
    }

    void scelte_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("focus");
        QTest::addColumn<QString>("atteso"); // kind and order codes | Label1 | Label2 | rows 2 and 3 enabled
        QTest::addColumn<QString>("schermi");
        QTest::newRow("mouse") << "click:Option1(1) click:Option2(2) click:Option3(0)" << "Option3(0)"
                               << "23| Trova il simbolo| Usa i simboli ordinati e non ordinati|11" << "apri Operativo";
        QTest::newRow("space steps and wraps, Enter chooses, held once") << "Space Space Return Space Return Space Space Space Return*2" << "Option3(0)"
            << "32| Trova il numero o il simbolo| Usa i simboli non ordinati|11" << "apri Operativo";
        QTest::newRow("held space steps once") << "Space*1 Space*1" << "Option1(2)" << "00|||00" << "";
        QTest::newRow("keypad 3 moves on") << "K3" << "Option2(0)" << "00|||10" << "";
        QTest::newRow("top row 3 and 0 are no keys") << "3 0" << "Option1(0)" << "00|||00" << "";
        QTest::newRow("top-row and keypad digits move") << "Return 2 K1 K2" << "Option3(1)" << "10| Trova il numero||11" << "";
        QTest::newRow("Reimposta keeps the choices") << "Return Return Space Return" << "Option1(0)" << "11|||00" << "";
        // A mouse choice of a kind leaves that row's key flag set: the next key there is swallowed.
        QTest::newRow("mouse kind, then keys") << "click:Option1(2) click:Option2(0) click:Option3(1) Return Return"
                                               << "Option2(0)" << "11| Trova il numero||10" << "";
        // The options panel is not closed: left open, it keeps the program alive.
        // "1" moves on without a kind: "Vai" sends the pupil back to choose one.
        QTest::newRow("Vai with no kind") << "1 Return Return" << "Option1(0)" << "01|| Usa i simboli ordinati|11" << "";
        QTest::newRow("Esci") << "click:Option3(2)" << "Option3(2)" << "00|||00"
                              << "chiudi Autore, chiudi Inizio, chiudi Operativo, chiudi SceltaStampante, "
                                 "chiudi StampaEsercizio, chiudi Schede";
    }
    void scelte()
    {
        QFETCH(QString, script);
        apri<FrmInizio>();
        Utente{f_.get()}.esegui(script);
        QTEST(Utente::fuoco(), "focus");
        const Settings &s = m_->stato.settings;
        QTEST(QStringLiteral("%1%2|%3|%4|%5%6").arg(s.TipoEsercizio).arg(s.OrdineSimboli)
                  .arg(testo("Label1"), testo("Label2")).arg(f_->findChild<QWidget *>("Frame2")->isEnabled())
                  .arg(f_->findChild<QWidget *>("Frame3")->isEnabled()), "atteso");
        QTEST(m_->schermi.chiamate, "schermi");
    }

    // A curtain left between 10 and 74 twips wide cannot take another step:
    // every tick fails from then on and the curtains stay.
    void tendine()
    {
        Tendine t;
        t.avvia(2 * 80);
        QVERIFY(t.tick() && !t.attiva() && t.larghezza1() == 5);
        t.avvia(2 * 100);
        QVERIFY(t.tick() && !t.tick() && !t.tick() && t.attiva() && t.larghezza1() == 25 && t.larghezza2() == 25);
    }

    // The curtains open by themselves once the screen is on view; each
    // activation sets the item count back to 0.
    void attivazioneAzzeraEsercizio()
    {
        apri<FrmInizio>(true);
        QTRY_VERIFY(!static_cast<FrmInizio *>(f_.get())->tendine().attiva());
        Utente{f_.get()}.esegui("click:Option1(0)");
        m_->stato.record.NumeroEsercizio = 12;
        QWidget altra;
        altra.show();
        QVERIFY(QTest::qWaitForWindowActive(&altra));
        f_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f_.get()));
        QCOMPARE(m_->stato.record.NumeroEsercizio, 0);
        QCOMPARE(Utente::fuoco(), "Option1(0)");
    }

    // The panel's colours change the settings at once; its commands store them
    // or leave, and change nothing else: the preview keeps the resting key in
    // the page colour the scanning click gave it. The command row always
    // shows the scanning colours in force.
    void pannello_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("atteso"); // the settings afterwards
        QTest::addColumn<QString>("dopo");   // "scritto" (stored), "chiuso" (left) or ""
        // Not the paler colours used when the file cannot be read.
        const QString predefinite = "16763135 8438015 328965 0 1 1 16763135 16724735 4 4 9";
        // "Bianco" letters are a light grey, so that they show on a light page.
        const QString scelte = "12517375 8438015 13158600 0 1 1 9886820 9881700 2 7 0";
        QTest::newRow("just the clicks") << "" << scelte << "";
        QTest::newRow("defaults: 3, keypad 1, Enter") << "3 K1 Enter" << predefinite << "scritto";
        QTest::newRow("defaults: M I Enter") << "M I Return" << predefinite << "scritto";
        QTest::newRow("X is no key") << "X Return" << predefinite << "scritto";
        QTest::newRow("store by mouse") << "click:Option5(1)" << scelte << "scritto";
        QTest::newRow("store: M Enter") << "M Return" << scelte << "scritto";
        QTest::newRow("store: arrows") << "Left Left Return" << scelte << "scritto";
        QTest::newRow("Esci: E Enter") << "E Return" << scelte << "chiuso";
        QTest::newRow("held space keeps stepping") << "Space*1 Return" << scelte << "chiuso";
    }
    void pannello()
    {
        QFETCH(QString, script);
        QFETCH(QString, atteso);
        QFETCH(QString, dopo);
        apri<FrmOpzioni>();
        Settings &s = m_->stato.settings;
        s.BeepAttivo = false;
        s.ImpostazioneB = true; // asks for a control the panel does not have
        // The clicks leave the focus in the lists; Tab leads back to the command row.
        Utente{f_.get()}.esegui("click:Option1(2) click:Option27(0) click:Option17(7) tab:Option5(0) " + script);
        QCOMPARE(aspetto(s), atteso);
        QCOMPARE(m_->schermi.chiamate, dopo == "chiuso" ? "chiudi Opzioni" : "");
        QCOMPARE(QFile::exists(kPannello), dopo == "scritto");
        const RigaOpzioni *comandi = static_cast<FrmOpzioni *>(f_.get())->comandi();
        QCOMPARE(comandi->opzioni().fuoco, ColoreDaTesto(s.ColoreScansioneScuro));
        QCOMPARE(comandi->opzioni().riposo, ColoreDaTesto(s.ColoreScansioneChiaro));
        QCOMPARE(f_->findChild<QWidget *>("Option2")->grab().toImage().pixelColor(5, 35), QColor(255, 255, 190));
        if (dopo != "scritto")
            return;
        // The stored buttons are selected, and the file holds the eleven values.
        for (const QString &b : {QStringLiteral("Option1(%1)").arg(s.IndiceSfondo),
                                 QStringLiteral("Option27(%1)").arg(s.IndiceCaratteri),
                                 QStringLiteral("Option17(%1)").arg(s.IndiceScansione), QStringLiteral("Option3(1)")})
            QVERIFY2(f_->findChild<QRadioButton *>(b)->isChecked(), qPrintable(b));
        Settings letto;
        QVERIFY(LeggiImpostazioniDa(leggiFile(kPannello), letto));
        QCOMPARE(aspetto(letto), atteso);
    }

    // The colours of the panel's lists, index by index (page, text, scanning
    // light and dark), as the table in tests/data/colori_pannello.txt gives them.
    void coloriDelPannello()
    {
        apri<FrmOpzioni>();
        const Settings &s = m_->stato.settings;
        QStringList visti;
        for (int i = 0; i < 11; ++i) {
            Utente{f_.get()}.esegui(QStringLiteral("click:Option1(%1) click:Option27(%1) click:Option17(%1)").arg(i));
            QStringList rgb;
            for (const QString &c : {s.ColoreSfondo, s.ColoreCaratteri, s.ColoreScansioneChiaro, s.ColoreScansioneScuro})
                rgb << QStringLiteral("%1 %2 %3").arg(ColoreDaTesto(c).red()).arg(ColoreDaTesto(c).green()).arg(ColoreDaTesto(c).blue());
            visti << rgb.join(QStringLiteral(" | "));
        }
        QCOMPARE(visti, QString::fromUtf8(leggiFile(QFINDTESTDATA("../data/colori_pannello.txt"))).trimmed().split(u'\n'));
    }

    // Every control of the start screen keeps its fractions of the page.
    void ridimensionaInizio()
    {
        apri<FrmInizio>(); // the curtains run out
        QWidget *pagina = static_cast<QMainWindow *>(f_.get())->centralWidget();
        QHash<QWidget *, QRect> prima;
        for (QWidget *c : pagina->findChildren<QWidget *>())
            prima.insert(c, c->geometry());
        QVERIFY(prima.size() > 20);
        f_->resize(f_->size() + QSize(FrmInizio::kLarghezza, FrmInizio::kAltezza / 2));
        QCOMPARE(pagina->size(), QSize(2 * FrmInizio::kLarghezza, 3 * FrmInizio::kAltezza / 2));
        for (auto it = prima.cbegin(); it != prima.cend(); ++it) {
            const QRect a = it.key()->geometry(), p = it.value();
            // Within a pixel of rounding.
            QVERIFY2(qAbs(a.x() - 2 * p.x()) + qAbs(a.y() - qRound(1.5 * p.y())) <= 2 &&
                         qAbs(a.width() - 2 * p.width()) <= 1 && qAbs(a.height() - qRound(1.5 * p.height())) <= 1,
                     qPrintable(it.key()->objectName()));
        }
    }

    // A screen larger than the free area of the display opens scaled down in
    // proportion, its text too, and wholly inside it, frame included; one that
    // fits is left alone. (The offscreen display is 800 x 800.)
    void adattaAlloSchermo_data()
    {
        QTest::addColumn<QSize>("design");
        QTest::addColumn<QSize>("atteso");
        QTest::newRow("fits") << QSize(792, 764) << QSize(792, 764);
        QTest::newRow("too wide") << QSize(1180, 700) << QSize(792, 469);
        QTest::newRow("too tall") << QSize(700, 900) << QSize(594, 764);
    }
    void adattaAlloSchermo()
    {
        QFETCH(QSize, design);
        const QMargins cornice(4, 32, 4, 4);
        QWidget w;
        w.resize(design);
        QLabel testo(&w);
        QComboBox combo(&w);
        QFrame linea(&w);
        linea.setFrameShape(QFrame::HLine);
        testo.setFont(QFont(QStringLiteral("Sans"), 20));
        for (QWidget *c : {static_cast<QWidget *>(&testo), static_cast<QWidget *>(&combo), static_cast<QWidget *>(&linea)})
            c->setGeometry(40, 30, 80, 20);
        ResizeColore r;
        r.prendi(&w);
        w.move(-50, -50);
        AdattaAlloSchermo(&w, cornice);
        r.applica();
        QTEST(w.size(), "atteso");
        const double f = double(w.width()) / design.width();
        QCOMPARE(testo.font().pointSizeF(), 20.0 * f);
        // The proportional resize moves the label, never a combo box or a line.
        QCOMPARE(testo.geometry(), QRect(qRound(40 * f), qRound(30.0 * w.height() / design.height()), qRound(80 * f),
                                         qRound(20.0 * w.height() / design.height())));
        QVERIFY(combo.geometry() == QRect(40, 30, 80, 20) && linea.geometry() == QRect(40, 30, 80, 20));
        // Centred in the free area, or left where it was.
        const QPoint scarto = QRect(w.pos(), w.size().grownBy(cornice)).center() - w.screen()->availableGeometry().center();
        QVERIFY(design == w.size() ? w.pos() == QPoint(-50, -50) : scarto.manhattanLength() <= 2);
    }
};

QTEST_MAIN(TestSettings)
#include "tst_settings.moc"
