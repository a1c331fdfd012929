// The exercise screen driven as a pupil drives it, by mouse, keys or one
// switch, and checked against the record line each item leaves.
#include "content/catalogo.h"
#include "exercise/calcolaspazi.h"
#include "exercise/frmoperativo.h"
#include "fakes/fakes.h"
#include "settings/stato.h"
#include "ui/rigaopzioni.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <memory>

namespace {

QString b(int n) { return QString(n, QLatin1Char(' ')); }

// With every draw at 0 on topic 3 ordered, each item is template 13 with
// counts of 1: " 1 k    1 h " = 11 hundreds. Its lines start the same way.
const QString kInizioNumero = b(19) + " 1 k    1 h  = " + b(6) + "h";
const QString kInizioSimbolo = b(19) + " 1 k    1 h  = " + b(5) + "11";
const QString kGiusto = QStringLiteral("t1 t1 tV tR"); // "11", typed
const QList<int> kInizioTastierino{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};

struct Banco {
    FakeClock clock;
    FakeRandom random;
    FakeSound suono;
    FakeScreens schermi;
    Stato stato;
    std::unique_ptr<frmOperativo> w;

    explicit Banco(qint16 tipo, std::deque<double> valori = {})
    {
        random.valori = std::move(valori);
        stato.servizi = {&clock, &random, nullptr, &suono, nullptr, &schermi};
        SceltaSimboli(3, stato.topic, stato.titoli);
        stato.settings.TipoEsercizio = tipo;
        stato.settings.OrdineSimboli = 1;
        stato.settings.ValoreMassimo = 9;
        w = std::make_unique<frmOperativo>(stato);
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
    }
    QWidget *c(const QString &nome) const { return w->findChild<QWidget *>(nome); }
    QString testo(const QString &nome) const { return w->findChild<QLabel *>(nome)->text(); }
    QString riga(int i) const { return stato.record.RigheEsercizio[std::size_t(i)]; }
    static QString fuoco() { return QApplication::focusWidget()->objectName(); }
    static void tasto(Qt::Key k) { QTest::keyClick(QApplication::focusWidget(), k); }
    // What a pupil does, step by step, separated by blanks:
    //   c<key>     mouse click on a key: its name, or a bare number for the keypad's
    //   d<key>     double click on a key
    //   s<key>     Space up to the key, then Enter (one switch)
    //   t<char>    a typed key: a digit, ",", a letter, B(ackspace), D(elete), R(eturn), _ (space)
    //   h<char>    the same key held down while the keyboard repeats it
    //   k<digit>   a digit of the numeric pad
    //   +<secs>    time passes
    void esegui(const QString &passi)
    {
        static const QHash<QChar, Qt::Key> speciali{{u',', Qt::Key_Comma}, {u'B', Qt::Key_Backspace},
                                                    {u'D', Qt::Key_Delete}, {u'R', Qt::Key_Return},
                                                    {u'_', Qt::Key_Space}};
        for (const QString &p : passi.split(u' ', Qt::SkipEmptyParts)) {
            const QString resto = p.mid(1);
            const QString nome = resto.front().isDigit() ? "Option2(" + resto + ")" : resto;
            if (p.startsWith(u'c')) {
                QTest::mouseClick(c(nome), Qt::LeftButton);
            } else if (p.startsWith(u'd')) { // what a widget is sent for a double click
                QTest::mouseClick(c(nome), Qt::LeftButton);
                QTest::mouseDClick(c(nome), Qt::LeftButton);
                QTest::mouseRelease(c(nome), Qt::LeftButton);
            } else if (p.startsWith(u's')) {
                for (int i = 0; i < 20 && fuoco() != nome; ++i)
                    tasto(Qt::Key_Space);
                QCOMPARE(fuoco(), nome);
                tasto(Qt::Key_Return);
            } else if (p.startsWith(u'+')) {
                clock.adesso += resto.toDouble();
            } else {
                const Qt::Key k = speciali.value(resto.front(), Qt::Key(resto.front().unicode()));
                // Held, the keyboard repeats release and press until the real release.
                for (int i = 0; p.startsWith(u'h') && i < 6; ++i) {
                    QKeyEvent e(i % 2 ? QEvent::KeyRelease : QEvent::KeyPress, k, Qt::NoModifier, QString(), i > 0 && i < 5);
                    QApplication::sendEvent(QApplication::focusWidget(), &e);
                }
                if (p.startsWith(u't') || p.startsWith(u'k'))
                    QTest::keyClick(QApplication::focusWidget(), k, p.startsWith(u'k') ? Qt::KeypadModifier : Qt::NoModifier);
            }
        }
    }
    QList<int> abilitati() const // on the keypad
    {
        QList<int> si;
        for (int i = 0; i < w->tastierino()->count(); ++i)
            if (w->tastierino()->bottone(i)->isEnabled())
                si << i;
        return si;
    }
};

} // namespace

