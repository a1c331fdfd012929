// The exercise screen driven as a pupil drives it, by mouse, keys or one
// switch, and checked against the record lines, the screen and the printout
// that tests/data/esercizi.txt writes from the layout rules.
#include "exercise/frmoperativo.h"
#include "fakes/attesi.h"
#include "fakes/estrazioni.h"
#include "fakes/mondo.h"
#include "printing/stampa.h"
#include "ui/rigaopzioni.h"

#include <QLabel>
#include <QPushButton>

namespace {

struct Banco : Mondo {
    std::unique_ptr<frmOperativo> w;
    Utente u{nullptr, [this](const QString &p) { return tempo(p); }};

    Banco(int tipo, int livello = 3, int ordine = 1, int cifre = 1, std::deque<double> valori = {}) : Mondo(livello)
    {
        caso.valori = std::move(valori);
        Settings &s = stato.settings;
        s.TipoEsercizio = qint16(tipo);
        s.TestoTipoEsercizio = QStringLiteral(" Trova il numero");
        s.OrdineSimboli = qint16(ordine);
        s.TestoOrdineSimboli = QStringLiteral(" Usa i simboli ordinati");
        s.ValoreMassimo = cifre == 2 ? 19 : 9;
        stato.record.RigheEsercizio.fill(QStringLiteral("vecchia"));
    }
    void apri()
    {
        w = Mondo::apri<frmOperativo>();
        u.finestra = w.get();
    }
    QString testo(const QString &nome) const { return w->findChild<QLabel *>(nome)->text(); }
    QString riga(int i) const { return stato.record.RigheEsercizio[std::size_t(i)]; }
    QString schermo() const
    {
        return QStringLiteral("schermo esito=%1 esatte=%2 errate=%3 n=%4 sec=%5 tot=%6 suoni=%7 fuoco=%8")
            .arg(testo("LblEsito"), testo("lblRisEsatte"), testo("lblRisErrate"), testo("LblOperazione"),
                 testo("LblTempoParziale"), testo("LblTempoTotale"))
            .arg(suono.suonati)
            .arg(Utente::fuoco());
    }
    // "Stampa" on the end frame, then the page printed.
    QStringList pagina()
    {
        u.esegui(QStringLiteral("Return"));
        if (!schermi.chiamate.endsWith(QLatin1String("apri StampaEsercizio")))
            return {QStringLiteral("pagina: the printout was not opened")};
        StampaEsercizio(stato); // the printout screen's own key is tried by the printing tests
        QStringList p;
        for (const QString &r : std::as_const(stampante.pagina))
            p << QStringLiteral("pagina ") + r;
        return p;
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
    // A handler the program did not mean to stop fails the test.
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped"))); }
    // Whole exercises, item by item, as tests/data/esercizi.txt tells them.
    void esercizi()
    {
        const QStringList attese = righeAttese(QStringLiteral("esercizi.txt"));
        QStringList viste;
        std::unique_ptr<Banco> t;
        for (qsizetype i = 0; i < attese.size() && !QTest::currentTestFailed(); ++i) {
            const QString &r = attese[i];
            const QString parola = r.section(u' ', 0, 0), resto = r.section(u' ', 1);
            if (parola == QLatin1String("esercizio")) {
                const QStringList a = r.split(u' ');
                QStringList voci;
                for (qsizetype j = i + 1; j < attese.size() && !attese[j].startsWith(QLatin1String("esercizio")); ++j)
                    if (attese[j].startsWith(QLatin1String("voce ")))
                        voci << attese[j].mid(5);
                const int livello = a[2].toInt(), tipo = a[4].toInt(), ordine = a[6].toInt(), cifre = a[8].toInt();
                t = std::make_unique<Banco>(tipo, livello, ordine, cifre,
                                            estrazioni(voci, classe(livello), ordine, tipo, cifre == 2 ? 19 : 9));
                t->apri();
            } else if (parola == QLatin1String("passi")) {
                QVERIFY2(t, "steps before any exercise");
                t->u.esegui(resto);
            } else if (parola == QLatin1String("riga")) {
                viste << QStringLiteral("riga |%1|").arg(t->riga(t->stato.record.NumeroEsercizio));
                continue;
            } else if (parola == QLatin1String("schermo")) {
                viste << t->schermo();
                continue;
            } else if (parola == QLatin1String("pagina")) {
                if (!attese[i - 1].startsWith(QLatin1String("pagina")))
                    viste << t->pagina();
                continue;
            }
            viste << r;
        }
        CONFRONTA_RIGHE(viste, attese);
    }

    // What the screen shows as it opens on each topic of tests/data/argomenti.txt,
    // the record emptied whole; and whatever an item of the topic can bring
    // fits its label.
    void apertura_data()
    {
        QTest::addColumn<int>("livello");
        for (int n = 1; n <= 12; ++n)
            QTest::addRow("topic %d", n) << n;
    }
    void apertura()
    {
        QFETCH(int, livello);
        const QStringList a = argomento(livello);
        const bool quattro = classe(livello) == 2;
        Banco t(1, livello, 1, 2);
        t.apri();
        QCOMPARE(t.testo("Label1"), a[5] + QString(10, u' ') + " Usa i simboli ordinati");
        // The titles the topic gave the start screen, and the menu's caption.
        const TitoliInizio &ti = t.stato.titoli;
        QCOMPARE(ti.caption + u'|' + ti.Label6[0] + u'|' + ti.Label6[1] + u'|' + ti.mnuSchede,
                 QString(livello <= 3 ? "SISTEMA DECIMALE: composizione|SISTEMA DECIMALE |COMPOSIZIONE DEI NUMERI|"
                                      : "SISTEMA METRICO: composizione|SISTEMA METRICO|COMPOSIZIONE DELLE MISURE|") +
                     "Stampa schede: " + a[5]);
        QCOMPARE(t.testo("Label2"), QStringLiteral(" Trova il numero"));
        QCOMPARE(t.testo("Label7"), quattro ? QStringLiteral("  13") : QStringLiteral("  1"));
        QCOMPARE(t.stato.record.RigheEsercizio[0] + t.riga(2) + t.riga(60), QString());
        for (int i = 0; i < 4; ++i)
            QCOMPARE(t.w->simboli()->bottone(i)->text(), a[i + 1]);

        // Every template of the class, every count 19: the widest texts.
        QStringList domande, numeri, simboli = a.mid(1, 4);
        FakeRandom tutti19;
        tutti19.dopo = FakeRandom::per(19, 19);
        for (qint16 m = 1; m <= 182; ++m) {
            Item it;
            it.NumeroModello = m;
            qint16 tipo = 0;
            if (((m >= 13 && m <= 46) || m >= 72) == quattro) {
                Generatore{t.orologio, tutti19, {}}.genera(19, 0, t.stato.topic, it, tipo);
                domande << it.TestoDomanda;
                numeri << it.TestoNumero;
            }
        }
        const QHash<QString, QStringList> contenuti{
            {"lblNumero1", domande}, {"lblNumero1S", domande}, {"Label11", simboli}, {"lblRisultatoS", simboli},
            {"lblCorrezioneS", simboli}, {"Option1(0)", simboli}, {"Label11S", numeri}, {"LblRisultato", numeri},
            {"lblCorrezione", numeri}};
        for (auto it = contenuti.cbegin(); it != contenuti.cend(); ++it) {
            const QWidget *l = t.w->findChild<QWidget *>(it.key());
            const int spazio = l->contentsRect().width();
            for (const QString &s : it.value())
                QVERIFY2(l->fontMetrics().horizontalAdvance(s) <= spazio,
                         qPrintable(QStringLiteral("\"%1\" does not fit %2").arg(s, it.key())));
        }
    }

    // Answer entry on the keypad: what is shown, where the focus stays, and which
    // keys are usable. Clicked digits stop at 9 characters, typed ones at 7.
    void inserimento_data()
    {
        QTest::addColumn<QString>("passi");
        QTest::addColumn<QString>("mostrato");
        QTest::addColumn<int>("fuoco"); // on the keypad
        QTest::addColumn<QList<int>>("abilitati");

        const QList<int> inizio{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, conVerifica = inizio + QList<int>{11, 12};
        QTest::newRow("typed comma on empty refused") << "1 Backspace Space Space ," << "?" << 0 << inizio;
        QTest::newRow("clicked comma on empty, once")
            << "click:Option2(10) click:Option2(10) click:Option2(5)" << "0,5" << 5 << conVerifica;
        QTest::newRow("clicked tenth character dropped")
            << "scan:Option2(1) scan:Option2(2) scan:Option2(3) scan:Option2(4) scan:Option2(5) scan:Option2(6) "
               "scan:Option2(7) scan:Option2(8) scan:Option2(9)" << "12.345.67" << 9 << conVerifica;
        // The comma falls past the 9th character: what follows is still grouped.
        QTest::newRow("digit after a cut comma")
            << "click:Option2(1) click:Option2(2) click:Option2(3) click:Option2(4) click:Option2(5) click:Option2(6) "
               "click:Option2(7) click:Option2(10) click:Option2(8)" << "12.345.67" << 8 << conVerifica;
        QTest::newRow("typed eighth character dropped") << "1 2 3 4 5 6 7 8" << "123.458" << 0 << conVerifica;
        QTest::newRow("cancel regroups, C and Delete too") << "1 2 3 4 5 Backspace C Del" << "12" << 0 << conVerifica;
        QTest::newRow("a second comma is ignored") << "1 , ," << "1," << 0 << conVerifica;
        QTest::newRow("a cancelled comma may come again") << "1 , Backspace ," << "1," << 0 << conVerifica;
        QTest::newRow("numeric pad digits") << "K1 K0 , K5" << "10,5" << 0 << conVerifica;
        QTest::newRow("cancel to empty, then on empty") << "5 Backspace Backspace" << "?" << 0 << inizio;
        // "Esci" is disabled until the item ends: E cannot reach it.
        QTest::newRow("V and E move, F2 and other keys do nothing") << "3 F2 X E V" << "3" << 12 << conVerifica;
        // A retry empties the answer, and its comma with it.
        QTest::newRow("retry after a comma and NO") << "1 , 5 V Return N Return 3 , 5" << "3,5" << 0 << conVerifica;
        // After a correction only "Avanti" and "Esci" act, from the keyboard too.
        QTest::newRow("corrected: typed keys edit nothing") << "1 V Return S Return 5 , Backspace V" << "1" << 13 << QList<int>{13, 14};
        QTest::newRow("corrected: V Return cannot verify again") << "1 V Return S Return 5 V Return" << "?" << 0 << inizio;
    }
    void inserimento()
    {
        QFETCH(QString, passi);
        Banco t(1);
        t.apri();
        t.u.esegui(passi);
        QTEST(t.testo("LblRisultato"), "mostrato");
        QTEST(t.w->tastierino()->indiceFuoco(), "fuoco");
        QTEST(t.abilitati(), "abilitati");
    }

    // "A" moves on past the twenty items; line 61 does not exist.
    void tastoAOltreLeRighe()
    {
        Banco t(1);
        t.apri();
        while (t.stato.record.NumeroEsercizio < 60)
            t.u.esegui(QStringLiteral("A"));
        QCOMPARE(t.riga(60), QString(19, u' ') + " 1 k    1 h  = " + QString(6, u' ') + "h");
        QTest::ignoreMessage(QtWarningMsg, "handler stopped: index out of range");
        t.u.esegui(QStringLiteral("A"));
        QCOMPARE(t.testo("LblOperazione"), QStringLiteral("61")); // the count went up, then the line stopped it
    }

    // "Esci" and closing the window both go back to the start screen.
    void uscita()
    {
        const QString indietro = QStringLiteral("apri Inizio, chiudi Operativo");
        Banco t(1);
        t.apri();
        t.u.esegui(QStringLiteral("E Return click:Option2(14)")); // "Esci" is disabled at the start of an item
        QVERIFY(t.schermi.chiamate.isEmpty());
        t.u.esegui(QStringLiteral("1 1 V Return E Return"));
        QCOMPARE(t.schermi.chiamate, indietro);

        Banco chiusa(2);
        chiusa.apri();
        chiusa.w->close();
        QCOMPARE(chiusa.schermi.chiamate, indietro);
    }
};

QTEST_MAIN(TstEsercizio)
#include "tst_esercizio.moc"
