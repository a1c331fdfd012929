#include "app/gestoreschermi.h"

#include "fakes/cartella.h"
#include "settings/frminizio.h"
#include "settings/frmopzioni.h"
#include "settings/stato.h"

#include <QApplication>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QList<Schermo> kTutti{Schermo::Inizio, Schermo::Operativo, Schermo::Opzioni, Schermo::StampaEsercizio,
                            Schermo::Schede, Schermo::SceltaStampante, Schermo::Autore};

// Stands in for the screens other engineers build; records the order in which screens leave the view.
class Registro : public QObject
{
public:
    QList<Schermo> nascosti;
    QHash<QObject *, Schermo> ruolo;

protected:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Hide && ruolo.contains(o))
            nascosti.append(ruolo.value(o));
        return false;
    }
};

} // namespace

class TestGestoreSchermi : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    Stato stato_;
    Registro registro_;

    // Real start screen and options panel, plain windows for the others.
    GestoreSchermi::Fabbrica fabbrica()
    {
        return [this](Schermo s, Stato &stato, QWidget *proprietario) -> QWidget * {
            QWidget *w = nullptr;
            if (s == Schermo::Inizio || s == Schermo::Opzioni)
                w = GestoreSchermi::creaSchermo(s, stato, proprietario);
            else
                w = new QWidget;
            registro_.ruolo.insert(w, s);
            w->installEventFilter(&registro_);
            return w;
        };
    }

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init() { registro_.nascosti.clear(); }

    void esciScaricaInOrdine_data()
    {
        QTest::addColumn<bool>("conOpzioni");
        QTest::addColumn<bool>("daFinestra"); // the start screen's window closed instead of "Esci"
        QTest::newRow("options panel open stays") << true << false;
        QTest::newRow("nothing left: the program ends") << false << false;
        QTest::newRow("window closed") << true << true;
    }
    void esciScaricaInOrdine()
    {
        QFETCH(bool, conOpzioni);
        QFETCH(bool, daFinestra);
        GestoreSchermi g(stato_);
        g.setFabbrica(fabbrica());
        stato_.servizi.schermi = &g;
        QSignalSpy fine(&g, &GestoreSchermi::tuttiChiusi);
        for (Schermo s : kTutti)
            if (s != Schermo::Opzioni || conOpzioni)
                g.apri(s);
        g.apri(Schermo::Inizio);
        QVERIFY(QTest::qWaitForWindowActive(g.schermo(Schermo::Inizio)));

        if (daFinestra)
            g.schermo(Schermo::Inizio)->close();
        else
            QTest::mouseClick(g.schermo(Schermo::Inizio)->findChild<QWidget *>("Option3(2)"), Qt::LeftButton);
        const QList<Schermo> ordine{Schermo::Autore,          Schermo::Inizio,          Schermo::Operativo,
                                    Schermo::SceltaStampante, Schermo::StampaEsercizio, Schermo::Schede};
        QCOMPARE(registro_.nascosti, ordine);
        for (Schermo s : ordine)
            QVERIFY(!g.caricato(s));
        QCOMPARE(g.caricato(Schermo::Opzioni), conOpzioni);
        QCOMPARE(fine.size(), conOpzioni ? 0 : 1);
        if (conOpzioni) {
            // Closed from its window frame, the panel is unloaded as by its own "Esci".
            QPointer<QWidget> opzioni = g.schermo(Schermo::Opzioni);
            QVERIFY(opzioni->isVisible());
            opzioni->close();
            QVERIFY(!g.caricato(Schermo::Opzioni));
            QCOMPARE(fine.size(), 1);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QVERIFY(opzioni.isNull());
        }
        stato_.servizi.schermi = nullptr;
    }
};

QTEST_MAIN(TestGestoreSchermi)
#include "tst_gestoreschermi.moc"