class TstEsercizio : public QObject
{
    Q_OBJECT
private slots:
    // The given part of a line is right-aligned in 7 columns, its blanks
    // trimmed: symbols of one or two letters, numbers of two to seven characters.
    void rientri()
    {
        QStringList simboli, numeri;
        for (const char *t : {" u ", " da ", " dam "})
            simboli << QString::number(RientroSimbolo(QLatin1String(t)).size());
        for (const char *t : {"1", "12", " 1,5 ", "12.345", "1.234,56"})
            numeri << QString::number(RientroNumero(QLatin1String(t)).size());
        // A one-digit number has always printed unaligned.
        QCOMPARE(simboli.join(u' ') + " | " + numeri.join(u' '), "6 5 0 | 0 5 4 1 0");
    }

    // One item answered right by mouse, keyboard or switch alone: the line, then
    // what the screen shows (outcome, right answers, sounds, item, total seconds)
    // and where the focus waits. After a right answer it waits on "Avanti", so a
    // second Enter moves on and verifies nothing twice.
    void voce_data()
    {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QString>("passi");
        QTest::addColumn<QString>("riga");
        QTest::addColumn<QString>("schermo");
        QTest::addColumn<QList<double>>("caso"); // draws after the generator's own (kind 3 draws the kind)

        const QList<double> no, numeroMisto{0, 0, 0, 0, 0, 0.25}, simboloMisto{0, 0, 0, 0, 0, 0.75};
        const QString numero = kInizioNumero + b(52) + "11  (sec.   7)", simbolo = kInizioSimbolo + b(53) + "h  (sec.   7)";
        QTest::newRow("number by switch") << 1 << "+7.5 s1 tR s12" << numero << "Esatto 1 1 1 7 Option2(13)" << no;
        QTest::newRow("number, Enter again moves on") << 1 << "+7.5 s1 tR s12 tR" << numero << " 1 1 2 7 Option2(0)" << no;
        QTest::newRow("from Avanti space steps on") << 1 << "+7.5 " + kGiusto + " t_ t_" << numero << " 1 1 1 7 Option2(0)" << no;
        // A symbol key's own blanks do not reach the line.
        QTest::newRow("symbol by mouse, wrong first")
            << 2 << "+7 cOption1(2) cOption1(0) cOption1(4) cOption3(1) cOption1(1) cOption1(4)"
            << kInizioSimbolo + b(10) + "k*" + b(41) + "h  (sec.   7)" << "Esatto 1 1 1 7 Option1(5)" << no;
        // "V" waits for "Avanti" on the symbol pad, so the keys step to "Verifica".
        QTest::newRow("symbol by keys, the numeric pad's 0 is no key") << 2 << "+7 t1 k0 tR tV t_ t_ t_ tR" << simbolo << "Esatto 1 1 1 7 Option1(5)" << no;
        QTest::newRow("symbol by switch, twice") << 2 << "+7 sOption1(1) sOption1(4) tR" << simbolo << " 1 1 2 7 Option1(0)" << no;
        QTest::newRow("kind 3, a number") << 3 << "+7.5 " + kGiusto << numero << "Esatto 1 1 1 7 Option2(13)" << numeroMisto;
        QTest::newRow("kind 3, a symbol") << 3 << "+7 sOption1(1) sOption1(4)" << simbolo << "Esatto 1 1 1 7 Option1(5)" << simboloMisto;
    }

