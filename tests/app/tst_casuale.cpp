// Random use of every screen: keys, characters and mouse presses from a fixed
// seed, as a pupil leaning on the keyboard or a switch gone wild would send
// them, with the program's invariants checked after every one. A failure
// names the seed, the screen and the event; CASUALE_SEME=<seed> tst_casuale casuale:<screen>
// replays it, CASUALE_EVENTI sets the events per screen.
#include "app/gestoreschermi.h"
#include "exercise/frmoperativo.h"
#include "fakes/cartella.h"
#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "settings/frminizio.h"
#include "settings/stato.h"
#include "ui/rigaopzioni.h"

#include <QtTest>
#include <QtWidgets>

#include <algorithm>
#include <array>
#include <map>
#include <memory>
#include <vector>

Q_DECLARE_METATYPE(Schermo)

namespace {


// One stream for the events, another for the program's draws, so that the
// program's draws do not shift the events.
class Caso final : public IRandom
{
public:
    explicit Caso(quint64 seme = 0) : g_(quint32(seme ^ (seme >> 32))) {}
    int sotto(int n) { return n > 0 ? int(g_.bounded(quint32(n))) : 0; }
    bool su(int percento) { return sotto(100) < percento; }
    void Randomize(double) override {}
    double Rnd() override { return g_.generateDouble(); }

private:
    QRandomGenerator g_;
};

// Range and overflow errors end a handler by the program's own rules; a
// handler stopped by anything else is a fault.
int fermati = 0;
QStringList inattesi;
QtMessageHandler precedente = nullptr;

void filtro(QtMsgType tipo, const QMessageLogContext &contesto, const QString &testo)
{
    if (testo.startsWith(QLatin1String("handler stopped: "))) {
        if (testo.contains(QLatin1String("out of range")) || testo.contains(QLatin1String("16-bit overflow")))
            ++fermati;
        else
            inattesi.append(testo);
    } else if (!testo.startsWith(QLatin1String("This plugin does not support"))) { // offscreen, on every raise
        precedente(tipo, contesto, testo);
    }
}

// The about box, a modal box with one key, is driven whenever the start
// screen's menu opens it: eight events, then it is sent away.
const std::array<Schermo, 6> kSchermi{Schermo::Inizio,          Schermo::Operativo, Schermo::Opzioni,
                                      Schermo::StampaEsercizio, Schermo::Schede,    Schermo::SceltaStampante};
const char *const kNomi[] = {"Inizio", "Operativo", "Opzioni", "StampaEsercizio", "Schede", "SceltaStampante", "Autore"};

// The program as main builds it, on the test doubles, in a folder of its own.
struct Mondo {
    CartellaDiProva cartella;
    FakeClock orologio;
    Caso caso;
    FakeMessageBox messaggi;
    FakeSound suono;
    FakePrinter stampante;
    Stato stato;
    GestoreSchermi schermi{stato};

    explicit Mondo(quint64 seme) : caso(~seme)
    {
        stato.servizi = {&orologio, &caso, &messaggi, &suono, &stampante, &schermi};
    }
    // Screens unloaded on the way out go before the state they work on.
    ~Mondo() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

QString descrivi(const QWidget *w)
{
    return !w ? QStringLiteral("(none)")
              : w->window()->objectName() + u'/' + (w->objectName().isEmpty() ? w->metaObject()->className() : w->objectName());
}

} // namespace

class TestCasuale : public QObject
{
    Q_OBJECT

    quint64 seme_ = 20240917;
    int eventi_ = 20000;

    std::unique_ptr<Mondo> m_;
    Schermo bersaglio_ = Schermo::Inizio;
    Caso caso_;
    int inviati_ = 0, modali_ = 0, scatole_ = 0; // scatole_: modal boxes met
    QString evento_, errore_;
    QTimer pompa_;
    bool finito_ = false; // the manager said no screen is left on view

    // Screens seen loaded; those unloaded must be gone once deferred deletes run.
    std::map<Schermo, QPointer<QWidget>> visti_;
    std::vector<QPointer<QWidget>> usciti_;

