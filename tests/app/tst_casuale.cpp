// Random use of every screen: keys, held keys, lone presses and releases,
// shortcuts and clicks from a fixed seed, as a pupil leaning on the keyboard
// or a switch gone wild would send them, through the screen manager as the
// program runs, with its invariants checked after every one. A failure names
// the seed, the screen and the step; CASUALE_SEME=<seed> tst_casuale
// casuale:<screen> replays it, CASUALE_EVENTI sets the steps per screen.
#include "app/gestoreschermi.h"
#include "exercise/frmoperativo.h"
#include "fakes/cartella.h"
#include "fakes/mondo.h"
#include "results/filerisultati.h"
#include "results/registra.h"
#include "settings/filesettings.h"
#include "settings/frminizio.h"
#include "ui/rigaopzioni.h"

#include <QtTest>
#include <QtWidgets>

#include <map>
#include <memory>

Q_DECLARE_METATYPE(Schermo)

namespace {

const Schermo kSchermi[] = {Schermo::Inizio, Schermo::Operativo, Schermo::Opzioni,
                            Schermo::StampaEsercizio, Schermo::Schede, Schermo::SceltaStampante, Schermo::Risultati};
const char *const kNomi[] = {"Inizio", "Operativo", "Opzioni", "StampaEsercizio", "Schede", "SceltaStampante", "Autore",
                             "Accesso", "Risultati"};

// Mostly the keys the screens answer to; the shortcuts open the other screens
// (the about box among them, which the pump then drives).
const QStringList kTasti = QStringLiteral(
    "Space Space Space Space*2 Space+ Space- Return Return Enter Return*3 Return+ Return- 0 1 2 3 4 5 6 7 8 9 K0 K1 K2 "
    "K3 K5 , , A C E I M N S V X Tab Shift+Tab Left Right Up Down Backspace Delete Escape F2 Ctrl+P Ctrl+S Ctrl+O "
    "Ctrl+U Alt+A").split(u' ');

// Noise: the offscreen platform's words at every raise and grab, and the
// handlers ended by the program's own range and overflow errors. A handler
// stopped by anything else is a fault.
QtMessageHandler qtest = nullptr;
void silenzio(QtMsgType tipo, const QMessageLogContext &contesto, const QString &testo)
{
    static const QRegularExpression rumore(
        QStringLiteral("^(This plugin does not support|handler stopped: .*(out of range|16-bit overflow))"));
    if (!rumore.match(testo).hasMatch())
        qtest(tipo, contesto, testo);
}

// The program as main builds it, on the test doubles, in a folder of its own,
// its draws from a stream of their own.
struct Programma : Mondo {
    CartellaDiProva cartella;
    QRandomGenerator estrazioni;
    GestoreSchermi gestore{stato};
    explicit Programma(quint64 seme) : estrazioni(quint32(~seme))
    {
        caso.generatore = &estrazioni;
        stato.servizi.schermi = &gestore;
        // Exercises finished on the way are kept, and the results screen has some to show.
        CollegaRisultati(stato);
        for (int i = 0; i < 30; ++i)
            AggiungiRisultato(NomeFileRisultati(NomeFileDaEseguibile(QCoreApplication::applicationFilePath())),
                              {QDateTime::currentDateTime().addDays(i - 30), QStringLiteral("unità"), 1, 1, {}, {}, i % 21, i % 7, i, {}});
    }
    // Screens unloaded on the way out go before the state they work on.
    ~Programma() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

} // namespace

class TestCasuale : public QObject
{
    Q_OBJECT
    quint64 seme_ = 20240917;
    int eventi_ = 12000;
    std::unique_ptr<Programma> m_;
    Schermo bersaglio_ = Schermo::Inizio;
    QRandomGenerator caso_;
    int inviati_ = 0, modali_ = 0;
    QString passo_, errore_;
    QTimer pompa_;
    bool finito_ = false; // the manager said no screen is left on view
    std::map<Schermo, QPointer<QWidget>> visti_; // unloaded ones must be gone once deletes run
    QPointer<frmOperativo> esercizio_;
    bool mostrato_ = false; // it showed an item: digit keys on the start screen move on without a kind

    GestoreSchermi &g() { return m_->gestore; }