    void voce()
    {
        QFETCH(int, tipo);
        QFETCH(QString, passi);
        QFETCH(QList<double>, caso);
        Banco t{qint16(tipo), {caso.begin(), caso.end()}};
        t.esegui(passi);
        QTEST(t.riga(1), "riga");
        QStringList schermo;
        for (const char *l : {"LblEsito", "lblRisEsatte"})
            schermo << t.testo(l);
        schermo << QString::number(t.suono.suonati) << t.testo("LblOperazione") << t.testo("LblTempoTotale") << t.fuoco();
        QTEST(schermo.join(u' '), "schermo");
    }

    // Answer entry on the keypad: what is shown, where the focus stays, and which
    // keys are usable. Clicked digits stop at 9 characters, typed ones at 7.
    void inserimento_data()
    {
        QTest::addColumn<QString>("passi");
        QTest::addColumn<QString>("mostrato");
        QTest::addColumn<int>("fuoco"); // on the keypad
        QTest::addColumn<QList<int>>("abilitati");

        const QList<int> conVerifica = kInizioTastierino + QList<int>{11, 12};
        QTest::newRow("typed comma on empty refused") << "t1 tB t_ t_ t," << "?" << 0 << kInizioTastierino;
        QTest::newRow("clicked comma on empty, once") << "c10 c10 c5" << "0,5" << 5 << conVerifica;
        QTest::newRow("double-clicked digits, once each") << "d1 d2" << "12" << 2 << conVerifica;
        QTest::newRow("held digits, once each") << "h1 h2" << "12" << 0 << conVerifica;
        QTest::newRow("decimals not regrouped") << "c1 c2 c3 c4 c10 c5 c6 c7" << "1.234,567" << 7 << conVerifica;
        QTest::newRow("clicked tenth character dropped") << "c1 c2 c3 c4 c5 c6 c7 c8 c9" << "12.345.67" << 9 << conVerifica;
        // The comma falls past the 9th character: what follows is still grouped.
        QTest::newRow("digit after a cut comma") << "c1 c2 c3 c4 c5 c6 c7 c10 c8" << "12.345.67" << 8 << conVerifica;
        QTest::newRow("typed eighth character dropped") << "t1 t2 t3 t4 t5 t6 t7 t8" << "123.458" << 0 << conVerifica;
        QTest::newRow("cancel regroups") << "t1 t2 t3 t4 tB" << "123" << 0 << conVerifica;
        QTest::newRow("a second comma is ignored, a cancelled one may come again") << "t1 t, t, tB t," << "1," << 0 << conVerifica;
        QTest::newRow("delete keeps a comma still there") << "t1 t, t2 t5 tD" << "1,2" << 0 << conVerifica;
        QTest::newRow("cancel to empty, then on empty") << "t5 tB tB" << "?" << 0 << kInizioTastierino;
    }

    void inserimento()
    {
        QFETCH(QString, passi);
        QFETCH(QString, mostrato);
        QFETCH(int, fuoco);
        QFETCH(QList<int>, abilitati);
        Banco t(1);
        t.esegui(passi);
        QCOMPARE(t.testo("LblRisultato"), mostrato);
        QCOMPARE(t.fuoco(), QStringLiteral("Option2(%1)").arg(fuoco));
        QCOMPARE(t.abilitati(), abilitati);
    }

    // Wrong answers, help, retries and the intervention: the line and the counts.
    void aiuto_data()
    {
        QTest::addColumn<QString>("passi");
        QTest::addColumn<QString>("riga");
        QTest::addColumn<int>("errate");

        QTest::newRow("wrong, then SI") << "+3 t1 c12 tR" << kInizioNumero + b(10) + "1*" + b(40) + "^11 (sec.   3)" << 2;
        QTest::newRow("wrong, NO, right") << "+4 t2 s12 tN tR " + kGiusto
                                          << kInizioNumero + b(10) + "2*" + b(40) + "11  (sec.   4)" << 1;
        QTest::newRow("three NO, then OK")
            << "+5 t1 s12 sOption3(1) t2 s12 sOption3(1) t3 s12 t2 tR tR"
            << kInizioNumero + b(10) + "1*" + b(10) + "2*" + b(10) + "3*" + b(16) + "^11 (sec.   5)" << 4;
    }

