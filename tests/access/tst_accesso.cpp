// One switch: the access file, the rules of a press, automatic scanning on the
// screens, and a whole exercise answered with nothing but one key.
#include "access/evidenziatore.h"
#include "access/fileaccesso.h"
#include "access/filtroingressi.h"
#include "access/frmaccesso.h"
#include "access/vociaccesso.h"
#include "access/scansioneautomatica.h"
#include "access/vocetasti.h"
#include "app/frmautore.h"
#include "app/gestoreschermi.h"
#include "exercise/frmoperativo.h"
#include "printing/frmsceltastampante.h"
#include "fakes/attesi.h"
#include "fakes/cartella.h"
#include "fakes/estrazioni.h"
#include "fakes/mondo.h"
#include "fakes/sveglia.h"
#include "settings/frminizio.h"
#include "settings/frmopzioni.h"
#include "ui/coloriopzioni.h"
#include "ui/rigaopzioni.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

QString numero(double d)
{
    return QString::number(d, 'f', d * 10 == std::floor(d * 10) ? 1 : 2);
}

// What the test files call the settings, in the access file's own words.
QString letto(const ImpostazioniAccesso &a)
{
    return QStringList{a.automatica ? "automatica" : "manuale", numero(a.intervallo), numero(a.primo),
                       QString::number(a.giri), numero(a.accettazione),
                       a.ripetizione ? numero(*a.ripetizione) : "-", a.spessa ? "spessa" : "normale",
                       a.gruppi ? "si" : "no", a.voce ? "si" : "no", a.voceTasti ? "si" : "no",
                       QString::number(a.velocita)}
        .join(' ');
}

// The screens and the access objects as main puts them together, on the fakes.
struct Banco : Mondo {
    CartellaDiProva cartella;
    FakeSveglia svegliaFiltro{orologio}, svegliaScansione{orologio};
    FiltroIngressi filtro{stato.accesso, orologio, svegliaFiltro};
    ScansioneAutomatica scansione{stato.accesso, svegliaScansione, &filtro};
    Evidenziatore evidenziatore{stato.accesso};
    VoceTasti voceTasti{stato};
    GestoreSchermi gestore{stato};
    std::unique_ptr<QWidget> w;
    Utente u{nullptr};
    const double zero = orologio.adesso;

    explicit Banco(const QString &accesso, int livello = 3) : Mondo(livello)
    {
        stato.accesso = LeggiAccessoDa(QString(accesso).replace(u';', u'\n').toUtf8());
        qApp->installEventFilter(&voceTasti);
        qApp->installEventFilter(&scansione);
        qApp->installEventFilter(&filtro);
        u.altro = [this](const QString &p) { return p.startsWith(u'@') && (fino(p.mid(1).toDouble()), true); };
    }
    ~Banco() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
    void fino(double t) { avanza(orologio, {&svegliaFiltro, &svegliaScansione}, zero + t); }

