#include "printing/frmstampaschedetre.h"

#include "content/catalogo.h"
#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "settings/stato.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

struct Ambiente {
    FakePrinter stampante;
    FakeMessageBox messaggi;
    FakeScreens schermi;
    FakeClock orologio;
    FakeRandom caso; // one value for ever: every line alike, which is all these tests need
    Stato stato;
    Ambiente()
    {
        stato.settings.NomeFile = QStringLiteral("prova");
        stato.settings.ValoreMassimo = 9;
        SceltaSimboli(3, stato.topic, stato.titoli);
        caso.dopo = 0.37;
        stato.servizi = {&orologio, &caso, &messaggi, nullptr, &stampante, &schermi};
        stato.fogli.NumeroOperazioni = 7;
    }
};

const QColor striscia(255, 224, 192), rosso(255, 0, 0);
const QStringList tipi{"Trova il numero", "Trova il simbolo", "Trova il numero o il simbolo"};
const QStringList ordini{"Simboli ordinati", "Simboli non ordinati", "Simboli ordinati e non ordinati"};

void premi(Qt::Key k) { QTest::keyClick(QApplication::focusWidget(), k); }

} // namespace

class TestFrmStampaSchedeTre : public QObject
{
    Q_OBJECT
    std::unique_ptr<Ambiente> a_;
    std::unique_ptr<FrmStampaSchedeTre> w_;

    template <typename T = QWidget>
    T *ctl(const QString &nome) const { return w_->findChild<T *>(nome); }
    QString riga(int k) const { return ctl<QLabel>(QStringLiteral("LblOp(%1)").arg(k))->text(); }
    QColor sfondo(const QString &nome) const { return ctl(nome)->palette().color(QPalette::Window); }
    bool stampaVisibile(const QString &chi) const { return ctl("CmdStampaScheda" + chi)->isVisible(); }

    void apri()
    {
        a_ = std::make_unique<Ambiente>();
        w_ = std::make_unique<FrmStampaSchedeTre>(a_->stato);
        w_->show();
        QVERIFY(QTest::qWaitForWindowActive(w_.get()));
    }
    // A key of a row, with the mouse or with the row's keys.
    void scegli(const QString &rigaTasti, int i, bool tastiera)
    {
        if (!tastiera)
            return QTest::mouseClick(ctl(QStringLiteral("%1(%2)").arg(rigaTasti).arg(i)), Qt::LeftButton);
        if (i == 2 && rigaTasti == QLatin1String("Option1")) // no digit for the third kind: step to it
            premi(Qt::Key_Space), premi(Qt::Key_Space);
        else
            premi(Qt::Key(Qt::Key_1 + i));
        premi(Qt::Key_Return);
    }
    // Any other button: clicked, or reached with Tab (the arrows inside a radio group) and pressed.
    void premiTasto(const QString &nome, bool tastiera)
    {
        auto *b = ctl<QAbstractButton>(nome);
        if (!tastiera)
            return b->click();
        const bool radio = b->inherits("QRadioButton");
        for (int i = 0; i < 40 && QApplication::focusWidget() != b; ++i)
            premi(radio && QApplication::focusWidget()->objectName().startsWith("Opt1(") ? Qt::Key_Down : Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), b);
        premi(radio ? Qt::Key_Space : Qt::Key_Return);
    }

