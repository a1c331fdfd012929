#include "settings/frminizio.h"

#include "fakes/cartella.h"
#include "fakes/fakes.h"
#include "settings/filesettings.h"
#include "settings/stato.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QTimer>
#include <QtTest>
#include <memory>

namespace {

QString fuoco()
{
    QWidget *w = QApplication::focusWidget();
    return w ? w->objectName() : QString();
}

void invia(QEvent::Type t, int key, Qt::KeyboardModifiers mod, bool ripetuto = false)
{
    const QString testo = key == Qt::Key_Space ? QStringLiteral(" ") : QString();
    QKeyEvent e(t, key, mod, testo, ripetuto);
    QApplication::sendEvent(QApplication::focusWidget(), &e);
}

QString chiamate(const FakeScreens &f)
{
    static const char *nomi[] = {"Inizio", "Operativo", "Opzioni", "StampaEsercizio", "Schede",
                                 "SceltaStampante", "Autore"};
    QStringList out;
    for (const auto &[azione, s] : f.chiamate)
        out << azione + QLatin1Char(' ') + QLatin1String(nomi[int(s)]);
    return out.join(QLatin1String(", "));
}

} // namespace

class TestFrmInizio : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    std::unique_ptr<Stato> stato_;
    FakeScreens schermi_;
    std::unique_ptr<FrmInizio> f_;

    QString dat() const { return QCoreApplication::applicationName() + QStringLiteral(".dat"); }
    QWidget *w(const QString &nome) const { return f_->findChild<QWidget *>(nome); }
    QString testo(const QString &nome) const { return f_->findChild<QLabel *>(nome)->text(); }

    void avvia()
    {
        f_.reset();
        stato_ = std::make_unique<Stato>();
        stato_->servizi.schermi = &schermi_;
        f_ = std::make_unique<FrmInizio>(*stato_);
        f_->show();
        QVERIFY(QTest::qWaitForWindowActive(f_.get()));
    }

    // What a user does, one step a word: RET, SPC, a top-row digit, K<digit> on
    // the keypad, HOLD (space held down), click:<control>, focus:<control>,
    // menu:<name>, close (the window's close button).
    void esegui(const QString &script)
    {
        for (const QString &t : script.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            const QString arg = t.section(QLatin1Char(':'), 1);
            if (t.startsWith(QLatin1String("click:"))) {
                QTest::mouseClick(w(arg), Qt::LeftButton);
            } else if (t.startsWith(QLatin1String("focus:"))) {
                w(arg)->setFocus();
            } else if (t.startsWith(QLatin1String("menu:"))) {
                f_->findChild<QAction *>(arg)->trigger();
            } else if (t == QLatin1String("close")) {
                f_->close();
            } else if (t == QLatin1String("HOLD")) {
                invia(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
                for (int i = 0; i < 3; ++i) {
                    invia(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier, true);
                    invia(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, true);
                }
                invia(QEvent::KeyRelease, Qt::Key_Space, Qt::NoModifier);
            } else {
                const bool kp = t.startsWith(QLatin1Char('K'));
                const int key = t == QLatin1String("RET")   ? int(Qt::Key_Return)
                                : t == QLatin1String("SPC") ? int(Qt::Key_Space)
                                                            : Qt::Key_0 + t.mid(kp ? 1 : 0).toInt();
                invia(QEvent::KeyPress, key, kp ? Qt::KeypadModifier : Qt::NoModifier);
                invia(QEvent::KeyRelease, key, kp ? Qt::KeypadModifier : Qt::NoModifier);
            }
        }
    }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init()
    {
        QFile::remove(dat());
        schermi_.chiamate.clear();
        schermi_.aperti.clear();
    }
    void cleanup() { f_.reset(); }

    void avvioDalFile_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("livello");
        QTest::addColumn<QString>("cifre");
        QTest::addColumn<QString>("titolo");
        QTest::addColumn<QString>("sfondo");

        const QString decimale = QStringLiteral("SISTEMA DECIMALE: composizione");
        QTest::newRow("no file") << QByteArray() << "1" << "1 cifra" << decimale << "12640511";
        QTest::newRow("levels line") << QByteArray(" 3  2 \r\n") << "3" << "2 cifre" << decimale << "12640511";
        QTest::newRow("measure level") << QByteArray(" 7  1 \r\n") << "7" << "1 cifra"
                                       << "SISTEMA METRICO: composizione" << "12640511";
        QTest::newRow("appearance lines") << QByteArray("16777215\r\n8438015\r\n0\r\nTrue\r\nTrue\r\nTrue\r\n"
                                                        "16777215\r\n15461355\r\n 0 \r\n 0 \r\n 9 \r\n")
                                          << "1" << "1 cifra" << decimale << "16777215";
        // No topic for this level: the titles stay as they were drawn.
        QTest::newRow("level without topic") << QByteArray(" 20  1 \r\n") << "20" << "1 cifra" << "COMPOSIZIONE"
                                             << "12640511";
    }
    void avvioDalFile()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, livello);
        QFETCH(QString, cifre);
        QFETCH(QString, titolo);
        QFETCH(QString, sfondo);
        if (!file.isEmpty()) {
            QFile out(dat());
            QVERIFY(out.open(QIODevice::WriteOnly));
            out.write(file);
        }
        avvia();
        QCOMPARE(testo("Label3"), livello);
        QCOMPARE(testo("lblCifre"), cifre);
        QCOMPARE(stato_->settings.ValoreMassimo, cifre.startsWith('1') ? 9 : 19);
        QCOMPARE(f_->windowTitle(), titolo);
        QCOMPARE(stato_->settings.ColoreSfondo, sfondo);
        QCOMPARE(f_->findChild<QAction *>("mnuSchede")->text(), "Stampa schede: " + testo("Label6(2)"));
        QCOMPARE(QFile::exists(dat()), !file.isEmpty());
    }

    void passiLivelloECifre_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("livello");
        QTest::addColumn<int>("cifre");
        QTest::newRow("level arrow") << "click:Label8" << 2 << 1;
        QTest::newRow("level wraps after 3") << "click:Label8 click:Label6(0) click:Label6(2)" << 1 << 1;
        QTest::newRow("digit arrow") << "click:Label7" << 1 << 2;
        QTest::newRow("digits wrap") << "click:lblCifre click:lblCifre" << 1 << 1;
        QTest::newRow("arrows from the keyboard") << "focus:Label8 SPC focus:Label7 RET" << 2 << 2;
    }
    void passiLivelloECifre()
    {
        QFETCH(QString, script);
        QFETCH(int, livello);
        QFETCH(int, cifre);
        for (int volta = 0; volta < 2; ++volta) {
            // First stepped and written at once, then read back by the next start.
            avvia();
            if (volta == 0)
                esegui(script);
            QCOMPARE(testo("Label3"), QString::number(livello));
            QCOMPARE(testo("lblCifre"), cifre == 1 ? "1 cifra" : "2 cifre");
            QCOMPARE(stato_->settings.ValoreMassimo, cifre == 1 ? 9 : 19);
        }
        // The levels line replaced the appearance lines.
        QCOMPARE(stato_->settings.ColoreSfondo, "12640511");
    }

    void scelte_data()
    {
        QTest::addColumn<QString>("script");
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("ordine");
        QTest::addColumn<QString>("focus");
        QTest::addColumn<QString>("righe"); // Label1 | Label2 | rows 2 and 3 enabled
        QTest::addColumn<QString>("schermi");

        const QString vai = QStringLiteral("apri Operativo");
        QTest::newRow("mouse") << "click:Option1(1) click:Option2(2) click:Option3(0)" << 2 << 3 << "Option3(0)"
                               << " Trova il simbolo| Usa i simboli ordinati e non ordinati|11" << vai;
        QTest::newRow("three Enters") << "RET RET RET" << 1 << 1 << "Option3(0)"
                                      << " Trova il numero| Usa i simboli ordinati|11" << vai;
        QTest::newRow("space steps and wraps") << "SPC SPC RET SPC RET SPC SPC SPC" << 3 << 2 << "Option3(0)"
                                               << " Trova il numero o il simbolo| Usa i simboli non ordinati|11"
                                               << "";
        QTest::newRow("held space steps once") << "HOLD HOLD" << 0 << 0 << "Option1(2)" << "||00" << "";
        QTest::newRow("top row 2 only moves on") << "2" << 0 << 0 << "Option2(0)" << "||10" << "";
        QTest::newRow("keypad 3 moves on") << "K3" << 0 << 0 << "Option2(0)" << "||10" << "";
        QTest::newRow("top row 3 is no key") << "3" << 0 << 0 << "Option1(0)" << "||00" << "";
        QTest::newRow("top row 0 is ignored") << "0" << 0 << 0 << "Option1(0)" << "||00" << "";
        QTest::newRow("order row digit") << "RET 2" << 1 << 0 << "Option3(0)" << " Trova il numero||11" << "";
        QTest::newRow("action row digits") << "RET RET 2 K1 K2" << 1 << 1 << "Option3(1)"
                                           << " Trova il numero| Usa i simboli ordinati|11" << "";
        QTest::newRow("disabled keys skipped") << "focus:Option3(2) SPC" << 0 << 0 << "Option3(2)" << "||00" << "";
        QTest::newRow("Reimposta keeps the choices") << "RET RET SPC RET" << 1 << 1 << "Option1(0)" << "||00" << "";
        // After a mouse choice of a kind, the first key on that row is swallowed.
        QTest::newRow("mouse sets the kind row's key flag")
            << "click:Option1(2) click:Option2(0) click:Option3(1) RET" << 3 << 1 << "Option1(0)" << "||00" << "";
        QTest::newRow("its release clears it") << "click:Option1(2) click:Option2(0) click:Option3(1) RET RET" << 1
                                               << 1 << "Option2(0)" << " Trova il numero||10" << "";
        QStringList esci;
        for (const char *s : {"Autore", "Inizio", "Operativo", "SceltaStampante", "StampaEsercizio", "Schede"})
            esci << QStringLiteral("chiudi ") + QLatin1String(s);
        QTest::newRow("Esci") << "click:Option3(2)" << 0 << 0 << "" << "||00" << esci.join(", ");
        QTest::newRow("window closed") << "close" << 0 << 0 << "" << "||00" << esci.join(", ");
        QTest::newRow("menus") << "menu:mnuSchede menu:mnuIstruzioni menu:mnuAutore menu:mnuOpzioni" << 0 << 0
                               << "Option1(0)" << "||00" << "apri Schede, apri Autore, apri Opzioni";
    }
    void scelte()
    {
        QFETCH(QString, script);
        QFETCH(int, tipo);
        QFETCH(int, ordine);
        QFETCH(QString, focus);
        QFETCH(QString, righe);
        QFETCH(QString, schermi);
        avvia();
        QCOMPARE(fuoco(), "Option1(0)");
        esegui(script);
        QCOMPARE(stato_->settings.TipoEsercizio, tipo);
        QCOMPARE(stato_->settings.OrdineSimboli, ordine);
        if (!focus.isEmpty())
            QCOMPARE(fuoco(), focus);
        const QString abilitate = QString::number(w("Frame2")->isEnabled()) + QString::number(w("Frame3")->isEnabled());
        QCOMPARE(testo("Label1") + '|' + testo("Label2") + '|' + abilitate, righe);
        QCOMPARE(chiamate(schermi_), schermi);
        QVERIFY(w("Option3(2)")->isEnabled());
    }

    void attivazioneAzzeraEsercizio()
    {
        avvia();
        esegui("click:Option1(0)");
        stato_->record.NumeroEsercizio = 12;
        QWidget altra;
        altra.show();
        QVERIFY(QTest::qWaitForWindowActive(&altra));
        f_->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f_.get()));
        QCOMPARE(stato_->record.NumeroEsercizio, 0);
        QCOMPARE(fuoco(), "Option1(0)");
    }

    void tendine()
    {
        stato_ = std::make_unique<Stato>();
        FrmInizio f(*stato_);
        auto *timer = f.findChild<QTimer *>("timerTendine");
        auto *p1 = f.findChild<QWidget *>("Picture1");
        auto *p2 = f.findChild<QWidget *>("Picture2");
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 5);
        QCOMPARE(p1->width(), FrmInizio::kLarghezza / 2);
        for (int i = 0; i < 99; ++i)
            f.tickTendine();
        QCOMPARE(p1->width(), 5);
        QCOMPARE(p2->geometry().right(), FrmInizio::kLarghezza - 1); // they open from the middle
        QVERIFY(timer->isActive());
        f.tickTendine();
        QVERIFY(!timer->isActive());
        QCOMPARE(p1->width(), 0);

        // A curtain that cannot take a full step stays where it is, timer on.
        f.tendine().avvia(2 * (10 * 75 + 30));
        timer->start();
        for (int i = 0; i < 12; ++i)
            f.tickTendine();
        QCOMPARE(f.tendine().larghezza1(), 30);
        QCOMPARE(f.tendine().larghezza2(), 30);
        QVERIFY(timer->isActive());
        QCOMPARE(p1->width(), 2);
    }
};

QTEST_MAIN(TestFrmInizio)
#include "tst_frminizio.moc"
