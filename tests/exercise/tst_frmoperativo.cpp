#include "content/catalogo.h"
#include "exercise/frmoperativo.h"
#include "fakes/fakes.h"
#include "settings/stato.h"
#include "ui/rigaopzioni.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <memory>

namespace {

QString b(int n)
{
    return QString(n, QLatin1Char(' '));
}

// With every draw at 0 on topic 3 ordered, each item is template 13 with
// counts of 1: " 1 k    1 h " = 11 hundreds. Its lines start the same way.
const QString kDomanda = QStringLiteral(" 1 k    1 h ");
const QString kInizioNumero = b(19) + kDomanda + " = " + b(6) + "h";
const QString kInizioSimbolo = b(19) + kDomanda + " = " + b(5) + "11";

struct Banco {
    FakeClock clock;
    FakeRandom random;
    FakeSound suono;
    FakeScreens schermi;
    FakeMessageBox box;
    Stato stato;
    std::unique_ptr<frmOperativo> w;

    explicit Banco(qint16 tipo, qint16 livello = 3)
    {
        stato.servizi = {&clock, &random, &box, &suono, nullptr, &schermi};
        SceltaSimboli(livello, stato.topic, stato.titoli);
        stato.settings.TipoEsercizio = tipo;
        stato.settings.TestoTipoEsercizio = QStringLiteral(" Trova il numero");
        stato.settings.OrdineSimboli = 1;
        stato.settings.TestoOrdineSimboli = QStringLiteral(" Simboli ordinati");
        stato.settings.ValoreMassimo = 9;
    }
    void apri()
    {
        w = std::make_unique<frmOperativo>(stato);
        w->show();
        QVERIFY(QTest::qWaitForWindowActive(w.get()));
    }
    template <typename T = QWidget>
    T *c(const QString &nome) const { return w->findChild<T *>(nome); }
    QString testo(const QString &nome) const { return c<QLabel>(nome)->text(); }
    QString riga(int i) const { return stato.record.RigheEsercizio[std::size_t(i)]; }
    static QString fuoco() { return QApplication::focusWidget()->objectName(); }
    static void tasto(Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), k, m);
    }
    // What a pupil does, step by step, separated by blanks:
    //   c<key name>  mouse click        s<key name>  Space up to it, then Enter
    //   t<char>      a typed key: a digit, ",", a letter, B(ackspace), D(elete), R(eturn), _ (space), # (numeric pad 5)
    //   +<seconds>   time passes
    void esegui(const QString &passi)
    {
        for (const QString &p : passi.split(u' ', Qt::SkipEmptyParts)) {
            const QString resto = p.mid(1);
            if (p.startsWith(u'c')) {
                QTest::mouseClick(c<QPushButton>(resto), Qt::LeftButton);
            } else if (p.startsWith(u's')) {
                for (int i = 0; i < 20 && fuoco() != resto; ++i)
                    tasto(Qt::Key_Space);
                QCOMPARE(fuoco(), resto);
                tasto(Qt::Key_Return);
            } else if (p.startsWith(u'+')) {
                clock.adesso += resto.toDouble();
            } else {
                const QChar k = resto.at(0);
                tasto(k == u',' ? Qt::Key_Comma
                      : k == u'B' ? Qt::Key_Backspace
                      : k == u'D' ? Qt::Key_Delete
                      : k == u'R' ? Qt::Key_Return
                      : k == u'_' ? Qt::Key_Space
                      : k == u'#' ? Qt::Key_5
                                  : Qt::Key(k.unicode()),
                      k == u'#' ? Qt::KeypadModifier : Qt::NoModifier);
            }
        }
    }
    QList<int> abilitati(const QString &riga) const
    {
        QList<int> si;
        for (int i = 0; auto *k = c<QPushButton>(QStringLiteral("%1(%2)").arg(riga).arg(i)); ++i)
            if (k->isEnabled())
                si << i;
        return si;
    }
};