private slots:
    void cleanup() { w_.reset(), a_.reset(); }

    // kind -> order -> count -> order again -> preview -> print
    void flusso_data()
    {
        QTest::addColumn<bool>("tastiera");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("ordine");
        QTest::addColumn<int>("conteggio");
        QTest::addColumn<QString>("chi");
        QTest::newRow("mouse: numero, ordinati, 10, alunni") << false << 0 << 0 << 0 << "Alunni";
        QTest::newRow("mouse: simbolo, non ordinati, 20, docenti") << false << 1 << 1 << 1 << "Docenti";
        QTest::newRow("tasti: numero o simbolo, misti, 30, docenti") << true << 2 << 2 << 2 << "Docenti";
        QTest::newRow("tasti: simbolo, ordinati, 10, alunni") << true << 1 << 0 << 0 << "Alunni";
    }
    void flusso()
    {
        QFETCH(bool, tastiera);
        QFETCH(int, tipo);
        QFETCH(int, ordine);
        QFETCH(int, conteggio);
        QFETCH(QString, chi);
        apri();
        Stato &s = a_->stato;
        QCOMPARE(s.fogli.NumeroOperazioni, qint16(30));
        QCOMPARE(ctl<QPushButton>("Option2(0)")->text(), QStringLiteral(" k     h   da  u "));
        QCOMPARE(ctl<QPushButton>("Option2(1)")->text(), QStringLiteral(" u   da  h     k "));
        QVERIFY(!ctl("Frame7")->isEnabled() && !ctl("Frame1")->isEnabled() && !stampaVisibile("Alunni"));
        QCOMPARE(ctl<QLabel>("Label1")->text() + ctl<QLabel>("Label2")->text(), QString());
        QVERIFY(ctl("LblOp(1)")->fontInfo().fixedPitch());

        scegli("Option1", tipo, tastiera); // the keys start from Option1(0), which has the focus
        QCOMPARE(s.settings.TipoEsercizio, qint16(tipo + 1));
        QCOMPARE(ctl<QLabel>("Label1")->text(), tipi.at(tipo));
        for (int i = 0; i < 3; ++i)
            QCOMPARE(sfondo(QStringLiteral("Label3(%1)").arg(i)), i == tipo ? rosso : striscia);
        QCOMPARE(QApplication::focusWidget(), ctl("Option2(0)"));

        scegli("Option2", ordine, tastiera);
        QCOMPARE(s.settings.OrdineSimboli, qint16(ordine + 1));
        QCOMPARE(ctl<QLabel>("Label2")->text(), ordini.at(ordine));
        QCOMPARE(sfondo(QStringLiteral("Label4(%1)").arg(ordine)), rosso);
        QVERIFY(ctl("Frame1")->isEnabled());

        const int n = (conteggio + 1) * 10;
        premiTasto(QStringLiteral("Opt1(%1)").arg(conteggio), tastiera);
        QCOMPARE(s.fogli.NumeroOperazioni, qint16(n));
        QCOMPARE(riga(1), QStringLiteral(" "));

        // A new order makes a full sheet again, whatever the count.
        s.record.RigheEsercizio.fill(QStringLiteral("vecchia"));
        QTest::mouseClick(ctl(QStringLiteral("Option2(%1)").arg(ordine)), Qt::LeftButton);
        QVERIFY(s.record.riga(30) != QLatin1String("vecchia"));
        QCOMPARE(s.record.riga(31), QStringLiteral("vecchia"));

        premiTasto("CmdVisualizzaScheda" + chi, tastiera);
        QVERIFY(stampaVisibile(chi) && !stampaVisibile(chi == "Alunni" ? "Docenti" : "Alunni"));
        const auto &fonte = chi == "Alunni" ? s.record.RigheEsercizio : s.fogli.RigheDocenti;
        for (int k = 1; k <= 30; ++k)
            QCOMPARE(riga(k), k <= n ? fonte[std::size_t(k)] : QStringLiteral(" "));
        QCOMPARE(s.fogli.RigheScheda[std::size_t(n)], fonte[std::size_t(n)]);

        premiTasto("CmdStampaScheda" + chi, tastiera);
        const auto st = a_->stampante.stampe();
        QCOMPARE(st.size(), 3 + n);
        QCOMPARE(st.at(0).testo, QStringLiteral("Classe          Nome e cognome                     "));
        QCOMPARE(st.at(1).testo, tipi.at(tipo) + "        " + ordini.at(ordine));
        for (int k = 1; k <= n; k += 10) {
            QCOMPARE(st.at(2 + k).testo, fonte[std::size_t(k)]);
            QCOMPARE(st.at(2 + k).y, QList<double>({2000, 6400, 10900}).at(k / 10));
            QCOMPARE(st.at(2 + k).dimensione, chi == "Alunni" ? 12.0 : 10.0);
        }
        QCOMPARE(a_->stampante.documentiFiniti, 1);
        QCOMPARE(w_->testoPiede(), QStringLiteral("Scheda per %1 stampata con il file: prova").arg(chi.toLower()));
        QVERIFY(a_->messaggi.mostrati.isEmpty());
    }

    // The print keys appear only with a preview; every choice hides them.
    void tastiStampa_data()
    {
        QTest::addColumn<QString>("azione");
        QTest::addColumn<bool>("docenti");
        QTest::newRow("scelta del tipo") << "Option1(1)" << false;
        QTest::newRow("scelta dell'ordine") << "Option2(1)" << false;
        QTest::newRow("numero di operazioni") << "Opt1(0)" << false;
        QTest::newRow("cancella scheda") << "CmdRicomincia" << false;
        QTest::newRow("clic sull'anteprima docenti") << "CmdVisualizzaSchedaDocenti" << true;
        QTest::newRow("fuoco sull'anteprima docenti") << "fuoco" << true;
    }
    void tastiStampa()
    {
        QFETCH(QString, azione);
        QFETCH(bool, docenti);
        apri();
        scegli("Option1", 0, false);
        scegli("Option2", 0, false);
        premiTasto("CmdVisualizzaSchedaAlunni", false);
        QVERIFY(stampaVisibile("Alunni"));
        if (azione == "fuoco")
            ctl("CmdVisualizzaSchedaDocenti")->setFocus();
        else if (azione.startsWith("Option"))
            QTest::mouseClick(ctl(azione), Qt::LeftButton);
        else
            premiTasto(azione, false);
        QVERIFY(!stampaVisibile("Alunni"));
        QCOMPARE(stampaVisibile("Docenti"), docenti);
    }

    void erroreStampante()
    {
        apri();
        a_->stampante.erroreFine = true;
        scegli("Option1", 0, false);
        scegli("Option2", 0, false);
        premiTasto("CmdVisualizzaSchedaAlunni", true);
        premiTasto("CmdStampaSchedaAlunni", true);
        QCOMPARE(a_->messaggi.mostrati.size(), 1);
        QCOMPARE(a_->messaggi.mostrati.at(0).testo, QStringLiteral("Problema di stampa nella stampante utilizzata."));
        QCOMPARE(riga(1), a_->stato.record.riga(1));
    }

    void cancellaScheda()
    {
        apri();
        Stato &s = a_->stato;
        scegli("Option1", 1, false);
        scegli("Option2", 2, false);
        premiTasto("Opt1(0)", false);
        premiTasto("CmdVisualizzaSchedaDocenti", false);
        s.record.RigheEsercizio.fill(QStringLiteral("vecchia"));
        premiTasto("CmdRicomincia", true);
        QVERIFY(sfondo("Label3(1)") == striscia && sfondo("Label4(2)") == striscia);
        QCOMPARE(ctl<QLabel>("Label1")->text() + ctl<QLabel>("Label2")->text(), QString());
        QVERIFY(!ctl("Frame1")->isEnabled());
        QCOMPARE(riga(1), QString());
        QVERIFY(s.record.riga(10) != QLatin1String("vecchia"));
        QCOMPARE(s.record.riga(11), QStringLiteral("vecchia"));
    }

    void ridimensionaEdEsci()
    {
        apri();
        QWidget *form = w_->centralWidget();
        const int larghezza = form->width();
        const QRect prima = ctl("cmdEsci")->geometry();
        w_->resize(w_->width() + larghezza, w_->height());
        QTRY_COMPARE(form->width(), 2 * larghezza);
        QCOMPARE(ctl("cmdEsci")->geometry(), QRect(2 * prima.left(), prima.top(), 2 * prima.width(), prima.height()));
        premiTasto("cmdEsci", true);
        QCOMPARE(a_->schermi.chiamate.value(0), qMakePair(QStringLiteral("chiudi"), Schermo::Schede));
    }
};

QTEST_MAIN(TestFrmStampaSchedeTre)
#include "tst_frmstampaschedetre.moc"