    // The exercise screen loaded now, and whether it showed an item when it
    // loaded (digit keys on the start screen move on without choosing a kind).
    QPointer<frmOperativo> esercizio_;
    bool mostrato_ = false;

    GestoreSchermi &g() { return m_->schermi; }
    QWidget *finestra() const { return m_->schermi.schermo(bersaglio_); }

    // The screen under test, reached as a user reaches it: the start screen
    // first (it loads the settings), a kind and an order chosen, then the screen.
    void apri()
    {
        auto *inizio = qobject_cast<FrmInizio *>(g().schermo(Schermo::Inizio));
        if (!inizio || !inizio->isVisible()) {
            g().apri(Schermo::Inizio);
            inizio = qobject_cast<FrmInizio *>(g().schermo(Schermo::Inizio));
            QVERIFY(QTest::qWaitForWindowActive(inizio));
            // Run the 5 ms curtains out now, so a run does not depend on the machine's speed.
            for (int i = 0; i < 1000 && inizio->tendine().attiva(); ++i)
                inizio->tickTendine();
        }
        // A kind and an order, then "Vai" on an active start screen, which has
        // just set the item count to 0.
        for (int riga = 1; riga <= 2 && bersaglio_ != Schermo::Inizio; ++riga)
            inizio->riga(riga)->scegli(caso_.sotto(3));
        if (bersaglio_ == Schermo::Operativo || (bersaglio_ == Schermo::StampaEsercizio && !g().caricato(Schermo::Operativo))) {
            inizio->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(inizio));
            inizio->riga(3)->scegli(0);
        }
        if (bersaglio_ != Schermo::Inizio && bersaglio_ != Schermo::Operativo)
            g().apri(bersaglio_);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        evento_ = QStringLiteral("opening the screen");
        if (QWidget *w = finestra())
            QVERIFY2(QTest::qWaitForWindowExposed(w), kNomi[int(bersaglio_)]);
        verifica(false);
    }

    // A tap, a key held down (autorepeated) or a lone release; mostly the
    // keys the screens answer to.
    QString tasto(QWindow *w)
    {
        static const int altri[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down,
                                    Qt::Key_Escape, Qt::Key_Comma, Qt::Key_Period, Qt::Key_Minus, Qt::Key_Backspace,
                                    Qt::Key_Delete, Qt::Key_Home, Qt::Key_End, Qt::Key_F1, Qt::Key_F4, 0 /* no key */};
        static const QString caratteri = QStringLiteral(" 0123456789,.-+aeimnsvAEIMNSV\u00e8\u20ac");
        int key = 0;
        QString testo;
        if (const int r = caso_.sotto(100); r < 14)
            key = Qt::Key_Space;
        else if (r < 26)
            key = caso_.su(50) ? Qt::Key_Return : Qt::Key_Enter;
        else if (r < 46)
            key = Qt::Key_0 + caso_.sotto(10);
        else if (r < 66)
            key = caso_.su(50) ? int("ACEIMNSV"[caso_.sotto(8)]) : Qt::Key_A + caso_.sotto(26);
        else if ((key = altri[caso_.sotto(int(std::size(altri)))]) == 0)
            testo = caratteri.at(caso_.sotto(int(caratteri.size())));
        Qt::KeyboardModifiers mod;
        mod.setFlag(Qt::KeypadModifier, key >= Qt::Key_0 && key <= Qt::Key_9 && caso_.su(25));
        mod.setFlag(Qt::ShiftModifier, key == Qt::Key_Backtab || caso_.su(4));
        mod.setFlag(Qt::ControlModifier, caso_.su(4));
        mod.setFlag(Qt::AltModifier, caso_.su(2));
        if (key >= Qt::Key_Space && key <= Qt::Key_Z && !(mod & (Qt::ControlModifier | Qt::AltModifier)))
            testo = (mod & Qt::ShiftModifier) ? QChar(key) : QChar(key).toLower();
        else if (key == Qt::Key_Return || key == Qt::Key_Enter)
            testo = QStringLiteral("\r");

        const int modo = caso_.sotto(100); // < 70 tap, < 88 press, else release
        const bool ripeti = modo >= 70 && caso_.su(40);
        const QPointer<QWindow> p(w);
        if (modo < 88)
            qt_handleKeyEvent(p, QEvent::KeyPress, key, mod, testo, ripeti, 1);
        QCoreApplication::processEvents();
        if (p && (modo < 70 || modo >= 88))
            qt_handleKeyEvent(p, QEvent::KeyRelease, key, mod, testo, ripeti, 1);
        return QStringLiteral("key 0x%1 \"%2\" mods 0x%3 mode %4%5 to %6")
            .arg(QString::number(key, 16), testo, QString::number(mod.toInt(), 16), QString::number(modo),
                 ripeti ? QStringLiteral(" autorepeat") : QString(), descrivi(QApplication::focusWidget()));
    }

