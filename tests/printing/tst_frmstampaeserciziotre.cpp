#include "printing/frmstampaeserciziotre.h"

#include "fakes/cartella.h"
#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "settings/stato.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

struct Ambiente {
    FakePrinter stampante;
    FakeMessageBox messaggi;
    FakeScreens schermi;
    Stato stato;
    explicit Ambiente(int righe)
    {
        stato.settings.NomeFile = QStringLiteral("prova");
        stato.servizi = {nullptr, nullptr, &messaggi, nullptr, &stampante, &schermi};
        stato.record.NumeroEsercizio = qint16(righe);
        for (int i = 1; i <= 60; ++i) {
            stato.record.riga(i) = QStringLiteral("%1 + %1 = %2").arg(i).arg(2 * i);
            stato.fogli.RigheScheda[std::size_t(i)] = QStringLiteral("scheda %1").arg(i);
        }
        stato.fogli.NumeroOperazioni = 7;
    }
    QString messaggio() const { return messaggi.mostrati.isEmpty() ? QString() : messaggi.mostrati.last().testo; }
};

QLabel *riga(QWidget &w, int i) { return w.findChild<QLabel *>(QStringLiteral("LblOp(%1)").arg(i)); }
QPushButton *comando(QWidget &w, int i) { return w.findChild<QPushButton *>(QStringLiteral("Command1(%1)").arg(i)); }

} // namespace

class TestFrmStampaEsercizioTre : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }
    void init() { QFile::remove(QStringLiteral("provaEsercizio.dat")); }

    void apertura_data()
    {
        QTest::addColumn<QStringList>("fonts");
        QTest::addColumn<int>("righe");
        QTest::addColumn<QString>("fontRighe"); // face of the exercise lines; the rest keep "Courier"
        QTest::addColumn<int>("contatore");
        const QStringList cn{"Arial", "Courier New"};
        QTest::newRow("10 righe in Courier New") << cn << 10 << "Courier New" << 11;
        QTest::newRow("20 righe in Courier New") << cn << 20 << "Courier New" << 21;
        QTest::newRow("solo Courier: font di progetto") << QStringList{"Courier"} << 20 << "Courier" << 21;
        QTest::newRow("Courier prima di Courier New") << QStringList{"Courier", "Courier New"} << 10 << "Courier" << 11;
        QTest::newRow("61 righe: la 61 ferma il caricamento") << cn << 61 << "Courier New" << 61;
        QTest::newRow("nessun font: righe vuote") << QStringList{"Arial"} << 20 << "Courier" << 7;
    }
    void apertura()
    {
        QFETCH(QStringList, fonts);
        QFETCH(int, righe);
        QFETCH(QString, fontRighe);
        QFETCH(int, contatore);
        Ambiente a(righe);
        a.stampante.fonts = fonts;
        FrmStampaEsercizioTre w(a.stato);

        const bool senzaFont = contatore == 7;
        QCOMPARE(a.messaggio(), senzaFont ? "Devi installare il font Courier o il font Courier New" : QString());
        QCOMPARE(a.stato.fogli.NumeroOperazioni, qint16(contatore));
        for (int i = 1; i <= 30; ++i) {
            QCOMPARE(riga(w, i)->text(), !senzaFont && i <= righe ? a.stato.record.riga(i) : QString());
            QCOMPARE(riga(w, i)->font().family(), i <= righe ? fontRighe : QStringLiteral("Courier"));
            QCOMPARE(riga(w, i)->font().bold(), i <= righe && fontRighe == QLatin1String("Courier New"));
        }
        QVERIFY(riga(w, 1)->fontInfo().fixedPitch());
    }

    // Loaded lines land where the shared counter stands, past the last label too.
    void salvaECarica_data()
    {
        QTest::addColumn<int>("righe");
        QTest::addColumn<bool>("salva");
        QTest::newRow("3 righe: dopo le tre dell'esercizio") << 3 << true;
        QTest::newRow("28 righe: oltre l'ultima etichetta") << 28 << true;
        QTest::newRow("nessun file salvato") << 3 << false;
    }
    void salvaECarica()
    {
        QFETCH(int, righe);
        QFETCH(bool, salva);
        Ambiente a(righe);
        FrmStampaEsercizioTre w(a.stato);
        if (salva)
            QTest::mouseClick(comando(w, 2), Qt::LeftButton);
        a.stato.record.NumeroEsercizio = 99;
        QTest::mouseClick(comando(w, 3), Qt::LeftButton);

        QCOMPARE(a.messaggio(), salva ? QString() : QStringLiteral("Nessun esercizio eseguito presente"));
        QCOMPARE(a.stato.record.NumeroEsercizio, qint16(salva ? righe : 99));
        QCOMPARE(a.stato.fogli.NumeroOperazioni, qint16(salva ? 2 * righe + 1 : righe + 1));
        for (int k = righe + 1; salva && k <= 2 * righe; ++k) {
            const QString atteso = QStringLiteral("scheda %1").arg(k - righe);
            QCOMPARE(a.stato.fogli.RigheScheda[std::size_t(k)], atteso);
            if (k <= 30)
                QCOMPARE(riga(w, k)->text(), atteso);
        }
        QCOMPARE(riga(w, 1)->text(), a.stato.record.riga(1));
    }

    void comandi_data()
    {
        QTest::addColumn<int>("mouse"); // key clicked with the mouse, or -1
        QTest::addColumn<QList<QKeyCombination>>("tasti");
        QTest::addColumn<QString>("chiamate");
        QTest::addColumn<int>("stampe");
        const QKeyCombination sp(Qt::Key_Space), invio(Qt::Key_Return);
        QTest::newRow("ESCI col mouse") << 0 << QList<QKeyCombination>{} << "apri 1 chiudi 3" << 0;
        QTest::newRow("ESCI con spazio e Invio") << -1 << QList{sp, sp, sp, invio} << "apri 1 chiudi 3" << 0;
        QTest::newRow("STAMPA con Invio, il tasto iniziale") << -1 << QList{invio} << "" << 22;
        QTest::newRow("menu stampante con Ctrl+P") << -1 << QList{Qt::CTRL | Qt::Key_P} << "apri 5" << 0;
    }
    void comandi()
    {
        QFETCH(int, mouse);
        QFETCH(QList<QKeyCombination>, tasti);
        QFETCH(QString, chiamate);
        QFETCH(int, stampe);
        Ambiente a(20);
        FrmStampaEsercizioTre w(a.stato);
        w.show();
        QVERIFY(QTest::qWaitForWindowActive(&w));
        if (mouse >= 0)
            QTest::mouseClick(comando(w, mouse), Qt::LeftButton);
        for (QKeyCombination t : tasti)
            QTest::keyClick(QApplication::focusWidget(), t.key(), t.keyboardModifiers());

        QStringList fatte;
        for (const auto &c : a.schermi.chiamate)
            fatte << c.first << QString::number(int(c.second));
        QCOMPARE(fatte.join(' '), chiamate);
        const auto st = a.stampante.stampe();
        QCOMPARE(st.size(), stampe);
        for (int i : {1, 11}) // the tenth line is followed by a gap
            if (stampe)
                QVERIFY(st.at(i + 1).testo == a.stato.record.riga(i) && st.at(i + 1).y == (i == 1 ? 2000 : 9000));
    }
};

QTEST_MAIN(TestFrmStampaEsercizioTre)
#include "tst_frmstampaeserciziotre.moc"