const QList<int> kInizioTastierino{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
const QString kGiusto = QStringLiteral("t1 t1 tV tR"); // "11", typed

} // namespace

class TstFrmOperativo : public QObject
{
    Q_OBJECT
private slots:
    void controlli();
    void caricamento();
    void voce_data();
    void voce();
    void inserimento_data();
    void inserimento();
    void aiuto_data();
    void aiuto();
    void tempi_data();
    void tempi();
    void esercizioCompletoERicomincia();
    void tipoMisto();
    void tipoLasciatoDalGeneratore();
    void tastoAOltreLeRighe();
    void uscitaEStampa();
    void testiNonTagliati_data();
    void testiNonTagliati();
};

// Every named control is there (their accessible names are checked with all
// the other screens').
void TstFrmOperativo::controlli()
{
    Banco t(1);
    t.apri();
    for (const char *n : {"fraNumero", "fraSimbolo", "FraTastierino", "FraSimboli", "fraAiuto", "fraIntervento",
                          "fraAvviso", "lblIntervento", "optOK", "optAvviso(1)", "Label4", "LblEsito", "LblRisultato",
                          "lblRisultatoS", "lblNumero1", "lblNumero1S", "Label11", "Label11S", "lblUguale",
                          "lblUgualeS", "lblCorrezione", "lblCorrezioneS", "Label15", "LblOperazione", "lblRisEsatte",
                          "lblRisErrate", "LblTempoParziale", "LblTempoTotale", "Label1", "Label2", "Label7", "Line1",
                          "Line2", "LineA1", "LineA2", "Option2(14)", "Option1(6)", "Option3(1)"})
        QVERIFY2(t.c(QString::fromLatin1(n)), n);
}

void TstFrmOperativo::caricamento()
{
    Banco t(1);
    t.stato.record.RigheEsercizio[30] = QStringLiteral("old");
    t.apri();
    QCOMPARE(t.testo("Label1"), t.stato.titoli.Label6[2] + b(10) + " Simboli ordinati");
    QCOMPARE(t.testo("Label2"), QStringLiteral(" Trova il numero"));
    QCOMPARE(t.c<QPushButton>("Option1(2)")->text(), QStringLiteral(" da"));
    QVERIFY(t.riga(30).isEmpty());
    QCOMPARE(t.suono.caricato, QCoreApplication::applicationDirPath() + "/positivo.wav");
    QCOMPARE(t.testo("Label7"), QStringLiteral("  13"));
    QCOMPARE(t.testo("LblOperazione"), QStringLiteral("1"));
    QCOMPARE(t.stato.settings.ColoreRiposo, QString::number(255 + 224 * 256 + 192 * 65536));
    QCOMPARE(t.fuoco(), QStringLiteral("Option2(0)"));
    QCOMPARE(t.abilitati("Option2"), kInizioTastierino);
    auto *menu = t.w->findChild<QAction *>("mnuQuadro");
    QVERIFY(menu && menu->text() == QStringLiteral("Il quadro"));
    t.w.reset();
    QVERIFY(!t.stato.mostraNumeroModello);
}

// One item answered right by mouse, keyboard or switch alone; afterwards the
// keys that lead on are offered to mouse and switch as well.
void TstFrmOperativo::voce_data()
{
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("passi");
    QTest::addColumn<QString>("riga");
    QTest::addColumn<QString>("fuocoDopoN"); // after N: where the focus is

    const QString numero = kInizioNumero + b(52) + "11  (sec.   7)";
    const QString simbolo = kInizioSimbolo + b(53) + "h  (sec.   7)";
    QTest::newRow("number by mouse") << 1 << "+7.5 cOption2(1) cOption2(1) cOption2(12)" << numero << "Option2(12)";
    QTest::newRow("number by keys") << 1 << "+7.5 " + kGiusto << numero << "Option2(12)";
    QTest::newRow("number by switch") << 1 << "+7.5 sOption2(1) tR sOption2(12)" << numero << "Option2(12)";
    QTest::newRow("symbol by mouse, replacing") << 2 << "+7 cOption1(0) cOption1(1) cOption1(4)" << simbolo << "Option1(5)";
    // "V" waits for "Avanti" on the symbol pad, so the keys step to "Verifica".
    QTest::newRow("symbol by keys") << 2 << "+7 t1 tR tV t_ t_ t_ tR" << simbolo << "Option1(5)";
    QTest::newRow("symbol by switch") << 2 << "+7 sOption1(1) sOption1(4)" << simbolo << "Option1(5)";
}