    // Anywhere on the window, or on a control; half of those aimed at an
    // enabled key, and seldom at the way out, so exercises get to their end.
    QString mouse(QWidget *f, QWindow *w, bool suFiglio)
    {
        QPoint punto(caso_.sotto(w->width()), caso_.sotto(w->height()));
        QString dove = QStringLiteral("window");
        if (suFiglio) {
            const bool mira = caso_.su(50), esce = caso_.su(5);
            QList<QWidget *> figli;
            for (QWidget *c : f->findChildren<QWidget *>()) {
                const auto *b = qobject_cast<QAbstractButton *>(c);
                const QString t = b ? b->text().remove(u' ').toUpper() : QString();
                const bool uscita = t == QLatin1String("ESCI") || t == QLatin1String("CHIUDI");
                if (c->isVisible() && !c->isWindow() && (!mira || (b && b->isEnabled() && (esce || !uscita))))
                    figli.append(c);
            }
            if (!figli.isEmpty()) {
                QWidget *c = figli.at(caso_.sotto(int(figli.size())));
                const QPoint q = c->mapTo(f, QPoint(caso_.sotto(c->width()), caso_.sotto(c->height())));
                punto = QPoint(std::clamp(q.x(), 0, w->width() - 1), std::clamp(q.y(), 0, w->height() - 1));
                dove = descrivi(c);
            }
        }
        const int b = caso_.sotto(100), modo = caso_.sotto(100);
        const Qt::MouseButton bottone = b < 85 ? Qt::LeftButton : b < 95 ? Qt::RightButton : Qt::MiddleButton;
        const QTest::MouseAction azione = modo < 70 ? QTest::MouseClick : modo < 85 ? QTest::MousePress
                                          : modo < 95 ? QTest::MouseRelease : QTest::MouseDClick;
        QTest::mouseEvent(azione, w, bottone, {}, punto);
        return QStringLiteral("mouse action %1 button %2 at %3,%4 on %5")
            .arg(int(azione)).arg(int(bottone)).arg(punto.x()).arg(punto.y()).arg(dove);
    }

    // A pupil who knows the answer clicks its keys, "Verifica" and "Avanti".
    QString risponde(frmOperativo &op, QWindow *w)
    {
        const QString attesa = op.rispostaAttesa().trimmed();
        const bool numero = op.tastierino()->bottone(0)->isVisible();
        RigaOpzioni *pad = numero ? op.tastierino() : op.simboli();
        QList<QPointer<QPushButton>> tasti;
        for (QChar c : attesa)
            if (numero && (c.isDigit() || c == u','))
                tasti.append(pad->bottone(c == u',' ? 10 : c.digitValue()));
        for (int i = 0; !numero && i < 4; ++i)
            if (pad->bottone(i)->text().trimmed() == attesa)
                tasti.append(pad->bottone(i));
        tasti << pad->bottone(numero ? 12 : 4) << pad->bottone(numero ? 13 : 5);
        for (const QPointer<QPushButton> &b : tasti)
            if (b && b->isVisible() && b->isEnabled())
                QTest::mouseClick(w, Qt::LeftButton, {}, b->mapTo(b->window(), b->rect().center()));
        return QStringLiteral("answer \"%1\" clicked").arg(attesa);
    }