    void esercizio(int tipo)
    {
        Settings &s = stato.settings;
        s.TipoEsercizio = qint16(tipo);
        s.OrdineSimboli = 1;
        s.ValoreMassimo = 9;
        w = apri<frmOperativo>();
    }
    void schermo(const QString &nome)
    {
        stato.servizi.schermi = &gestore;
        if (nome == QLatin1String("inizio")) {
            auto f = apri<FrmInizio>();
            while (f->tendine().attiva())
                f->tickTendine();
            w = std::move(f);
        } else if (nome == QLatin1String("tastierino") || nome == QLatin1String("simboli")) {
            esercizio(nome == QLatin1String("simboli") ? 2 : 1);
        } else if (nome == QLatin1String("opzioni")) {
            w = apri<FrmOpzioni>();
        } else if (nome == QLatin1String("accesso")) {
            w = apri<FrmAccesso>();
        } else if (nome == QLatin1String("stampante")) {
            stampante.stampanti = {QStringLiteral("Ufficio"), QStringLiteral("Aula 2"), QStringLiteral("PDF")};
            w = apri<frmSceltaStampante>();
        } else if (nome == QLatin1String("autore")) {
            w = std::make_unique<FrmAutore>(nullptr);
            w->show();
            QVERIFY(QTest::qWaitForWindowActive(w.get()));
        }
        u.finestra = w.get();
    }
    // "fuoco", "ferma" when the scan has stopped, then each asked control's text.
    QString visto(const QStringList &nomi) const
    {
        QStringList v{Utente::fuoco()};
        if (scansione.ferma())
            v << QStringLiteral("ferma");
        // A key is never left drawn as pressed.
        for (const QAbstractButton *b : w->findChildren<QAbstractButton *>())
            if (b->isDown())
                v << QStringLiteral("premuto ") + b->objectName();
        for (const QString &n : nomi) {
            const QString nome = n.section(u'=', 0, 0);
            if (nome == QLatin1String("voce")) {
                v << nome + u'=' + voce.detti.join(QStringLiteral(" / "));
                continue;
            }
            if (nome == QLatin1String("acceso")) { // the focused key drawn as focused
                const QWidget *f = QApplication::focusWidget();
                v << nome + u'=' + (f && f->styleSheet().contains(QLatin1String("4px solid")) ? "si" : "no");
                continue;
            }
            const QWidget *c = w->findChild<QWidget *>(nome);
            const auto *l = qobject_cast<const QLabel *>(c);
            const auto *b = qobject_cast<const QAbstractButton *>(c);
            const auto *e = qobject_cast<const QComboBox *>(c);
            v << nome + u'=' + (l ? l->text() : b ? b->text() : e ? e->currentText() : "(none)");
        }
        return v.join(QStringLiteral(" | "));
    }
};

} // namespace

class TstAccesso : public QObject
{
    Q_OBJECT
private slots:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped"))); }

    // tests/data/accesso.txt: texts read and written back.
    void file()
    {
        const QStringList attese = righeAttese(QStringLiteral("accesso.txt"));
        QStringList viste;
        QByteArray testo;
        bool aperto = false;
        const auto chiudi = [&] {
            const ImpostazioniAccesso a = LeggiAccessoDa(testo);
            viste << QStringLiteral("= ") + letto(a);
            for (const QByteArray &r : ScriviAccessoIn(a).split('\n'))
                if (!r.isEmpty())
                    viste << QStringLiteral("> ") + QString::fromUtf8(r);
        };
        for (const QString &r : attese) {
            if (r.startsWith(QLatin1String("== "))) {
                if (std::exchange(aperto, true))
                    chiudi();
                testo.clear();
            } else if (r.startsWith(QLatin1String("< "))) {
                testo += QString(r.mid(2))
                             .replace(QLatin1String("<BOM>"), QChar(0xFEFF))
                             .replace(QLatin1String("\\r"), QLatin1String("\r"))
                             .toUtf8() +
                         '\n';
            } else if (r.startsWith(QLatin1String("= ")) || r.startsWith(QLatin1String("> "))) {
                continue;
            }
            viste << r;
        }
        chiudi();
        CONFRONTA_RIGHE(viste, attese);
    }
    // A missing file is the defaults; a file that cannot be written is left as
    // it was, and says why.
    void fileSulDisco()
    {
        CartellaDiProva cartella;
        QCOMPARE(letto(LeggiAccesso(NomeFileAccesso("prova"))), "manuale 1.0 1.0 3 0.0 - normale si no si 0");
        ImpostazioniAccesso a;
        a.giri = 7;
        QVERIFY(ScriviAccesso(NomeFileAccesso("prova"), a));
        QCOMPARE(LeggiAccesso("provaAccesso.dat").giri, 7);
        QVERIFY(QDir().mkdir("cartella"));
        QString errore;
        QVERIFY(!ScriviAccesso("cartella", a, &errore));
        QVERIFY(!errore.isEmpty());
        QVERIFY(QFileInfo("cartella").isDir());
        // Nothing past the first 64 KiB is read: no settings file is that long.
        QCOMPARE(LeggiAccessoDa(QByteArray(64 * 1024 - 1, '#') + "\ngiri=7\n").giri, 3);
        QCOMPARE(LeggiAccessoDa(QByteArray(64 * 1024 - 8, '#') + "\ngiri=7\n").giri, 7);
    }