void TstFrmOperativo::voce()
{
    QFETCH(int, tipo);
    QFETCH(QString, passi);
    QFETCH(QString, riga);
    QFETCH(QString, fuocoDopoN);
    Banco t{qint16(tipo)};
    t.apri();
    t.esegui(passi);
    QCOMPARE(t.riga(1), riga);
    QCOMPARE(t.testo(tipo == 1 ? "LblRisultato" : "lblRisultatoS"), tipo == 1 ? "11" : " h ");
    QCOMPARE(t.testo("LblEsito"), QStringLiteral("Esatto"));
    QCOMPARE(t.testo("lblRisEsatte"), QStringLiteral("1"));
    QCOMPARE(t.testo("LblTempoParziale"), QStringLiteral("7"));
    QCOMPARE(t.suono.suonati, 1);
    t.esegui("tN");
    QCOMPARE(t.fuoco(), fuocoDopoN);
    t.esegui(tipo == 1 ? "sOption2(13)" : "sOption1(5)");
    QCOMPARE(t.stato.record.NumeroEsercizio, qint16(2));
    QCOMPARE(t.testo("LblEsito"), QString());
    QCOMPARE(t.testo(tipo == 1 ? "LblRisultato" : "lblRisultatoS"), QStringLiteral("?"));
}

// Answer entry on either pad: what is shown, and which keys stay usable.
void TstFrmOperativo::inserimento_data()
{
    QTest::addColumn<int>("tipo");
    QTest::addColumn<QString>("passi");
    QTest::addColumn<QString>("mostrato");
    QTest::addColumn<QString>("fuoco");
    QTest::addColumn<QList<int>>("abilitati");

    const QList<int> conVerifica = kInizioTastierino + QList<int>{11, 12};
    QTest::newRow("typed digits grouped") << 1 << "t1 t2 t3 t4" << "1.234" << "Option2(0)" << conVerifica;
    QTest::newRow("typed comma on empty refused") << 1 << "t1 tB t," << "?" << "Option2(0)" << kInizioTastierino;
    QTest::newRow("clicked comma on empty") << 1 << "cOption2(10)" << "0," << "Option2(10)" << conVerifica;
    QTest::newRow("delete after a comma") << 1 << "t1 t, tD" << "1" << "Option2(0)" << conVerifica;
    QTest::newRow("clicked tenth character dropped")
        << 1 << "cOption2(1) cOption2(2) cOption2(3) cOption2(4) cOption2(5) cOption2(6) cOption2(7) cOption2(8) cOption2(9)"
        << "12.345.67" << "Option2(9)" << conVerifica;
    QTest::newRow("E before Esci is offered") << 1 << "tE" << "?" << "Option2(0)" << kInizioTastierino;
    QTest::newRow("symbol digit jumps") << 2 << "t3" << "?" << "Option1(3)" << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("symbol 4 is no key") << 2 << "t4" << "?" << "Option1(0)" << QList<int>{0, 1, 2, 3, 4};
    QTest::newRow("numeric pad 5 on symbols ignored") << 2 << "t#" << "?" << "Option1(0)" << QList<int>{0, 1, 2, 3, 4};
}