    // One random event to the window of `f`, then every invariant.
    void passo(QWidget *f, bool inModale)
    {
        QWindow *w = f->windowHandle();
        const int r = caso_.sotto(100);
        if (auto *op = qobject_cast<frmOperativo *>(f); op && r < 5)
            evento_ = risponde(*op, w);
        else
            evento_ = r < 65 ? tasto(w) : mouse(f, w, r >= 85);
        m_->orologio.adesso += caso_.sotto(1500) / 1000.0;
        QCoreApplication::processEvents();
        // Inside a modal box the screens below are still in their handlers.
        if (!inModale)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        verifica(inModale);
    }

    // The about box runs its own event loop; this timer drives it from inside.
    void pompa()
    {
        QWidget *modale = QApplication::activeModalWidget();
        if (!modale) {
            modali_ = 0;
            return;
        }
        if (!errore_.isEmpty() || modali_ >= 8) { // eight events, then it is sent away
            modale->close();
            return;
        }
        if (modali_++ == 0)
            ++scatole_;
        passo(modale, true);
    }

    void verifica(bool inModale)
    {
        if (!errore_.isEmpty())
            return;
        if (const QString e = controlla(inModale); !e.isEmpty())
            errore_ = QStringLiteral("seed %1, screen %2, event %3 (%4): %5")
                          .arg(QString::number(seme_), QLatin1String(kNomi[int(bersaglio_)]),
                               QString::number(inviati_), evento_, e);
    }

    QString controlla(bool inModale)
    {
        const Stato &s = m_->stato;
        if (!inattesi.isEmpty())
            return QStringLiteral("a handler stopped on an error that is no range error: ") + inattesi.join(u'|');
        if (s.record.NumeroEsercizio < 0 || s.fogli.NumeroOperazioni < 0 || s.fogli.StampaRidotta < 0)
            return QStringLiteral("negative counter: %1 %2 %3")
                .arg(s.record.NumeroEsercizio).arg(s.fogli.NumeroOperazioni).arg(s.fogli.StampaRidotta);
        for (const QString &riga : s.fogli.RigheRiserva)
            if (!riga.isEmpty())
                return QStringLiteral("a line of RigheRiserva was assigned: ") + riga;

        bool qualcuno = false; // a screen on view
        for (Schermo t : kSchermi) {
            QWidget *w = g().schermo(t);
            if (visti_[t] && visti_[t] != w)
                usciti_.push_back(visti_[t]);
            visti_[t] = w;
            if (!w)
                continue;
            if (!w->isVisible())
                return QStringLiteral("%1 is loaded but not on view").arg(kNomi[int(t)]);
            qualcuno = true;
            for (const RigaOpzioni *riga : w->findChildren<RigaOpzioni *>())
                for (int i = 0; i < riga->count(); ++i)
                    if (const QPushButton *b = riga->bottone(i); b->isDown() || b->isChecked())
                        return QStringLiteral("key %1 left drawn as pressed").arg(descrivi(b));
        }
        // The program ends exactly when no screen is left on view.
        if (qualcuno == finito_)
            return qualcuno ? QStringLiteral("the program was ended with a screen on view")
                            : QStringLiteral("no screen on view, and the program goes on");
        if (!inModale) {
            for (const QPointer<QWidget> &p : usciti_)
                if (p)
                    return QStringLiteral("%1 was unloaded but still exists").arg(descrivi(p));
            usciti_.clear();
        }
        auto *op = qobject_cast<frmOperativo *>(g().schermo(Schermo::Operativo));
        return op ? controllaEsercizio(*op) : QString();
    }

