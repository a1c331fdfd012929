#include "content/errori.h"
#include "ui/rigaopzioni.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <memory>

using Flag = RigaOpzioni::Flag;
Q_DECLARE_METATYPE(Flag)

namespace {

// A window holding one row of keys laid out side by side.
struct Banco {
    QWidget finestra;
    std::unique_ptr<RigaOpzioni> riga;

    Banco(int n, RigaOpzioni::Opzioni o = {}, const QString &testo = QStringLiteral("k"))
    {
        QStringList captions;
        for (int i = 0; i < n; ++i)
            captions << (testo.isEmpty() ? QString() : testo + QString::number(i));
        riga = std::make_unique<RigaOpzioni>(&finestra, captions, QStringLiteral("Option2"), o);
        for (int i = 0; i < n; ++i)
            riga->bottone(i)->setGeometry(10 + i * 70, 10, 60, 40);
        finestra.resize(20 + n * 70, 60);
    }
    bool mostra()
    {
        finestra.show();
        return QTest::qWaitForWindowActive(&finestra);
    }
    void fuocoA(int i)
    {
        riga->bottone(i)->setFocus();
        QCOMPARE(riga->indiceFuoco(), i);
    }
};

// Keys go where the keyboard sends them: to the widget with the focus.
void invia(QEvent::Type tipo, Qt::Key key, bool ripetuto = false)
{
    const QString testo = key == Qt::Key_Space ? QStringLiteral(" ")
                          : key < 0x80         ? QString(QChar(key))
                                               : QString();
    QKeyEvent e(tipo, key, Qt::NoModifier, testo, ripetuto);
    QApplication::sendEvent(QApplication::focusWidget(), &e);
}

void premiERilascia(Qt::Key key)
{
    invia(QEvent::KeyPress, key);
    invia(QEvent::KeyRelease, key);
}

// A key held down as X11 delivers it: one press, then release/press pairs
// flagged as auto-repeated, then the real release.
void tieniPremuto(Qt::Key key, int ripetizioni)
{
    invia(QEvent::KeyPress, key);
    for (int i = 0; i < ripetizioni; ++i) {
        invia(QEvent::KeyRelease, key, true);
        invia(QEvent::KeyPress, key, true);
    }
    invia(QEvent::KeyRelease, key);
}

QColor pixel(QWidget *w, int x, int y)
{
    return w->grab().toImage().pixelColor(x, y);
}

} // namespace

class TstRigaOpzioni : public QObject
{
    Q_OBJECT
private slots:
    void spazioPassaAlSuccessivo_data();
    void spazioPassaAlSuccessivo();
    void rigaTuttaDisabilitataNonSiBlocca();
    void tastoTenuto_data();
    void tastoTenuto();
    void tastoAccettatoBloccaFinoAlRilascio();
    void tastoCheLanciaNonEsce();
    void invioSceglie_data();
    void invioSceglie();
    void mouseSceglieSubito_data();
    void mouseSceglieSubito();
    void azioneAccessibileSceglie();
    void coloreSegueIlFuoco();
    void nomiEIntervallo();
};

void TstRigaOpzioni::spazioPassaAlSuccessivo_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<QList<int>>("disabilitati");
    QTest::addColumn<QList<int>>("nascosti");
    QTest::addColumn<bool>("salta");
    QTest::addColumn<int>("da");
    QTest::addColumn<int>("atteso");

    QTest::newRow("middle to next") << 4 << QList<int>{} << QList<int>{} << true << 1 << 2;
    QTest::newRow("last wraps to first") << 4 << QList<int>{} << QList<int>{} << true << 3 << 0;
    QTest::newRow("skips a disabled run") << 5 << QList<int>{1, 2} << QList<int>{} << true << 0 << 3;
    QTest::newRow("skips across the wrap") << 4 << QList<int>{3, 0} << QList<int>{} << true << 2 << 1;
    QTest::newRow("only one enabled stays") << 3 << QList<int>{0, 2} << QList<int>{} << true << 1 << 1;
    QTest::newRow("skips a hidden key") << 3 << QList<int>{} << QList<int>{1} << true << 0 << 2;
    QTest::newRow("no skip: disabled next keeps focus") << 3 << QList<int>{1} << QList<int>{} << false << 0 << 0;
    QTest::newRow("no skip: enabled next") << 3 << QList<int>{0} << QList<int>{} << false << 1 << 2;
}

void TstRigaOpzioni::spazioPassaAlSuccessivo()
{
    QFETCH(int, n);
    QFETCH(QList<int>, disabilitati);
    QFETCH(QList<int>, nascosti);
    QFETCH(bool, salta);
    QFETCH(int, da);
    QFETCH(int, atteso);

    RigaOpzioni::Opzioni o;
    o.saltaDisabilitati = salta;
    Banco b(n, o);
    QVERIFY(b.mostra());
    b.fuocoA(da);
    for (int i : disabilitati)
        b.riga->bottone(i)->setEnabled(false);
    for (int i : nascosti)
        b.riga->bottone(i)->hide();
    QSignalSpy clic(b.riga->bottone(da), &QPushButton::clicked);
    QSignalSpy scelti(b.riga.get(), &RigaOpzioni::scelto);

    premiERilascia(Qt::Key_Space);

    QCOMPARE(b.riga->indiceFuoco(), atteso);
    QCOMPARE(clic.count(), 0); // Space must not click the key as well
    QCOMPARE(scelti.count(), 0);
}