void TstFrmOperativo::inserimento()
{
    QFETCH(int, tipo);
    QFETCH(QString, passi);
    QFETCH(QString, mostrato);
    QFETCH(QString, fuoco);
    QFETCH(QList<int>, abilitati);
    Banco t{qint16(tipo)};
    t.apri();
    t.esegui(passi);
    QCOMPARE(t.testo(tipo == 1 ? "LblRisultato" : "lblRisultatoS"), mostrato);
    QCOMPARE(t.fuoco(), fuoco);
    QCOMPARE(t.abilitati(tipo == 1 ? "Option2" : "Option1"), abilitati);
}

// Wrong answers, help, retries and the intervention: the line and the counts.
void TstFrmOperativo::aiuto_data()
{
    QTest::addColumn<QString>("passi");
    QTest::addColumn<QString>("riga");
    QTest::addColumn<QString>("errate");

    QTest::newRow("wrong, then SI") << "+3 t1 cOption2(12) tR" << kInizioNumero + b(10) + "1*" + b(40) + "^11 (sec.   3)"
                                    << "2";
    QTest::newRow("wrong, NO, right") << "+4 t2 sOption2(12) tN tR " + kGiusto
                                      << kInizioNumero + b(10) + "2*" + b(40) + "11  (sec.   4)" << "1";
    QTest::newRow("three NO, then OK")
        << "+5 t1 sOption2(12) sOption3(1) t2 sOption2(12) sOption3(1) t3 sOption2(12) t2 tR tR"
        << kInizioNumero + b(10) + "1*" + b(10) + "2*" + b(10) + "3*" + b(16) + "^11 (sec.   5)" << "4";
}

void TstFrmOperativo::aiuto()
{
    QFETCH(QString, passi);
    QFETCH(QString, riga);
    QFETCH(QString, errate);
    Banco t(1);
    t.apri();
    t.esegui("t7 tV tR");
    QCOMPARE(t.testo("LblEsito"), QStringLiteral("Errato"));
    QVERIFY(!t.c("Line1")->isHidden() && !t.c("LineA2")->isHidden()); // all four, whichever frame shows
    QVERIFY(t.c("fraAiuto")->isEnabled() && !t.c("FraTastierino")->isEnabled());
    QCOMPARE(t.c<QGroupBox>("fraAiuto")->title(), QStringLiteral("Ti aiuto ?"));
    QCOMPARE(t.fuoco(), QStringLiteral("Option3(0)"));
    t.esegui("tN tR"); // retry: back to the keypad as at the start
    QCOMPARE(t.testo("LblRisultato"), QStringLiteral("?"));
    QVERIFY(t.c("Line1")->isHidden() && t.c("LineA2")->isHidden());
    QCOMPARE(t.abilitati("Option2"), kInizioTastierino);
    QCOMPARE(t.w->tentativi(), qint16(1));

    // The same from a fresh item, as the row tells it.
    t.stato.record.NumeroEsercizio = 0;
    t.w->NuovoEsercizio();
    t.esegui(passi);
    QCOMPARE(t.riga(1), riga);
    QCOMPARE(t.w->risposteErrate() - 1, errate.toInt()); // one wrong answer before the row
    QCOMPARE(t.riga(1).contains(u'^'), t.abilitati("Option2") == (QList<int>{13, 14}));
}

void TstFrmOperativo::tempi_data()
{
    QTest::addColumn<QList<double>>("secondi");
    QTest::addColumn<QString>("parziale");
    QTest::addColumn<QString>("totale");
    QTest::addColumn<QString>("coda");

    QTest::newRow("150 s shows 99") << QList<double>{150} << "99" << "99" << "(sec.  99)";
    QTest::newRow("partial of 7") << QList<double>{7.99} << "7" << "7" << "(sec.   7)";
    QTest::newRow("total capped at 999") << QList<double>(11, 99) << "99" << "999" << "(sec.  99)";
}

