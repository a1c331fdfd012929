// Random use of every screen: tens of thousands of keys, characters and mouse
// presses from a fixed seed, as a pupil leaning on the keyboard or a switch
// gone wild would send them, with the program's invariants checked after
// every one. A failure names the seed, the screen and the event; it replays
// with CASUALE_SEME=<seed> tst_casuale casuale:<screen>.
// CASUALE_EVENTI sets the events per screen (default 20000).
#include "app/gestoreschermi.h"
#include "exercise/frmoperativo.h"
#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "settings/frminizio.h"
#include "settings/stato.h"
#include "ui/rigaopzioni.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <QtTest>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <memory>
#include <vector>

Q_DECLARE_METATYPE(Schermo)

namespace {

constexpr quint64 kSemePredefinito = 20240917;
constexpr int kEventiPredefiniti = 20000;
// A modal box that comes up while another screen is under test gets a few
// events of its own, then is sent away so that the screen can go on.
constexpr int kEventiModale = 8;

// splitmix64: small, and the same sequence everywhere. The program draws from
// one, the events from another, so that the program's draws do not shift the
// events.
class Caso final : public IRandom
{
public:
    explicit Caso(quint64 seme = 0) : stato_(seme) {}
    quint64 prossimo()
    {
        quint64 z = (stato_ += 0x9e3779b97f4a7c15ULL);
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
        return z ^ (z >> 31);
    }
    int sotto(int n) { return n > 0 ? int(prossimo() % quint64(n)) : 0; }
    bool su(int percento) { return sotto(100) < percento; }
    void Randomize(double seme) override
    {
        quint64 bit = 0;
        std::memcpy(&bit, &seme, sizeof bit);
        stato_ ^= bit * 0xbf58476d1ce4e5b9ULL;
    }
    double Rnd() override { return double(prossimo() >> 11) * 0x1.0p-53; }

private:
    quint64 stato_;
};

// Range and overflow errors end a handler by the program's own rules (see
// confine()); a handler stopped by anything else is a fault.
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
        return;
    }
    // The offscreen platform says so on every raise and popup.
    if (!testo.startsWith(QLatin1String("This plugin does not support")))
        precedente(tipo, contesto, testo);
}

const std::array<Schermo, 7> kSchermi{Schermo::Inizio,          Schermo::Operativo, Schermo::Opzioni,
                                      Schermo::StampaEsercizio, Schermo::Schede,    Schermo::SceltaStampante,
                                      Schermo::Autore};

const char *nome(Schermo s)
{
    static const char *const nomi[] = {"Inizio", "Operativo",       "Opzioni", "StampaEsercizio",
                                       "Schede", "SceltaStampante", "Autore"};
    return nomi[int(s)];
}

// The program as main builds it, on the test doubles, in a folder of its own.
struct Mondo {
    QTemporaryDir dir;
    QString prima = QDir::currentPath();
    FakeClock orologio;
    Caso caso;
    FakeMessageBox messaggi;
    FakeSound suono;
    FakePrinter stampante;
    Stato stato;
    GestoreSchermi schermi{stato};

    explicit Mondo(quint64 seme) : caso(seme ^ 0x5eed5eed5eed5eedULL)
    {
        QDir::setCurrent(dir.path());
        stato.servizi = {&orologio, &caso, &messaggi, &suono, &stampante, &schermi};
    }
    ~Mondo()
    {
        // Screens unloaded on the way out go before the state they work on.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QDir::setCurrent(prima);
    }
};

QString descrivi(const QWidget *w)
{
    if (!w)
        return QStringLiteral("(none)");
    const QString n = w->objectName();
    return w->window()->objectName() + u'/' + (n.isEmpty() ? QLatin1String(w->metaObject()->className()) : n);
}

} // namespace

class TestCasuale : public QObject
{
    Q_OBJECT

    quint64 seme_ = kSemePredefinito;
    int eventi_ = kEventiPredefiniti;

    // The row under way.
    std::unique_ptr<Mondo> m_;
    Schermo bersaglio_ = Schermo::Inizio;
    Caso caso_;
    int inviati_ = 0, modali_ = 0;
    QString evento_, errore_;
    QTimer pompa_;