void TstRigaOpzioni::rigaTuttaDisabilitataNonSiBlocca()
{
    Banco b(3);
    QVERIFY(b.mostra());
    for (int i = 0; i < 3; ++i)
        b.riga->bottone(i)->setEnabled(false);
    b.riga->passo(); // must return
    QCOMPARE(b.riga->indiceFuoco(), -1);
}

void TstRigaOpzioni::tastoTenuto_data()
{
    QTest::addColumn<Flag>("flag");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("azioni");

    // Three repeats after the first press: four presses in all.
    QTest::newRow("per row: held space steps once") << Flag::PerRiga << Qt::Key_Space << 1;
    QTest::newRow("per event: held space keeps stepping") << Flag::PerEvento << Qt::Key_Space << 4;
    QTest::newRow("per row: held key handled once") << Flag::PerRiga << Qt::Key_A << 1;
    QTest::newRow("per event: held key repeats") << Flag::PerEvento << Qt::Key_A << 4;
}

void TstRigaOpzioni::tastoTenuto()
{
    QFETCH(Flag, flag);
    QFETCH(Qt::Key, key);
    QFETCH(int, azioni);

    RigaOpzioni::Opzioni o;
    o.flag = flag;
    Banco b(8, o);
    int chiamate = 0;
    b.riga->tasto = [&](int, QKeyEvent *e) {
        if (e->key() != Qt::Key_A)
            return false;
        ++chiamate;
        return true;
    };
    QVERIFY(b.mostra());
    b.fuocoA(0);

    tieniPremuto(key, 3);
    const int fatte = key == Qt::Key_Space ? b.riga->indiceFuoco() : chiamate;
    QCOMPARE(fatte, azioni);
    QVERIFY(!b.riga->flagPasso());
    QVERIFY(!b.riga->flagTasto());

    // Released: the next press acts again.
    premiERilascia(key);
    const int dopo = key == Qt::Key_Space ? b.riga->indiceFuoco() : chiamate;
    QCOMPARE(dopo, azioni + 1);
}

void TstRigaOpzioni::tastoAccettatoBloccaFinoAlRilascio()
{
    Banco b(4);
    QList<QPair<int, int>> visti; // (index, key)
    b.riga->tasto = [&](int i, QKeyEvent *e) {
        visti.append({i, e->key()});
        return e->key() != Qt::Key_X; // X is discarded by the screen
    };
    QSignalSpy scelti(b.riga.get(), &RigaOpzioni::scelto);
    QVERIFY(b.mostra());
    b.fuocoA(2);

    invia(QEvent::KeyPress, Qt::Key_X);
    invia(QEvent::KeyPress, Qt::Key_X); // a discarded key leaves the flag clear
    QVERIFY(!b.riga->flagTasto());
    invia(QEvent::KeyPress, Qt::Key_A);
    QVERIFY(b.riga->flagTasto());
    invia(QEvent::KeyPress, Qt::Key_Return); // blocked: no release yet
    invia(QEvent::KeyRelease, Qt::Key_A);
    QVERIFY(!b.riga->flagTasto());
    invia(QEvent::KeyPress, Qt::Key_Return);

    const QList<QPair<int, int>> attesi{{2, Qt::Key_X}, {2, Qt::Key_X}, {2, Qt::Key_A}, {2, Qt::Key_Return}};
    QCOMPARE(visti, attesi);
    QCOMPARE(scelti.count(), 0); // with a handler, Enter is the handler's business
}

void TstRigaOpzioni::tastoCheLanciaNonEsce()
{
    Banco b(2);
    b.riga->tasto = [](int, QKeyEvent *) -> bool { throw ErroreIntervallo("no such key"); };
    QVERIFY(b.mostra());
    b.fuocoA(0);
    QTest::ignoreMessage(QtWarningMsg, "handler stopped: no such key");
    invia(QEvent::KeyPress, Qt::Key_0);
    QVERIFY(!b.riga->flagTasto());
    invia(QEvent::KeyRelease, Qt::Key_0);
}

void TstRigaOpzioni::invioSceglie_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("scelte");

    QTest::newRow("Return") << Qt::Key_Return << 1;
    QTest::newRow("keypad Enter") << Qt::Key_Enter << 1;
    QTest::newRow("a digit is discarded") << Qt::Key_1 << 0;
    QTest::newRow("Tab is discarded, focus stays") << Qt::Key_Tab << 0;
}

void TstRigaOpzioni::invioSceglie()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, scelte);

    Banco b(5);
    QSignalSpy scelti(b.riga.get(), &RigaOpzioni::scelto);
    QVERIFY(b.mostra());
    b.fuocoA(1);

    // Held: it chooses once.
    tieniPremuto(key, 2);
    QCOMPARE(scelti.count(), scelte);
    if (scelte)
        QCOMPARE(scelti.at(0).at(0).toInt(), 1);
    QCOMPARE(b.riga->indiceFuoco(), 1);
}