    // The screen under test, reached as a user reaches it: the start screen
    // first (it loads the settings), a kind and an order chosen, then the screen.
    void apri()
    {
        auto *inizio = qobject_cast<FrmInizio *>(g().schermo(Schermo::Inizio));
        if (!inizio || !inizio->isVisible()) {
            g().apri(Schermo::Inizio);
            inizio = qobject_cast<FrmInizio *>(g().schermo(Schermo::Inizio));
            QVERIFY(QTest::qWaitForWindowActive(inizio));
            while (inizio->tendine().attiva())
                inizio->tickTendine();
        }
        for (int riga = 1; riga <= 2 && bersaglio_ != Schermo::Inizio; ++riga)
            inizio->riga(riga)->scegli(int(caso_.bounded(3)));
        if (bersaglio_ == Schermo::Operativo) {
            inizio->activateWindow(); // which sets the item count to 0
            QVERIFY(QTest::qWaitForWindowActive(inizio));
            inizio->riga(3)->scegli(0);
        } else if (bersaglio_ != Schermo::Inizio) {
            g().apri(bersaglio_);
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY2(g().schermo(bersaglio_) && QTest::qWaitForWindowActive(g().schermo(bersaglio_)), kNomi[int(bersaglio_)]);
    }

    // One random step on `f`: a key, or a click on any of its controls on view.
    void passo(QWidget *f, bool inModale)
    {
        QList<QWidget *> controlli;
        for (QWidget *c : f->findChildren<QWidget *>())
            if (c->isVisible() && !c->objectName().isEmpty() && !c->objectName().startsWith(QLatin1String("qt_")))
                controlli << c;
        const int r = int(caso_.bounded(100));
        const auto uno = [this](const auto &lista) { return lista.at(int(caso_.bounded(int(lista.size())))); };
        passo_ = r < 70 || controlli.isEmpty() ? uno(kTasti)
                 : (r < 95 ? QStringLiteral("click:") : QStringLiteral("dclick:")) + uno(controlli)->objectName();
        Utente{f}.esegui(passo_);
        m_->orologio.adesso += caso_.bounded(1500) / 1000.0;
        QCoreApplication::processEvents();
        // Inside a modal box the screens below are still in their handlers.
        if (!inModale)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (const QString e = errore_.isEmpty() ? controlla(inModale) : QString(); !e.isEmpty())
            errore_ = QStringLiteral("seed %1, screen %2, step %3 (%4 on %5): %6").arg(QString::number(seme_),
                kNomi[int(bersaglio_)], QString::number(inviati_), passo_, f->objectName(), e);
    }

    // The about box runs its own event loop; this timer drives it from inside
    // for eight steps, then sends it away.
    void pompa()
    {
        QWidget *modale = QApplication::activeModalWidget();
        modali_ = modale ? modali_ + 1 : 0;
        if (modale && (!errore_.isEmpty() || modali_ > 8))
            modale->close();
        else if (modale)
            passo(modale, true);
    }

    QString controlla(bool inModale)
    {
        const Stato &s = m_->stato;
        if (s.record.NumeroEsercizio < 0 || s.fogli.NumeroOperazioni < 0 || s.fogli.StampaRidotta < 0)
            return QStringLiteral("negative counter");
        bool qualcuno = false; // a screen on view
        for (Schermo t : kSchermi) {
            QWidget *w = g().schermo(t);
            if (!inModale && visti_[t] && visti_[t] != w)
                return QStringLiteral("%1 was unloaded but still exists").arg(kNomi[int(t)]);
            visti_[t] = w;
            if (w && !w->isVisible())
                return QStringLiteral("%1 is loaded but not on view").arg(kNomi[int(t)]);
            qualcuno = qualcuno || w;
            for (const RigaOpzioni *riga : w ? w->findChildren<RigaOpzioni *>() : QList<RigaOpzioni *>())
                for (int i = 0; i < riga->count(); ++i)
                    if (riga->bottone(i)->isDown() || riga->bottone(i)->isChecked())
                        return riga->bottone(i)->objectName() + QStringLiteral(" left drawn as pressed");
        }
        if (qualcuno == finito_) // the program ends exactly when no screen is left on view
            return qualcuno ? QStringLiteral("ended with a screen on view") : QStringLiteral("no screen on view, not ended");
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
            return QStringLiteral("exercise counters out of range");
        // The two item displays share one spot, the five key frames another:
        // one of each in front and enabled, the others hidden behind it.
        for (const QStringList &gruppo : {QStringList{"fraNumero", "fraSimbolo"},
                                          QStringList{"fraAiuto", "FraTastierino", "fraAvviso", "fraIntervento", "FraSimboli"}}) {
            QStringList davanti;
            for (const QString &riquadro : gruppo)
                if (const QWidget *w = op.findChild<QWidget *>(riquadro); w && !w->isHidden())
                    davanti << riquadro + (w->isEnabled() ? QString() : QStringLiteral(" (disabled)"));
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
        qInfo("%d random steps per screen, seed %llu", eventi_, static_cast<unsigned long long>(seme_));
        qtest = qInstallMessageHandler(silenzio);
        pompa_.setInterval(0);
        connect(&pompa_, &QTimer::timeout, this, &TestCasuale::pompa);
    }

    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped"))); }
    void cleanupTestCase() { qInstallMessageHandler(qtest); }

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
        m_ = std::make_unique<Programma>(seme);
        QVERIFY(m_->cartella.valida());
        connect(&m_->gestore, &GestoreSchermi::tuttiChiusi, this, [this] { finito_ = true; });
        bersaglio_ = schermo;
        caso_.seed(quint32(seme ^ (seme >> 32)));
        inviati_ = modali_ = 0;
        errore_.clear();
        visti_.clear();
        esercizio_ = nullptr;
        pompa_.start();
        const auto fine = qScopeGuard([this] {
            pompa_.stop();
            m_.reset();
        });
        apri();
        // The first screen, wider than the offscreen display, is fitted to it less a frame guessed at 4 pixels a side.
        QCOMPARE(g().schermo(Schermo::Inizio)->width(), g().schermo(Schermo::Inizio)->screen()->availableGeometry().width() - 8);
        for (finito_ = false; !QTest::currentTestFailed() && inviati_ < eventi_ && errore_.isEmpty(); ++inviati_) {
            QWidget *f = g().schermo(bersaglio_);
            if (!f || !f->isVisible()) {
                finito_ = false;
                apri();
                f = g().schermo(bersaglio_);
            } else if (!f->isActiveWindow()) {
                f->activateWindow();
                QCoreApplication::processEvents();
            }
            passo(f, false);
        }
        QVERIFY2(errore_.isEmpty(), qPrintable(errore_));
        qInfo("%s: %d events, every invariant held", kNomi[int(schermo)], inviati_);
    }
};

QTEST_MAIN(TestCasuale)
#include "tst_casuale.moc"