    // Screens seen loaded; those unloaded must be gone once the deferred
    // deletes have run.
    std::map<Schermo, QPointer<QWidget>> visti_;
    std::vector<QPointer<QWidget>> usciti_;

    // The exercise screen loaded now, and what is known of its record.
    QPointer<frmOperativo> esercizio_;
    bool mostrato_ = false;  // it showed an item when it loaded
    bool esclusivo_ = false; // it alone has written the record since it loaded
    int massimo_ = 0;        // the highest item it reached
    int controlliRighe_ = 0;

    GestoreSchermi &g() { return m_->schermi; }
    QWidget *finestra() const { return m_->schermi.schermo(bersaglio_); }

    void scegli(FrmInizio *inizio)
    {
        inizio->riga(1)->scegli(caso_.sotto(3));
        inizio->riga(2)->scegli(caso_.sotto(3));
    }

    // "Vai" on an active start screen, which has just set the item count
    // back to 0.
    void vai(FrmInizio *inizio)
    {
        inizio->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(inizio));
        inizio->riga(3)->scegli(0);
    }

    // Opens the screen under test the way a user reaches it: the start screen
    // first (it loads the settings), a kind and an order chosen on it, then
    // the screen. The exercise screen gets a new kind and order every time.
    void apri()
    {
        auto *inizio = qobject_cast<FrmInizio *>(g().schermo(Schermo::Inizio));
        if (!inizio || !inizio->isVisible()) {
            g().apri(Schermo::Inizio);
            inizio = qobject_cast<FrmInizio *>(g().schermo(Schermo::Inizio));
            QVERIFY(QTest::qWaitForWindowActive(inizio));
            // The curtains open on a 5 ms timer: run them out now, so that a
            // run does not depend on the speed of the machine.
            for (int i = 0; i < 1000 && inizio->tendine().attiva(); ++i)
                inizio->tickTendine();
            if (bersaglio_ != Schermo::Inizio)
                scegli(inizio);
        }
        if (bersaglio_ == Schermo::Operativo) {
            scegli(inizio);
            vai(inizio);
        } else if (bersaglio_ == Schermo::StampaEsercizio) {
            if (!g().caricato(Schermo::Operativo))
                vai(inizio);
            g().apri(bersaglio_);
        } else if (bersaglio_ != Schermo::Inizio && bersaglio_ != Schermo::Autore) {
            g().apri(bersaglio_); // the about box is opened, modal, by the loop
        }
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (QWidget *w = finestra(); w && bersaglio_ != Schermo::Autore)
            QVERIFY2(QTest::qWaitForWindowExposed(w), nome(bersaglio_));
        evento_ = QStringLiteral("opening %1").arg(nome(bersaglio_));
        verifica(false);
    }

    // ---- events ----------------------------------------------------------

    QString tasto(QWindow *w)
    {
        static const int altri[] = {
            Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Left,      Qt::Key_Right,  Qt::Key_Up,     Qt::Key_Down,
            Qt::Key_Escape, Qt::Key_Comma,   Qt::Key_Period,    Qt::Key_Minus,  Qt::Key_Plus,   Qt::Key_Backspace,
            Qt::Key_Delete, Qt::Key_Insert,  Qt::Key_Home,      Qt::Key_End,    Qt::Key_PageUp, Qt::Key_PageDown,
            Qt::Key_F1,     Qt::Key_F2,      Qt::Key_F3,        Qt::Key_F4,     Qt::Key_F5,     Qt::Key_F12,
            0 /* a character with no key */};
        static const QString caratteri = QStringLiteral(" 0123456789,.;-+aeimnsvAEIMNSV\u00e8\u00e0\u20ac");
        static const char usate[] = "ACEIMNSV"; // letters the screens answer to
        int key = 0;
        QString testo;
        Qt::KeyboardModifiers mod;
        if (const int r = caso_.sotto(100); r < 14)
            key = Qt::Key_Space;
        else if (r < 26)
            key = caso_.su(50) ? Qt::Key_Return : Qt::Key_Enter;
        else if (r < 46)
            key = Qt::Key_0 + caso_.sotto(10);
        else if (r < 66)
            key = caso_.su(50) ? int(usate[caso_.sotto(8)]) : Qt::Key_A + caso_.sotto(26);
        else if ((key = altri[caso_.sotto(int(std::size(altri)))]) == 0)
            testo = caratteri.at(caso_.sotto(int(caratteri.size())));
        if (key >= Qt::Key_0 && key <= Qt::Key_9 && caso_.su(25))
            mod |= Qt::KeypadModifier;
        mod.setFlag(Qt::ShiftModifier, key == Qt::Key_Backtab || caso_.su(4));
        mod.setFlag(Qt::ControlModifier, caso_.su(4));
        mod.setFlag(Qt::AltModifier, caso_.su(2));
        if (key != 0 && !(mod & (Qt::ControlModifier | Qt::AltModifier))) {
            static const std::map<int, const char *> controllo{
                {Qt::Key_Return, "\r"}, {Qt::Key_Enter, "\r"}, {Qt::Key_Tab, "\t"}, {Qt::Key_Backspace, "\b"}};
            if (key >= Qt::Key_A && key <= Qt::Key_Z)
                testo = (mod & Qt::ShiftModifier) ? QChar(key) : QChar(key).toLower();
            else if (key >= Qt::Key_Space && key <= Qt::Key_9)
                testo = QChar(key);
            else
                testo = QLatin1String(controllo.count(key) ? controllo.at(key) : "");
        }

        // A tap, a press held down (the keyboard repeating it) or a lone release.
        const int modo = caso_.sotto(100);
        const bool ripeti = modo >= 70 && caso_.su(40);
        const QString descrizione =
            QStringLiteral("key %1 0x%2 \"%3\" mods 0x%4%5 to %6")
                .arg(QLatin1String(modo < 70 ? "tap" : modo < 88 ? "press" : "release"), QString::number(key, 16),
                     QLatin1String(testo.toUtf8().toPercentEncoding(" ,.;-+")), QString::number(mod.toInt(), 16),
                     ripeti ? QStringLiteral(" autorepeat") : QString(), descrivi(QApplication::focusWidget()));
        const QPointer<QWindow> p(w);
        if (modo < 88)
            qt_handleKeyEvent(p, QEvent::KeyPress, key, mod, testo, ripeti, 1);
        QCoreApplication::processEvents();
        if (p && (modo < 70 || modo >= 88))
            qt_handleKeyEvent(p, QEvent::KeyRelease, key, mod, testo, ripeti, 1);
        return descrizione;
    }

    QString mouse(QWidget *f, QWindow *w, bool suFiglio)
    {
        QPoint punto(caso_.sotto(w->width()), caso_.sotto(w->height()));
        QString dove = QStringLiteral("window");
        if (suFiglio) {
            // Half of the time a key that can be pressed, as a user aims at
            // one. Users seldom aim at the way out: that lets an exercise get
            // through its twenty items now and then.
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
        const int b = caso_.sotto(100);
        const Qt::MouseButton bottone = b < 85 ? Qt::LeftButton : b < 95 ? Qt::RightButton : Qt::MiddleButton;
        const int modo = caso_.sotto(100);
        const QTest::MouseAction azione = modo < 70   ? QTest::MouseClick
                                          : modo < 85 ? QTest::MousePress
                                          : modo < 95 ? QTest::MouseRelease
                                                      : QTest::MouseDClick;
        QTest::mouseEvent(azione, w, bottone, {}, punto);
        static const char *const azioni[] = {"press", "release", "click", "double click"};
        return QStringLiteral("mouse %1 button %2 at %3,%4 on %5")
            .arg(QLatin1String(azioni[azione]), QString::number(bottone), QString::number(punto.x()),
                 QString::number(punto.y()), dove);
    }

    // A pupil who knows the answer clicks its keys, "Verifica" and "Avanti".
    // Without one now and then a random run hardly ever gets through the
    // twenty items of an exercise.
    QString risponde(frmOperativo &op, QWindow *w)
    {
        const QString attesa = op.rispostaAttesa().trimmed();
        const bool numero = op.tastierino()->bottone(0)->isVisible();
        RigaOpzioni *pad = numero ? op.tastierino() : op.simboli();
        QList<QPointer<QPushButton>> tasti;
        if (numero) {
            for (QChar c : attesa)
                if (c.isDigit() || c == u',')
                    tasti.append(pad->bottone(c == u',' ? 10 : c.digitValue()));
        } else {
            for (int i = 0; i < 4; ++i)
                if (pad->bottone(i)->text().trimmed() == attesa)
                    tasti.append(pad->bottone(i));
        }
        tasti << pad->bottone(numero ? 12 : 4) << pad->bottone(numero ? 13 : 5);
        for (const QPointer<QPushButton> &b : tasti)
            if (b && b->isVisible() && b->isEnabled())
                QTest::mouseClick(w, Qt::LeftButton, {}, b->mapTo(b->window(), b->rect().center()));
        return QStringLiteral("answer \"%1\" clicked on the %2 pad")
            .arg(attesa, numero ? QStringLiteral("number") : QStringLiteral("symbol"));
    }

    // One random event to the window `f`, then every invariant.
    void passo(QWidget *f, bool inModale)
    {
        QWindow *w = f->windowHandle();
        if (!w) {
            errore_ = QStringLiteral("%1 is on view with no window").arg(descrivi(f));
            return;
        }
        const int r = caso_.sotto(100);
        if (auto *op = qobject_cast<frmOperativo *>(f); op && r < 5)
            evento_ = risponde(*op, w);
        else
            evento_ = r < 65 ? tasto(w) : mouse(f, w, r >= 85);
        m_->orologio.adesso += caso_.sotto(1500) / 1000.0;
        QCoreApplication::processEvents();
        // Inside a modal box the screens below are still in their handlers:
        // nothing may be deleted under them.
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
        const bool contato = bersaglio_ == Schermo::Autore;
        if (!errore_.isEmpty() || (contato ? inviati_ >= eventi_ : modali_ >= kEventiModale)) {
            modale->close(); // a dialog rejects itself
            return;
        }
        ++modali_;
        inviati_ += contato;
        passo(modale, true);
    }

    // ---- invariants ------------------------------------------------------

    void verifica(bool inModale)
    {
        if (!errore_.isEmpty())
            return;
        if (const QString e = controlla(inModale); !e.isEmpty())
            errore_ = QStringLiteral("seed %1, screen %2, event %3 (%4): %5")
                          .arg(QString::number(seme_), QLatin1String(nome(bersaglio_)), QString::number(inviati_),
                               evento_, e);
    }

    QString controlla(bool inModale)
    {
        const Stato &s = m_->stato;
        if (!inattesi.isEmpty())
            return QStringLiteral("a handler stopped on an error that is no range error: ") + inattesi.join(u'|');
        if (s.record.NumeroEsercizio < 0 || s.fogli.NumeroOperazioni < 0 || s.fogli.StampaRidotta < 0)
            return QStringLiteral("negative counter: NumeroEsercizio %1, NumeroOperazioni %2, StampaRidotta %3")
                .arg(QString::number(s.record.NumeroEsercizio), QString::number(s.fogli.NumeroOperazioni),
                     QString::number(s.fogli.StampaRidotta));
        for (const QString &riga : s.fogli.RigheRiserva)
            if (!riga.isEmpty())
                return QStringLiteral("a line of RigheRiserva was assigned: ") + riga;

        for (Schermo t : kSchermi) {
            QWidget *w = g().schermo(t);
            if (visti_[t] && visti_[t] != w)
                usciti_.push_back(visti_[t]);
            visti_[t] = w;
            if (!w)
                continue;
            // Only the about box stays loaded out of view: its own key hides it.
            if (t != Schermo::Autore && !w->isVisible())
                return QStringLiteral("%1 is loaded but not on view").arg(nome(t));
            for (const RigaOpzioni *riga : w->findChildren<RigaOpzioni *>())
                for (int i = 0; i < riga->count(); ++i)
                    if (const QPushButton *b = riga->bottone(i); b->isDown() || b->isChecked())
                        return QStringLiteral("key %1 left drawn as pressed").arg(descrivi(b));
        }
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
        const int n = m_->stato.record.NumeroEsercizio;
        if (&op != esercizio_) {
            esercizio_ = &op;
            // With no kind chosen (digit keys on the start screen move on
            // without choosing) no item is shown and no frame brought forward.
            const int tipo = m_->stato.settings.TipoEsercizio;
            mostrato_ = tipo >= 1 && tipo <= 3;
            esclusivo_ = mostrato_ && n == 1 && (bersaglio_ == Schermo::Inizio || bersaglio_ == Schermo::Operativo);
            massimo_ = n;
        }
        if (op.risposteEsatte() < 0 || op.risposteErrate() < 0 || op.tentativi() < 0 || op.tentativi() > 2 ||
            op.tempoTotale() < 0 || op.tempoTotale() > 999)
            return QStringLiteral("exercise counters out of range: right %1, wrong %2, tries %3, time %4")
                .arg(QString::number(op.risposteEsatte()), QString::number(op.risposteErrate()),
                     QString::number(op.tentativi()), QString::number(op.tempoTotale()));

        // The two item displays share one spot, the five key frames another:
        // one of each in front and enabled, the others hidden behind it.
        static const QStringList gruppi[] = {
            {QStringLiteral("fraNumero"), QStringLiteral("fraSimbolo")},
            {QStringLiteral("fraAiuto"), QStringLiteral("FraTastierino"), QStringLiteral("fraAvviso"),
             QStringLiteral("fraIntervento"), QStringLiteral("FraSimboli")}};
        for (const QStringList &gruppo : gruppi) {
            QStringList davanti;
            for (const QString &riquadro : gruppo) {
                const QWidget *w = op.findChild<QWidget *>(riquadro);
                if (!w)
                    return QStringLiteral("no frame %1 on the exercise screen").arg(riquadro);
                if (!w->isHidden())
                    davanti.append(w->isEnabled() ? riquadro : riquadro + QStringLiteral(" (disabled)"));
            }
            if (mostrato_ && (davanti.size() != 1 || davanti.at(0).endsWith(u')')))
                return QStringLiteral("frames in front: ") + davanti.join(u',');
        }

        // The record as the exercise screen alone writes it: loading empties
        // every line and shows item 1; each new item n starts line n (past 60
        // the handler stops); answers extend line n only. "Ricomincia" and an
        // activated start screen set n back and leave the lines. So line 0
        // stays empty, lines 1..n are filled, and none lies past the highest
        // item reached. Where the printout's load or the worksheets write the
        // record as well, only the counters are checked.
        if (esclusivo_) {
            ++controlliRighe_;
            massimo_ = std::max(massimo_, n);
            const auto &righe = m_->stato.record.RigheEsercizio;
            if (!righe[0].isEmpty())
                return QStringLiteral("record line 0 written: \"%1\"").arg(righe[0]);
            for (int i = 1; i <= std::min(n, 60); ++i)
                if (righe[std::size_t(i)].isEmpty())
                    return QStringLiteral("record line %1 empty at item %2").arg(i).arg(n);
            for (int i = std::min(massimo_, 60) + 1; i <= 60; ++i)
                if (!righe[std::size_t(i)].isEmpty())
                    return QStringLiteral("record line %1 written past the highest item %2").arg(i).arg(massimo_);
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
            QTest::newRow(nome(s)) << s;
    }
    void casuale()
    {
        QFETCH(Schermo, schermo);
        // Each screen draws from its own stream, so that a row replays alone.
        const quint64 seme = seme_ * 0x100000001b3ULL + quint64(schermo);
        m_ = std::make_unique<Mondo>(seme);
        QVERIFY(m_->dir.isValid());
        bersaglio_ = schermo;
        caso_ = Caso(seme);
        inviati_ = modali_ = fermati = controlliRighe_ = 0;
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
            if (schermo == Schermo::Autore) {
                // Modal: the timer sends the events from inside its loop.
                const int prima = inviati_;
                g().apri(Schermo::Autore);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                evento_ = QStringLiteral("closing the about box");
                verifica(false);
                QVERIFY2(inviati_ > prima || !errore_.isEmpty(), "the about box did not come up modal");
                continue;
            }
            if (QWidget *f = finestra(); !f || !f->isVisible()) {
                apri();
                if (QTest::currentTestFailed())
                    return;
                QVERIFY2(finestra() && finestra()->isVisible(), nome(schermo));
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
        qInfo("%s: %d events, %d handlers stopped by a range error, %d checks of the record lines", nome(schermo),
              inviati_, fermati, controlliRighe_);
    }
};

QTEST_MAIN(TestCasuale)
#include "tst_casuale.moc"