    // tests/data/voci_accesso.txt: the values of each line of the panel.
    void voci()
    {
        const QStringList attese = righeAttese(QStringLiteral("voci_accesso.txt"));
        QStringList viste;
        for (int v = 0; v < VociAccesso::kNumero; ++v) {
            ImpostazioniAccesso a;
            for (int i = 0; i < 20; ++i)
                VociAccesso::passo(a, v, -1);
            QStringList valori{VociAccesso::valore(a, v)};
            for (int i = 0; i < 20; ++i, VociAccesso::passo(a, v, +1))
                if (VociAccesso::valore(a, v) != valori.last())
                    valori << VociAccesso::valore(a, v);
            viste << VociAccesso::nome(v) + QStringLiteral(": ") + valori.join(QStringLiteral(" | "));
        }
        ImpostazioniAccesso a, b;
        a.intervallo = b.intervallo = 0.45;
        VociAccesso::passo(a, 1, -1);
        VociAccesso::passo(b, 1, +1);
        viste << QStringLiteral("Intervallo 0,45 s: %1 | %2").arg(VociAccesso::valore(a, 1), VociAccesso::valore(b, 1));
        CONFRONTA_RIGHE(viste, attese.filter(QRegularExpression(QStringLiteral("^[^#]"))));
    }

    // The panel by keys: "+" on the loops twice, then "Memorizza": the file
    // holds it and the program uses it; where the file cannot be written, a
    // message says so and nothing changes.
    void pannello()
    {
        for (bool scrivibile : {true, false}) {
            Banco b(QStringLiteral("-"));
            if (!scrivibile)
                QVERIFY(QDir().mkdir(NomeFileAccesso(b.stato.settings.NomeFile)));
            b.schermo(QStringLiteral("accesso"));
            b.stato.servizi.schermi = &b.schermi;
            b.u.esegui(QStringLiteral("Space Space Space Space Space Space Space Return Return"));
            QCOMPARE(b.visto({"lblValore(3)"}), "Accesso(7) | lblValore(3)=5");
            // One line for each of the eleven settings of the file.
            QCOMPARE(b.w->findChildren<QLabel *>(QRegularExpression("^lblValore")).size(), 11);
            b.u.esegui(QStringLiteral("M Return"));
            QCOMPARE(b.stato.accesso.giri, scrivibile ? 5 : 3);
            QCOMPARE(LeggiAccesso(NomeFileAccesso(b.stato.settings.NomeFile)).giri, scrivibile ? 5 : 3);
            QCOMPARE(b.messaggi.mostrati.size(), scrivibile ? 0 : 1);
            QCOMPARE(b.w->findChild<QLabel *>("lblEsito")->text().endsWith("provaAccesso.dat"), scrivibile);
            b.u.esegui(QStringLiteral("E Return"));
            QCOMPARE(b.schermi.chiamate, "chiudi Accesso");
        }
    }

    // A double click on a loose key (the printer choice's "C H I U D I"):
    // one press with the system's rule, two with a window of zero.
    void doppioClic()
    {
        for (const QString accesso : {"-", "ripetizione=0"}) {
            Banco b(accesso);
            b.schermo(QStringLiteral("stampante"));
            b.stato.servizi.schermi = &b.schermi;
            b.u.esegui(QStringLiteral("dclick:Command2"));
            QCOMPARE(b.schermi.chiamate.count(QStringLiteral("chiudi")), accesso == u'-' ? 1 : 2);
        }
    }

