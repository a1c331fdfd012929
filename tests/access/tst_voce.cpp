// The voice against a real speech-dispatcher of the test's own, started and
// stopped here, changing nothing outside its temporary folder.
#include "access/vocespeechd.h"
#include "exercise/frmoperativo.h"
#include "fakes/estrazioni.h"
#include "fakes/mondo.h"
#include "fakes/serviziovoce.h"

#include <QtTest>

class TstVoce : public QObject
{
    Q_OBJECT
    ServizioVoce servizio_;

    // What the service was given to say, in order, or the rates it was set to.
    QStringList ricevuti(const char *cosa) const
    {
        QStringList visti;
        for (const auto &[quando, testo] : servizio_.righe(QRegularExpression(QLatin1String(cosa))))
            visti << testo;
        return visti;
    }
    static constexpr const char *testi = "Queueing message \\|(.*)\\| with priority";
    static constexpr const char *velocita = "^rate=(-?\\d+)$";
    static constexpr const char *connessioni = "CLIENT_NAME \"(.*:composizione:voce)\"";

private slots:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("speech-dispatcher")).isEmpty())
            QSKIP("speech-dispatcher is not installed (scripts/deps.sh installs it)");
        QVERIFY(servizio_.avvia());
        servizio_.isola();
    }

    // An item shown, a right answer: the question, then "Esatto", at the rate
    // of the access file, over one connection.
    void esercizio()
    {
        VoceSpeechd voce;
        Mondo m(2);
        m.stato.servizi.voce = &voce;
        m.stato.accesso.voce = true;
        m.stato.accesso.velocita = -20;
        m.stato.settings.TipoEsercizio = 1;
        m.stato.settings.OrdineSimboli = 1;
        m.stato.settings.ValoreMassimo = 9;
        m.caso.valori = estrazioni({QStringLiteral("1 1 4 5 1")}, classe(2), 1, 1, 9);
        auto w = m.apri<frmOperativo>();
        Utente u(w.get());
        u.esegui(QStringLiteral("4 5 V Return"));
        QVERIFY(voce.attendi(10000));
        QVERIFY(voce.pronta());
        QTRY_COMPARE_WITH_TIMEOUT(ricevuti(testi).size(), 2, 10000);
        QCOMPARE(ricevuti(testi), QStringList({"Quattro centinaia, cinque decine. Quante decine sono?", "Esatto"}));
        QVERIFY(ricevuti(velocita).contains(QStringLiteral("-20")));
        // One connection serves every utterance.
        QCOMPARE(ricevuti(connessioni).size(), 1);
        // A text kept back for a sound gives way at once to a newer one.
        voce.di(QStringLiteral("Esatto"), 0, 5000);
        voce.di(QStringLiteral("Tre decine. Quante unità sono?"), 0);
        QVERIFY(voce.attendi(2500));
        QTRY_COMPARE_WITH_TIMEOUT(ricevuti(testi).size(), 3, 10000);
        QCOMPARE(ricevuti(testi).last(), QStringLiteral("Tre decine. Quante unità sono?"));
    }

    // No service where the program looks for one: silence, one line on the
    // terminal, and every later utterance dropped at once.
    void senzaServizio()
    {
        qputenv("SPEECHD_ADDRESS", "unix_socket:" + servizio_.percorso(QStringLiteral("nessuno")).toUtf8());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^voce non disponibile: .+$")));
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
        VoceSpeechd voce;
        voce.di(QStringLiteral("prova"), 0);
        QVERIFY(voce.attendi(10000));
        QVERIFY(!voce.pronta());
        voce.di(QStringLiteral("ancora"), 0);
        QVERIFY(voce.attendi(100));
    }
};

QTEST_MAIN(TstVoce)
#include "tst_voce.moc"
