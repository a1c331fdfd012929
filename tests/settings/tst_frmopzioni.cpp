#include "settings/frmopzioni.h"

#include "content/catalogo.h"
#include "fakes/cartella.h"
#include "fakes/fakes.h"
#include "settings/coloriopzioni.h"
#include "settings/filesettings.h"
#include "settings/stato.h"
#include "ui/rigaopzioni.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>
#include <memory>

namespace {

// A key pressed and released; held down, the keyboard repeats only the press.
void premi(int key, Qt::KeyboardModifiers mod = Qt::NoModifier, int ripetizioni = 0)
{
    const QString testo = key == Qt::Key_Space ? QStringLiteral(" ") : QString();
    for (int i = 0; i <= ripetizioni; ++i) {
        QKeyEvent giu(QEvent::KeyPress, key, mod, testo, i > 0);
        QApplication::sendEvent(QApplication::focusWidget(), &giu);
    }
    QKeyEvent su(QEvent::KeyRelease, key, mod, testo);
    QApplication::sendEvent(QApplication::focusWidget(), &su);
}

// The colour the user sees: a label's letters, elsewhere the fill away from text and border.
QColor visto(QWidget *w)
{
    if (auto *l = qobject_cast<QLabel *>(w))
        return l->palette().color(QPalette::WindowText);
    const QPoint p = w->objectName() == QLatin1String("Frame1") ? QPoint(w->width() / 2, w->height() - 12)
                                                                : QPoint(8, w->height() / 2);
    return w->grab().toImage().pixelColor(p);
}

QStringList aspetto(const Settings &s)
{
    return {s.ColoreSfondo, s.ColoreRiserva, s.ColoreCaratteri, QString::number(s.BeepAttivo),
            s.ColoreScansioneChiaro, s.ColoreScansioneScuro, QString::number(s.IndiceSfondo),
            QString::number(s.IndiceCaratteri), QString::number(s.IndiceScansione)};
}

} // namespace