    // tests/data/pressioni.txt: the acceptance time and the repeat window.
    void pressioni()
    {
        const QStringList attese = righeAttese(QStringLiteral("pressioni.txt"));
        QStringList viste;
        ImpostazioniAccesso a;
        std::unique_ptr<RegolePressioni> r;
        for (const QString &riga : attese) {
            const QStringList p = riga.section(QLatin1String(" =>"), 0, 0).split(u' ');
            if (p[0] == QLatin1String("impostazioni")) {
                a.accettazione = p[1].section(u'=', 1).toDouble();
                const QString rip = p[2].section(u'=', 1);
                a.ripetizione = rip == u'-' ? std::nullopt : std::optional<double>(rip.toDouble());
                r = std::make_unique<RegolePressioni>(a);
                viste << riga;
                continue;
            }
            if (!r || riga.startsWith(u'#') || riga.startsWith(u'=')) {
                viste << riga;
                continue;
            }
            const quintptr k = p[0].at(0).unicode();
            const double t = p[1].toDouble();
            const QChar azione = p[0].size() > 1 ? p[0].at(1) : QChar();
            QString esito;
            if (p[0] == u'?') {
                const std::optional<quintptr> c = r->scaduta(t);
                esito = c ? QStringLiteral("conta ") + QChar(char16_t(*c)) : QStringLiteral("niente");
            } else if (azione == u'+') {
                static const char *const nomi[] = {"passa", "scarta", "attende"};
                esito = QLatin1String(nomi[int(r->premuto(k, t))]);
            } else {
                esito = (azione == u'-' ? r->rilasciato(k) : r->ripetuto(k)) ? "passa" : "scarta";
            }
            viste << riga.section(QLatin1String(" => "), 0, 0) + QStringLiteral(" => ") + esito;
        }
        CONFRONTA_RIGHE(viste, attese);
    }

    // tests/data/scansione.txt: screens, settings and presses at given times.
    void scansione() { scenari(QStringLiteral("scansione.txt")); }
    // tests/data/voce.txt: what is said, and when, on the same screens.
    void voce() { scenari(QStringLiteral("voce.txt")); }

private:
    void scenari(const QString &file)
    {
        const QStringList attese = righeAttese(file);
        QStringList viste;
        std::unique_ptr<Banco> b;
        QString schermo;
        int livello = 3;
        QStringList voci;
        for (const QString &riga : attese) {
            if (riga.startsWith(QLatin1String("schermo ")))
                schermo = riga.mid(8);
            if (riga.startsWith(QLatin1String("argomento ")))
                livello = riga.mid(10).toInt();
            if (riga.startsWith(QLatin1String("estrazioni ")))
                voci = riga.mid(11).split(QLatin1String("; "));
            if (riga.startsWith(QLatin1String("accesso "))) {
                b.reset();
                b = std::make_unique<Banco>(riga.mid(8), livello);
                const int tipo = schermo == QLatin1String("simboli") ? 2 : 1;
                b->caso.valori = estrazioni(voci, classe(livello), 1, tipo, 9);
                b->schermo(schermo);
                livello = 3;
                voci.clear();
            }
            if (!b || !riga.front().isDigit()) {
                viste << riga;
                continue;
            }
            const QString passi = riga.section(QLatin1String(" => "), 0, 0);
            const QStringList attesa = riga.section(QLatin1String(" => "), 1).split(QLatin1String(" | "));
            b->u.esegui(QStringLiteral("@") + passi);
            viste << passi + QStringLiteral(" => ") + b->visto(attesa.mid(1).filter(QStringLiteral("=")));
        }
        CONFRONTA_RIGHE(viste, attese);
    }

private slots:
    // The thick frame stands out 3:1 from the key and from the page, for the
    // program's own key colours on every page colour a teacher can pick: in
    // one colour where one exists, else in a band of each.
    void evidenziazione_data()
    {
        QTest::addColumn<QColor>("tasto");
        QTest::addColumn<QColor>("pagina");
        for (const Rgb &p : ColoriOpzioni::sfondo) {
            const QColor pagina(p.r, p.g, p.b);
            QTest::addRow("start key on %s", qPrintable(pagina.name())) << QColor(255, 192, 128) << pagina;
            for (const Rgb &t : ColoriOpzioni::scansioneScuro)
                QTest::addRow("%s on %s", qPrintable(QColor(t.r, t.g, t.b).name()), qPrintable(pagina.name()))
                    << QColor(t.r, t.g, t.b) << pagina;
        }
    }
    void evidenziazione()
    {
        QFETCH(QColor, tasto);
        QFETCH(QColor, pagina);
        const ColoriCornice c = ColoreCornice(tasto, pagina);
        QVERIFY2(Contrasto(c.dentro, tasto) >= 3.0 && Contrasto(c.fuori, pagina) >= 3.0,
                 qPrintable(c.dentro.name() + ' ' + c.fuori.name()));
    }
    void contrasto()
    {
        QCOMPARE(Contrasto(Qt::black, Qt::white), 21.0);
        QCOMPARE(qRound(Contrasto(QColor(0x77, 0x77, 0x77), Qt::white) * 100), 448);
        QCOMPARE(Contrasto(Qt::red, Qt::red), 1.0);
        // The frame goes round the focused key, outside it, and follows the focus.
        Banco b(QStringLiteral("evidenziazione=spessa"));
        b.schermo(QStringLiteral("inizio"));
        QWidget *k = b.w->findChild<QWidget *>("Option1(0)");
        QVERIFY(b.evidenziatore.cornice());
        QCOMPARE(b.evidenziatore.cornice()->geometry(),
                 QRect(k->mapTo(b.w.get(), QPoint()), k->size()).adjusted(-8, -8, 8, 8));
        b.u.esegui(QStringLiteral("Space"));
        QCOMPARE(b.evidenziatore.cornice()->geometry().topLeft(),
                 b.w->findChild<QWidget *>("Option1(1)")->mapTo(b.w.get(), QPoint(-8, -8)));
        QWidget *k1 = b.w->findChild<QWidget *>("Option1(1)");
        k1->move(k1->pos() + QPoint(5, 3));
        QCOMPARE(b.evidenziatore.cornice()->geometry().topLeft(), k1->mapTo(b.w.get(), QPoint(-8, -8)));
        b.stato.accesso.spessa = false;
        b.u.esegui(QStringLiteral("Space"));
        QVERIFY(!b.evidenziatore.cornice());
    }

