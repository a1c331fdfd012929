#include "content/errori.h"
#include "fakes/utente.h"
#include "ui/alsasuono.h"
#include "ui/qtpiattaforma.h"
#include "ui/rigaopzioni.h"
#include "ui/wav.h"

#include <QtTest>
#include <QtWidgets>

// A shown window holding one row of n keys side by side, captioned k0, k1, ...
struct Banco {
    QWidget finestra;
    RigaOpzioni *riga;
    explicit Banco(int n, RigaOpzioni::Opzioni o = {})
    {
        QStringList captions;
        for (int i = 0; i < n; ++i)
            captions << QStringLiteral("k%1").arg(i);
        riga = new RigaOpzioni(&finestra, captions, QStringLiteral("Option2"), o);
        for (int i = 0; i < n; ++i)
            riga->bottone(i)->setGeometry(10 + i * 70, 10, 60, 40);
        finestra.show();
    }
};

// What the user does: the keys of fakes/utente.h ("Space*3", "Tab+", "A-"...),
// and, on key i, f<i> gives it the focus, off<i> disables it, hide<i> hides
// it, m<i> presses and releases the mouse on it (m<i>+ only presses, m<i>-
// only releases), a<i> is a screen reader's Press; ? logs the step and key
// flags as "pt" (upper case when set).
static void esegui(Banco &b, const QString &script, QStringList &log)
{
    static const QRegularExpression passo(QStringLiteral(R"(^(off|hide|f|m|a)(\d+)([+-])?$)"));
    Utente u{&b.finestra, [&](const QString &t) {
        const QRegularExpressionMatch m = passo.match(t);
        QPushButton *k = m.hasMatch() ? b.riga->bottone(m.captured(2).toInt()) : nullptr;
        const QString comando = m.captured(1);
        if (t == u'?') {
            log << QString(b.riga->flagPasso() ? "P" : "p") + (b.riga->flagTasto() ? "T" : "t");
        } else if (comando == u'f') {
            k->setFocus();
        } else if (comando == QLatin1String("off")) {
            k->setEnabled(false);
        } else if (comando == QLatin1String("hide")) {
            k->hide();
        } else if (comando == u'a') {
            QAccessible::queryAccessibleInterface(k)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        } else if (comando == u'm') {
            QWindow *w = b.finestra.windowHandle();
            const QPoint qui = k->mapTo(&b.finestra, k->rect().center());
            if (m.captured(3) != u'-')
                QTest::mousePress(w, Qt::LeftButton, {}, qui);
            if (m.captured(3) != u'+')
                QTest::mouseRelease(w, Qt::LeftButton, {}, qui);
        } else {
            return false;
        }
        return true;
    }};
    u.esegui(script);
}

class TestUi : public QObject
{
    Q_OBJECT
private slots:
    // A handler the program did not mean to stop fails the test.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped"))); }
    // Options: n = disabled keys are not skipped, e = flags cleared on every
    // event, m = a mouse press sets the key flag, h = the screen handles keys
    // (logged h<index><key>; Tab discarded, X throws, the rest accepted).
    // Choices are logged s<i>; a click leaking through would choose twice.
    void riga_data()
    {
        QTest::addColumn<QString>("opzioni");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("log");
        QTest::addColumn<int>("fuoco");
        QTest::newRow("space skips disabled and hidden across the wrap") << "" << "off5 hide0 f4 Space" << "" << 1;
        QTest::newRow("space on the only enabled key stays") << "" << "f1 off0 off2 off3 off4 off5 Space" << "" << 1;
        QTest::newRow("no skip: wraps, disabled next keeps the focus") << "n" << "f5 Space off1 Space" << "" << 0;
        QTest::newRow("per row: held space steps once") << "" << "f0 Space*3 ? Space" << "pt" << 2;
        QTest::newRow("per event: held space keeps stepping") << "e" << "f0 Space*3 ? Space" << "pt" << 5;
        QTest::newRow("per row: held key handled once") << "h" << "f0 A*3 ? A" << "h0A pt h0A" << 0;
        QTest::newRow("per event: held key repeats") << "eh" << "f0 A*3 ? A" << "h0A h0A h0A h0A pt h0A" << 0;
        QTest::newRow("accepted key blocks until released") << "h" << "f2 Tab+ Tab+ ? A+ ? Return+ A- ? Return+"
                                                             << "h2Tab h2Tab pt h2A pT pt h2Return" << 2;
        QTest::newRow("throwing handler leaves the flag clear") << "h" << "f0 X+ ? X-" << "pt" << 0;
        QTest::newRow("Return and Enter choose, once while held") << "" << "f1 Tab*2 Return*2 Enter" << "s1 s1" << 1;
        QTest::newRow("mouse chooses at the press") << "" << "f0 m2+ ? m2- ? Return Return" << "s2 pt pt s2 s2" << 2;
        QTest::newRow("flagged mouse press: next key ignored") << "m" << "f0 m2+ ? m2- Return Return" << "s2 pT s2" << 2;
        QTest::newRow("screen reader presses enabled keys") << "" << "f0 off2 a2 a1" << "s1" << 0;
    }
    void riga()
    {
        QFETCH(QString, opzioni);
        QFETCH(QString, script);
        QFETCH(QString, log);
        Banco b(6, {.saltaDisabilitati = !opzioni.contains(u'n'), .flag = opzioni.contains(u'e') ? RigaOpzioni::Flag::PerEvento : RigaOpzioni::Flag::PerRiga,
                    .mouseImpostaFlagTasto = opzioni.contains(u'm')});
        QStringList visti;
        connect(b.riga, &RigaOpzioni::scelto, this, [&visti](int i) { visti << QStringLiteral("s%1").arg(i); });
        if (opzioni.contains(u'h'))
            b.riga->tasto = [&visti](int i, QKeyEvent *e) {
                if (e->key() == Qt::Key_X)
                    throw ErroreIntervallo("no such key");
                visti << QStringLiteral("h%1").arg(i) + QKeySequence(e->key()).toString();
                return e->key() != Qt::Key_Tab;
            };
        if (script.contains(u'X'))
            QTest::ignoreMessage(QtWarningMsg, "handler stopped: no such key");
        QVERIFY(QTest::qWaitForWindowActive(&b.finestra));
        esegui(b, script, visti);
        // The screen reader's press is animated: it lands a moment later.
        QTRY_COMPARE(visti.join(u' '), log);
        QTEST(b.riga->indiceFuoco(), "fuoco");
    }