    void aiuto()
    {
        QFETCH(QString, passi);
        QFETCH(QString, riga);
        QFETCH(int, errate);
        Banco t(1);
        t.esegui("t7 tV tR");
        QCOMPARE(t.testo("LblEsito"), QStringLiteral("Errato"));
        QVERIFY(!t.c("Line1")->isHidden() && !t.c("LineA2")->isHidden());
        t.esegui("tN tR"); // retry: back to the keypad as at the start
        QCOMPARE(t.testo("LblRisultato"), QStringLiteral("?"));
        QVERIFY(t.c("Line1")->isHidden() && t.c("LineA2")->isHidden());
        QCOMPARE(t.abilitati(), kInizioTastierino);

        // The same from a fresh item, as the row tells it.
        t.stato.record.NumeroEsercizio = 0;
        t.w->NuovoEsercizio();
        t.esegui(passi);
        QCOMPARE(t.riga(1), riga);
        QCOMPARE(t.w->risposteErrate() - 1, errate); // one wrong answer before the row
        QCOMPARE(t.riga(1).contains(u'^'), t.abilitati() == (QList<int>{13, 14}));
    }

    // Every item takes 150 s: each line shows 99, the total stops at 999.
    void esercizioCompletoERicomincia()
    {
        Banco t(1);
        for (int n = 1; n <= 20; ++n) {
            QCOMPARE(t.testo("LblOperazione"), QString::number(n));
            t.esegui("+150 " + kGiusto);
            QCOMPARE(t.riga(n), kInizioNumero + b(52) + "11  (sec.  99)");
            QCOMPARE(t.c("fraAvviso")->isEnabled(), n == 20);
            if (n < 20)
                t.esegui("s13");
        }
        QCOMPARE(t.testo("LblTempoTotale"), QStringLiteral("999"));
        t.esegui("tR"); // "Stampa"
        QVERIFY(t.schermi.chiamate.endsWith("apri StampaEsercizio"));

        t.esegui("soptAvviso(1)"); // "Ricomincia"
        QCOMPARE(t.stato.record.NumeroEsercizio, qint16(1));
        for (const char *l : {"lblRisEsatte", "lblRisErrate", "LblTempoParziale", "LblTempoTotale"})
            QCOMPARE(t.testo(l), QString());
        QCOMPARE(t.riga(2), kInizioNumero + b(52) + "11  (sec.  99)"); // not emptied
        t.esegui("+1 " + kGiusto);
        QCOMPARE(t.testo("lblRisEsatte"), QStringLiteral("21")); // counts carry on
        QCOMPARE(t.testo("LblTempoTotale"), QStringLiteral("1"));
    }

    // Kind 3 draws the kind of every item after the generator's own draws.
    void tastoAOltreLeRighe()
    {
        Banco t(1);
        while (t.stato.record.NumeroEsercizio < 60)
            t.tasto(Qt::Key_A);
        QCOMPARE(t.riga(60), kInizioNumero);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("handler stopped"));
        t.tasto(Qt::Key_A);
        QCOMPARE(t.testo("LblOperazione"), QStringLiteral("61")); // the count went up, then the line stopped it
    }

    // "Esci" and closing the window both go back to the start screen.
    void uscita()
    {
        const QString indietro = QStringLiteral("apri Inizio, chiudi Operativo");
        Banco t(1);
        t.esegui("tE tR c14"); // "Esci" is disabled at the start of an item, to keys and mouse
        QVERIFY(t.schermi.chiamate.isEmpty());
        t.esegui(kGiusto + " tE tR");
        QCOMPARE(t.schermi.chiamate, indietro);

        Banco chiusa(2);
        chiusa.w->close();
        QCOMPARE(chiusa.schermi.chiamate, indietro);
    }
};

QTEST_MAIN(TstEsercizio)
#include "tst_esercizio.moc"