    // Twenty items answered right with one key and nothing else: the start
    // screen's three rows, then every digit, "Verifica" and "Avanti".
    void ventiConUnTasto()
    {
        Banco b(QStringLiteral("scansione=automatica"));
        QRandomGenerator g(7);
        b.caso.generatore = &g;
        b.schermo(QStringLiteral("inizio"));
        const auto aspettaEPremi = [&](const QString &nome) {
            for (int passi = 0; passi < 40 && Utente::fuoco() != nome; ++passi)
                b.fino(b.svegliaScansione.scade - b.zero);
            QCOMPARE(Utente::fuoco(), nome);
            b.u.esegui(QStringLiteral("Space"));
        };
        // A keypad key: its group first, then the key.
        const auto premiSu = [&](const QString &nome) {
            QWidget *k = b.gestore.schermo(Schermo::Operativo) ? b.gestore.schermo(Schermo::Operativo)->findChild<QWidget *>(nome) : nullptr;
            const RigaOpzioni *r = RigaOpzioni::di(k);
            if (r && r->gruppoDi(k) >= 0 && QApplication::focusWidget() != k)
                aspettaEPremi(r->gruppo(r->gruppoDi(k))->objectName());
            aspettaEPremi(nome);
        };
        premiSu("Option1(0)");
        premiSu("Option2(0)");
        premiSu("Option3(0)");
        auto *e = qobject_cast<frmOperativo *>(b.gestore.schermo(Schermo::Operativo));
        QVERIFY(e && QTest::qWaitForWindowActive(e));
        for (int item = 1; item <= 20; ++item) {
            for (QChar c : b.stato.item.TestoNumero.remove(u'.'))
                premiSu(QStringLiteral("Option2(%1)").arg(c == u',' ? 10 : c.digitValue()));
            premiSu("Option2(12)");
            QCOMPARE(e->findChild<QLabel *>("LblEsito")->text(), "Esatto");
            // The screen brings "Avanti" forward: its group lights up, and
            // going into it starts from "Avanti" itself.
            if (item < 20) {
                aspettaEPremi("Option2.gruppo(2)");
                QCOMPARE(Utente::fuoco(), "Option2(13)");
                b.u.esegui(QStringLiteral("Space"));
            }
        }
        QCOMPARE(e->findChild<QLabel *>("lblRisEsatte")->text(), "20");
        QCOMPARE(e->findChild<QLabel *>("lblRisErrate")->text(), ""); // never written: no wrong answer
        QCOMPARE(Utente::fuoco(), "optAvviso(0)");
    }
};

QTEST_MAIN(TstAccesso)
#include "tst_accesso.moc"