    QString controllaEsercizio(frmOperativo &op)
    {
        if (&op != esercizio_) {
            esercizio_ = &op;
            mostrato_ = m_->stato.settings.TipoEsercizio >= 1 && m_->stato.settings.TipoEsercizio <= 3;
        }
        if (op.risposteEsatte() < 0 || op.risposteErrate() < 0 || op.tentativi() < 0 || op.tentativi() > 2 ||
            op.tempoTotale() < 0 || op.tempoTotale() > 999)
            return QStringLiteral("exercise counters out of range: %1 %2 %3 %4")
                .arg(op.risposteEsatte()).arg(op.risposteErrate()).arg(op.tentativi()).arg(op.tempoTotale());

        // The two item displays share one spot, the five key frames another:
        // one of each in front and enabled, the others hidden behind it.
        static const QStringList gruppi[] = {
            {QStringLiteral("fraNumero"), QStringLiteral("fraSimbolo")},
            {QStringLiteral("fraAiuto"), QStringLiteral("FraTastierino"), QStringLiteral("fraAvviso"),
             QStringLiteral("fraIntervento"), QStringLiteral("FraSimboli")}};
        for (const QStringList &gruppo : gruppi) {
            QStringList davanti;
            for (const QString &riquadro : gruppo)
                if (const QWidget *w = op.findChild<QWidget *>(riquadro); w && !w->isHidden())
                    davanti.append(w->isEnabled() ? riquadro : riquadro + QStringLiteral(" (disabled)"));
            if (mostrato_ && (davanti.size() != 1 || davanti.at(0).endsWith(u')')))
                return QStringLiteral("frames in front: ") + davanti.join(u',');
        }
        return {};
    }

private slots:
    void initTestCase()
    {
        bool ok = false;
        if (const int n = qEnvironmentVariableIntValue("CASUALE_EVENTI", &ok); ok && n > 0)
            eventi_ = n;
        if (const quint64 s = qgetenv("CASUALE_SEME").toULongLong(&ok); ok)
            seme_ = s;
        qInfo("%d random events per screen, seed %llu", eventi_, static_cast<unsigned long long>(seme_));
        precedente = qInstallMessageHandler(filtro);
        pompa_.setInterval(0);
        connect(&pompa_, &QTimer::timeout, this, &TestCasuale::pompa);
    }
    void cleanupTestCase() { qInstallMessageHandler(precedente); }

    void casuale_data()
    {
        QTest::addColumn<Schermo>("schermo");
        for (Schermo s : kSchermi)
            QTest::newRow(kNomi[int(s)]) << s;
    }
    void casuale()
    {
        QFETCH(Schermo, schermo);
        // Each screen draws from its own stream, so that a row replays alone.
        const quint64 seme = seme_ * 0x100000001b3ULL + quint64(schermo);
        m_ = std::make_unique<Mondo>(seme);
        QVERIFY(m_->cartella.valida());
        connect(&m_->schermi, &GestoreSchermi::tuttiChiusi, this, [this] { finito_ = true; });
        bersaglio_ = schermo;
        caso_ = Caso(seme);
        inviati_ = modali_ = scatole_ = fermati = 0;
        errore_.clear();
        inattesi.clear();
        visti_.clear();
        usciti_.clear();
        esercizio_ = nullptr;
        pompa_.start();
        const auto fine = qScopeGuard([this] {
            pompa_.stop();
            m_.reset();
        });

        apri();
        while (!QTest::currentTestFailed() && inviati_ < eventi_ && errore_.isEmpty()) {
            if (QWidget *f = finestra(); !f || !f->isVisible()) {
                finito_ = false;
                apri();
                QVERIFY2(finestra() && finestra()->isVisible(), kNomi[int(schermo)]);
            }
            QWidget *f = finestra();
            if (!f->isActiveWindow()) {
                f->activateWindow();
                QCoreApplication::processEvents();
            }
            ++inviati_;
            passo(f, false);
        }
        QVERIFY2(errore_.isEmpty(), qPrintable(errore_));
        qInfo("%s: %d events, %d handlers stopped by a range error, %d modal boxes", kNomi[int(schermo)], inviati_,
              fermati, scatole_);
    }
};

QTEST_MAIN(TestCasuale)
#include "tst_casuale.moc"