    // The generator reseeds from a millisecond clock on every item and every
    // worksheet line: the same seed twice must not repeat the draws.
    void casoEOrologio()
    {
        QtRandom a;
        QSet<double> visti;
        for (int i = 0; i < 1000; ++i) {
            a.Randomize(36000.25);
            const double x = a.Rnd();
            QVERIFY(x >= 0.0 && x < 1.0);
            visti.insert(x);
        }
        QVERIFY(visti.size() > 990);
        QVERIFY(*std::min_element(visti.begin(), visti.end()) < 0.01 && *std::max_element(visti.begin(), visti.end()) > 0.99);
        const double t = QtClock().Timer(); // seconds, not milliseconds
        QVERIFY(t >= 0.0 && t < 86400.0);
    }

    // The sound file: a chunk of any other kind, even of odd length, is
    // stepped over; a cut file keeps its whole frames; any encoding but 8- or
    // 16-bit PCM, or a rate past 384 kHz, is silence.
    void wav_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("letto"); // bits channels rate bytes
        const auto chunk = [](const char *id, const QByteArray &d) {
            QByteArray c(id, 4);
            c.resize(8);
            qToLittleEndian<quint32>(quint32(d.size()), c.data() + 4);
            return c + d + QByteArray(d.size() % 2, '\0');
        };
        const auto fmt = [&](quint16 tipo, quint16 canali, quint32 hz, quint16 bit) {
            QByteArray f(16, '\0');
            qToLittleEndian(tipo, f.data());
            qToLittleEndian(canali, f.data() + 2);
            qToLittleEndian(hz, f.data() + 4);
            qToLittleEndian(bit, f.data() + 14);
            return chunk("fmt ", f);
        };
        const QByteArray riff("RIFF\0\0\0\0WAVE", 12), dati = chunk("data", QByteArray(6, 'x'));
        QTest::newRow("16-bit mono") << riff + fmt(1, 1, 22050, 16) + dati << "16 1 22050 6";
        QTest::newRow("8-bit stereo after an odd chunk") << riff + chunk("LIST", "abc") + fmt(1, 2, 8000, 8) + dati << "8 2 8000 6";
        QTest::newRow("cut short: whole frames") << riff + fmt(1, 2, 8000, 16) + dati.left(13) << "16 2 8000 4";
        QTest::newRow("float") << riff + fmt(3, 1, 22050, 32) + dati << "0 0 0 0";
        QTest::newRow("24 bits") << riff + fmt(1, 1, 22050, 24) + dati << "0 0 0 0";
        QTest::newRow("faster than any card") << riff + fmt(1, 1, 384001, 16) + dati << "0 0 0 0";
        QTest::newRow("no wave") << QByteArray("RIFF\0\0\0\0AVI ", 12) + fmt(1, 1, 22050, 16) + dati << "0 0 0 0";
    }
    void wav()
    {
        QFETCH(QByteArray, file);
        const SuonoWav w = LeggiWav(file);
        QTEST(QStringLiteral("%1 %2 %3 %4").arg(w.bit).arg(w.canali).arg(w.frequenza).arg(w.dati.size()), "letto");
    }

    // A right answer must never wait for the sound, even with no audio
    // device to play it on, nor the end of the program.
    void suonoNonAspetta()
    {
        const QString percorso = QFINDTESTDATA("../../assets/positivo.wav");
        QVERIFY(!percorso.isEmpty());
        QElapsedTimer t;
        t.start();
        {
            AlsaSound suono;
            suono.carica(percorso);
            suono.suona();
            suono.suona(); // a second right answer while the first still plays
            QVERIFY2(t.elapsed() < 200, qPrintable(QString::number(t.elapsed())));
            QTest::qWait(300); // loading and playback go on in the worker
            // The voice waits this long before "Esatto": the sound is 0.42 s.
            QCOMPARE(suono.durataMs(), 420);
            suono.carica(percorso + QStringLiteral(".manca"));
            QCOMPARE(suono.durataMs(), 0);
        }
        QVERIFY2(t.elapsed() < 1300, qPrintable(QString::number(t.elapsed())));
    }
};

QTEST_MAIN(TestUi)
#include "tst_ui.moc"