void TstRigaOpzioni::mouseSceglieSubito_data()
{
    QTest::addColumn<bool>("impostaFlag");
    QTest::newRow("press leaves the key flag clear") << false;
    QTest::newRow("press sets the key flag") << true;
}

void TstRigaOpzioni::mouseSceglieSubito()
{
    QFETCH(bool, impostaFlag);

    RigaOpzioni::Opzioni o;
    o.mouseImpostaFlagTasto = impostaFlag;
    Banco b(3, o);
    QVERIFY(b.mostra());
    b.fuocoA(0);
    QPushButton *k = b.riga->bottone(2);
    QSignalSpy scelti(b.riga.get(), &RigaOpzioni::scelto);
    QSignalSpy clic(k, &QPushButton::clicked);

    QTest::mousePress(k, Qt::LeftButton);
    QCOMPARE(scelti.count(), 1); // at the press, not the release
    QCOMPARE(scelti.at(0).at(0).toInt(), 2);
    QVERIFY(!k->isDown());
    QCOMPARE(b.riga->indiceFuoco(), 2);
    QCOMPARE(b.riga->flagTasto(), impostaFlag);
    QTest::mouseRelease(k, Qt::LeftButton);
    QVERIFY(!k->isDown());
    QCOMPARE(scelti.count(), 1);
    QCOMPARE(clic.count(), 0);

    // After a flagged mouse choice the first key on the row is ignored and its
    // release clears the flag.
    premiERilascia(Qt::Key_Return);
    QCOMPARE(scelti.count(), impostaFlag ? 1 : 2);
    premiERilascia(Qt::Key_Return);
    QCOMPARE(scelti.count(), impostaFlag ? 2 : 3);
    QCOMPARE(clic.count(), 0);
}

// A screen reader presses a key through its accessible action, not the mouse.
void TstRigaOpzioni::azioneAccessibileSceglie()
{
    Banco b(3);
    QVERIFY(b.mostra());
    QSignalSpy scelti(b.riga.get(), &RigaOpzioni::scelto);
    QAccessibleInterface *k = QAccessible::queryAccessibleInterface(b.riga->bottone(1));
    QVERIFY(k && k->actionInterface());
    QCOMPARE(k->text(QAccessible::Name), QStringLiteral("k1"));
    k->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(scelti.count(), 1); // the press is animated: it lands a moment later
    QCOMPARE(scelti.at(0).at(0).toInt(), 1);
    QVERIFY(!b.riga->bottone(1)->isDown());

    b.riga->bottone(2)->setEnabled(false);
    QAccessible::queryAccessibleInterface(b.riga->bottone(2))->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    QTest::qWait(300);
    QCOMPARE(scelti.count(), 1);
}

void TstRigaOpzioni::coloreSegueIlFuoco()
{
    const QColor fuoco(200, 40, 40), riposo(40, 200, 40);
    RigaOpzioni::Opzioni o;
    o.fuoco = fuoco;
    o.riposo = riposo;
    Banco b(2, o, QString()); // no captions: the centre shows the background
    QVERIFY(b.mostra());
    QPushButton *k0 = b.riga->bottone(0);
    QPushButton *k1 = b.riga->bottone(1);

    b.fuocoA(0);
    QCOMPARE(pixel(k0, 30, 20), fuoco);
    QCOMPARE(pixel(k1, 30, 20), riposo);
    // Not by colour alone: the focused key has a thick dark border.
    QCOMPARE(pixel(k0, 30, 2), QColor(Qt::black));
    QCOMPARE(pixel(k1, 30, 2), riposo);

    premiERilascia(Qt::Key_Space);
    QCOMPARE(pixel(k0, 30, 20), riposo);
    QCOMPARE(pixel(k1, 30, 20), fuoco);

    const QColor scuro(0, 0, 128), chiaro(200, 200, 255);
    b.riga->setColori(scuro, chiaro);
    QCOMPARE(pixel(k0, 30, 20), chiaro);
    QCOMPARE(pixel(k1, 30, 20), scuro);
}

void TstRigaOpzioni::nomiEIntervallo()
{
    Banco b(15);
    QCOMPARE(b.finestra.findChild<QPushButton *>(QStringLiteral("Option2(13)")), b.riga->bottone(13));
    QCOMPARE(b.riga->indice(b.riga->bottone(13)), 13);
    QCOMPARE(b.riga->indice(&b.finestra), -1);
    QCOMPARE(b.riga->bottone(0)->focusPolicy(), Qt::StrongFocus);
    QVERIFY_THROWS_EXCEPTION(ErroreIntervallo, b.riga->bottone(-1));
    QVERIFY_THROWS_EXCEPTION(ErroreIntervallo, b.riga->bottone(15));
}

QTEST_MAIN(TstRigaOpzioni)
#include "tst_rigaopzioni.moc"