class TestFrmOpzioni : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    std::unique_ptr<Stato> stato_;
    FakeScreens schermi_;
    std::unique_ptr<FrmOpzioni> f_;

    QString fuoco() const { return QApplication::focusWidget()->objectName(); }
    QWidget *w(const QString &nome) const { return f_->findChild<QWidget *>(nome); }
    void click(const QString &nome) { f_->findChild<QAbstractButton *>(nome)->click(); }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init()
    {
        QFile::remove(QStringLiteral("pannello.dat"));
        schermi_.chiamate.clear();
        stato_ = std::make_unique<Stato>();
        stato_->settings.NomeFile = QStringLiteral("pannello");
        AspettoPredefinito(stato_->settings);
        stato_->servizi.schermi = &schermi_;
        f_ = std::make_unique<FrmOpzioni>(*stato_);
        f_->show();
        QVERIFY(QTest::qWaitForWindowActive(f_.get()));
    }
    void cleanup() { f_.reset(); }

    void click_data()
    {
        QTest::addColumn<QStringList>("bottoni");
        QTest::addColumn<QStringList>("attesi"); // page, text, light, dark; page, text, scanning indices
        QTest::addColumn<QString>("controllo");
        QTest::addColumn<QColor>("visto");

        const QStringList d{"12640511", "328965", "16754175", "16745215", "4", "9", "4"};
        // Opening the panel paints the stored colours; a click changes one at once.
        QTest::newRow("opened") << QStringList() << d << "Frame1" << QColor(255, 224, 192);
        QTest::newRow("opened, resting key") << QStringList() << d << "Option2" << QColor(255, 165, 255);
        QTest::newRow("page Rosso") << QStringList{"Option1(10)"}
                                    << QStringList{"8943615", "328965", "16754175", "16745215", "10", "9", "4"}
                                    << "Frame1" << QColor(255, 119, 136);
        QTest::newRow("text Bianco is a light grey")
            << QStringList{"Option27(0)"} << QStringList{"12640511", "13158600", "16754175", "16745215", "4", "0", "4"}
            << "Label5" << QColor(200, 200, 200);
        QTest::newRow("text Rosso") << QStringList{"Option27(10)"}
                                    << QStringList{"12640511", "255", "16754175", "16745215", "4", "10", "4"}
                                    << "Label4" << QColor(255, 0, 0);
        QTest::newRow("scanning Azzurro") << QStringList{"Option17(6)"}
                                          << QStringList{"12640511", "328965", "16777060", "16765440", "4", "9", "6"}
                                          << "Option4" << QColor(0, 210, 255);
        // The resting key of the preview takes the page colour, not the light one.
        QTest::newRow("scanning shows the page colour")
            << QStringList{"Option1(6)", "Option17(9)"}
            << QStringList{"16777140", "328965", "4605510", "0", "6", "9", "9"} << "Option2" << QColor(180, 255, 255);
        QTest::newRow("case and switches store nothing")
            << QStringList{"Option9(1)", "Option28(1)", "Option3(1)", "Option11(1)"} << d << "Option4"
            << QColor(255, 130, 255);
    }
    void click()
    {
        QFETCH(QStringList, bottoni);
        QFETCH(QStringList, attesi);
        QFETCH(QString, controllo);
        QFETCH(QColor, visto);
        for (const QString &b : bottoni)
            click(b);
        const QStringList a = aspetto(stato_->settings);
        QCOMPARE((QStringList{a[0], a[2], a[4], a[5], a[6], a[7], a[8]}), attesi);
        QCOMPARE(::visto(w(controllo)), visto);
        QVERIFY(!QFile::exists("pannello.dat")); // changed at once, stored only on request
        QCOMPARE(fuoco(), "Option5(0)");
    }

    void comandi_data()
    {
        QTest::addColumn<QList<int>>("tasti"); // key codes, negative on the keypad
        QTest::addColumn<int>("mouse");        // or a mouse press on Option5(i)
        QTest::addColumn<bool>("predefinite");
        QTest::newRow("defaults by mouse") << QList<int>{} << 0 << true;
        QTest::newRow("defaults by I Enter") << QList<int>{Qt::Key_E, Qt::Key_I, Qt::Key_Return} << -1 << true;
        QTest::newRow("defaults by keypad 1") << QList<int>{Qt::Key_3, -Qt::Key_1, Qt::Key_Enter} << -1 << true;
        QTest::newRow("store by mouse") << QList<int>{} << 1 << false;
        QTest::newRow("store by M Enter") << QList<int>{Qt::Key_M, Qt::Key_Return} << -1 << false;
        QTest::newRow("store by arrows") << QList<int>{Qt::Key_Left, Qt::Key_Left, Qt::Key_Return} << -1 << false;
    }
    void comandi()
    {
        QFETCH(QList<int>, tasti);
        QFETCH(int, mouse);
        QFETCH(bool, predefinite);
        Settings &s = stato_->settings;
        s.BeepAttivo = false;
        s.ImpostazioneB = true; // asks for a control the panel does not have
        for (const char *b : {"Option1(2)", "Option27(10)", "Option17(7)"})
            click(b);
        for (int k : tasti)
            premi(qAbs(k), k < 0 ? Qt::KeypadModifier : Qt::NoModifier);
        if (mouse >= 0)
            QTest::mouseClick(w(QStringLiteral("Option5(%1)").arg(mouse)), Qt::LeftButton);

        const QStringList i = predefinite ? QStringList{"4", "9", "4"} : QStringList{"2", "10", "7"};
        QCOMPARE(aspetto(s).mid(6), i);
        if (predefinite)
            QCOMPARE(aspetto(s).mid(0, 6), (QStringList{TestoColore({255, 200, 255}), "8438015",
                                                        TestoColore({5, 5, 5}), "0", TestoColore({255, 200, 255}),
                                                        TestoColore({255, 50, 255})}));
        // The stored buttons are selected, and the file holds the eleven values.
        for (const QString &b : {"Option1(" + i[0] + ')', "Option27(" + i[1] + ')', "Option17(" + i[2] + ')',
                                 QStringLiteral("Option3(1)")})
            QVERIFY2(f_->findChild<QRadioButton *>(b)->isChecked(), qPrintable(b));
        QFile f(QStringLiteral("pannello.dat"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray file = f.readAll();
        QCOMPARE(file.count("\r\n"), 11);
        Settings letto;
        QVERIFY(LeggiImpostazioniDa(file, letto));
        QCOMPARE(aspetto(letto), aspetto(s));
        QVERIFY(schermi_.chiamate.isEmpty());
    }

    void esciSenzaMemorizzare()
    {
        click("Option1(0)");
        premi(Qt::Key_E);
        premi(Qt::Key_Return);
        QCOMPARE(schermi_.chiamate, (QList<QPair<QString, Schermo>>{{"chiudi", Schermo::Opzioni}}));
        QCOMPARE(stato_->settings.ColoreSfondo, "16777215");
        QVERIFY(!QFile::exists("pannello.dat"));
    }

    void tasti_data()
    {
        QTest::addColumn<int>("tasto");
        QTest::addColumn<bool>("tastierino");
        QTest::addColumn<int>("ripetizioni");
        QTest::addColumn<QString>("fuoco");
        QTest::newRow("E") << int(Qt::Key_E) << false << 0 << "Option5(2)";
        QTest::newRow("top row 3") << int(Qt::Key_3) << false << 0 << "Option5(2)";
        QTest::newRow("keypad 1") << int(Qt::Key_1) << true << 0 << "Option5(0)";
        QTest::newRow("right") << int(Qt::Key_Right) << false << 0 << "Option5(2)";
        QTest::newRow("X is no key") << int(Qt::Key_X) << false << 0 << "Option5(1)";
        QTest::newRow("space steps") << int(Qt::Key_Space) << false << 0 << "Option5(2)";
        QTest::newRow("held space keeps stepping") << int(Qt::Key_Space) << false << 2 << "Option5(1)";
    }
    void tasti()
    {
        QFETCH(int, tasto);
        QFETCH(bool, tastierino);
        QFETCH(int, ripetizioni);
        QFETCH(QString, fuoco);
        w("Option5(1)")->setFocus();
        premi(tasto, tastierino ? Qt::KeypadModifier : Qt::NoModifier, ripetizioni);
        QCOMPARE(this->fuoco(), fuoco);
        QVERIFY(!QFile::exists("pannello.dat"));
    }

    void maiuscoloEArgomenti()
    {
        click("Option9(1)");
        for (const char *n : {"Option4", "Option2", "Label5", "Label4"})
            QCOMPARE(w(n)->property("text").toString(), "aaaa");
        click("Option9(0)");
        QCOMPARE(w("Label5")->property("text").toString(), "AAAA");

        QCOMPARE(w("Option6(1)")->property("text").toString(),
                 "k     h    da   u:      migliaia  centinaia  dxecine  unità");
        for (int i : {0, 8}) {
            SceltaSimboli(3, stato_->topic, stato_->titoli);
            click(QStringLiteral("Option6(%1)").arg(i));
            for (int p = 1; p <= 4; ++p)
                QVERIFY(stato_->topic.Simboli[std::size_t(p)].isEmpty());
        }
    }
};

QTEST_MAIN(TestFrmOpzioni)
#include "tst_frmopzioni.moc"