void TstFrmOperativo::tempi()
{
    QFETCH(QList<double>, secondi);
    QFETCH(QString, parziale);
    QFETCH(QString, totale);
    QFETCH(QString, coda);
    Banco t(1);
    t.apri();
    for (int i = 0; i < secondi.size(); ++i)
        t.esegui(QStringLiteral("%1 +%2 ").arg(i > 0 ? "tA" : "").arg(secondi.at(i)) + kGiusto);
    QCOMPARE(t.testo("LblTempoParziale"), parziale);
    QCOMPARE(t.testo("LblTempoTotale"), totale);
    QVERIFY(t.riga(int(secondi.size())).endsWith(coda));
}

void TstFrmOperativo::esercizioCompletoERicomincia()
{
    Banco t(1);
    t.apri();
    for (int n = 1; n <= 20; ++n) {
        QCOMPARE(t.testo("LblOperazione"), QString::number(n));
        t.esegui("+2 " + kGiusto);
        QCOMPARE(t.c("fraAvviso")->isEnabled(), n == 20);
        if (n < 20)
            t.esegui("sOption2(13)");
    }
    for (int n = 1; n <= 20; ++n)
        QCOMPARE(t.riga(n), kInizioNumero + b(52) + "11  (sec.   2)");
    QCOMPARE(t.testo("lblRisEsatte"), QStringLiteral("20"));
    QCOMPARE(t.testo("LblTempoTotale"), QStringLiteral("40"));
    QCOMPARE(t.fuoco(), QStringLiteral("optAvviso(0)"));
    QVERIFY(!t.c("FraTastierino")->isEnabled());

    t.esegui("tR"); // "Stampa"
    QCOMPARE(t.schermi.chiamate.last(), qMakePair(QStringLiteral("apri"), Schermo::StampaEsercizio));

    t.esegui("soptAvviso(1)"); // "Ricomincia"
    QCOMPARE(t.stato.record.NumeroEsercizio, qint16(1));
    for (const char *l : {"lblRisEsatte", "lblRisErrate", "LblTempoParziale", "LblTempoTotale"})
        QCOMPARE(t.testo(l), QString());
    QCOMPARE(t.testo("LblOperazione"), QStringLiteral("1"));
    QCOMPARE(t.riga(2), kInizioNumero + b(52) + "11  (sec.   2)"); // not emptied
    t.esegui("+1 " + kGiusto);
    QCOMPARE(t.testo("lblRisEsatte"), QStringLiteral("21")); // counts carry on
    QCOMPARE(t.testo("LblTempoTotale"), QStringLiteral("1"));
}

// Kind 3 draws the kind of every item after the generator's own draws.
void TstFrmOperativo::tipoMisto()
{
    Banco t(3);
    t.random.valori = {0, 0, 0, 0, 0, 0.75};
    t.apri();
    QVERIFY(t.c("FraSimboli")->isEnabled());
    QCOMPARE(t.stato.TipoCorrente, qint16(2));
    t.esegui("sOption1(1) sOption1(4)");
    QCOMPARE(t.riga(1), kInizioSimbolo + b(53) + "h  (sec.   0)");

    t.random.valori = {0, 0, 0, 0, 0, 0.25};
    t.esegui("sOption1(5)");
    QVERIFY(t.c("FraTastierino")->isEnabled() && !t.c("FraSimboli")->isEnabled());
    const QObjectList fratelli = t.c("fraNumero")->parent()->children();
    QVERIFY(fratelli.indexOf(t.c("fraNumero")) > fratelli.indexOf(t.c("fraSimbolo")));
    t.esegui(kGiusto);
    QCOMPARE(t.riga(2), kInizioNumero + b(52) + "11  (sec.   0)");
}

// With symbols in both orders the generator leaves its own draw in the shared
// kind: a number item can then count as a symbol item too, and both parts run.
void TstFrmOperativo::tipoLasciatoDalGeneratore()
{
    Banco t(1);
    t.stato.settings.OrdineSimboli = 3;
    t.random.valori = {0, 0, 0, 0, 0.75}; // counts, then the generator's kind 2
    t.apri();
    QVERIFY(t.c("FraTastierino")->isEnabled());
    t.esegui(kGiusto);
    const QString inizio = b(19) + " 1 h    1 k  = " + b(6) + "h";
    QCOMPARE(t.riga(1), inizio + b(52) + "11  (sec.   0)" + b(53) + "11  (sec.   0)");
    QCOMPARE(t.testo("lblRisEsatte"), QStringLiteral("1"));
}

// "A" moves on whatever the keys say; past the record's last line the
// handler stops and the screen goes on.
void TstFrmOperativo::tastoAOltreLeRighe()
{
    Banco t(1);
    t.apri();
    t.esegui("tA");
    QCOMPARE(t.stato.record.NumeroEsercizio, qint16(2));
    while (t.stato.record.NumeroEsercizio < 60)
        t.tasto(Qt::Key_A);
    QCOMPARE(t.riga(60), kInizioNumero);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("handler stopped"));
    t.tasto(Qt::Key_A);
    QCOMPARE(t.stato.record.NumeroEsercizio, qint16(61));
    QCOMPARE(t.testo("LblOperazione"), QStringLiteral("61"));
    QVERIFY(t.w->isVisible());
}

void TstFrmOperativo::uscitaEStampa()
{
    using Chiamate = QList<QPair<QString, Schermo>>;
    const Chiamate uscita{{"apri", Schermo::Inizio}, {"chiudi", Schermo::Operativo}};
    Banco t(1);
    t.apri();
    t.w->findChild<QAction *>("mnuVisualizza")->trigger();
    QCOMPARE(t.schermi.chiamate, (Chiamate{{"apri", Schermo::StampaEsercizio}}));
    t.schermi.chiamate.clear();
    t.esegui("cOption2(14)"); // disabled at the start of an item
    QVERIFY(t.schermi.chiamate.isEmpty());
    t.esegui(kGiusto + " tE tR");
    QCOMPARE(t.schermi.chiamate, uscita);

    Banco chiusa(2);
    chiusa.apri();
    chiusa.w->close();
    QCOMPARE(chiusa.schermi.chiamate, uscita);
}

// The longest question of each topic and the longest answer fit their labels.
void TstFrmOperativo::testiNonTagliati_data()
{
    QTest::addColumn<int>("livello");
    for (int l = 1; l <= 12; ++l)
        QTest::newRow(qPrintable(QStringLiteral("topic %1").arg(l))) << l;
}

void TstFrmOperativo::testiNonTagliati()
{
    QFETCH(int, livello);
    Banco t(1, qint16(livello));
    t.stato.settings.ValoreMassimo = 19;
    // Counts of 19 on every position, and the template showing most of them.
    const bool quattro = t.stato.topic.ClassePosizioni == 2;
    t.random.valori = {0.99, 0.99, 0.99, 0.99, quattro ? FakeRandom::per(11, 34) : FakeRandom::per(7, 12)};
    t.apri();
    const auto entra = [](QLabel *l, const QString &testo) {
        return QFontMetrics(l->font()).horizontalAdvance(testo) <= l->contentsRect().width();
    };
    QCOMPARE(t.testo("lblNumero1").count(QStringLiteral("19")), quattro ? 4 : 3);
    QVERIFY(entra(t.c<QLabel>("lblNumero1"), t.testo("lblNumero1")));
    QVERIFY(entra(t.c<QLabel>("lblNumero1S"), t.testo("lblNumero1")));
    QVERIFY(entra(t.c<QLabel>("LblRisultato"), QStringLiteral("888.888.8")));
    QVERIFY(entra(t.c<QLabel>("Label11S"), QStringLiteral("21.109")));
    for (int p = 1; p <= 4; ++p) {
        const QString s = t.stato.topic.Simboli[std::size_t(p)];
        QVERIFY(entra(t.c<QLabel>("Label11"), s));
        QVERIFY(entra(t.c<QLabel>("lblRisultatoS"), s));
    }
}

QTEST_MAIN(TstFrmOperativo)
#include "tst_frmoperativo.moc"
