#include "ui/qtsuono.h"

#include <QElapsedTimer>
#include <QTest>

class TstQtSuono : public QObject
{
    Q_OBJECT
private slots:
    // A right answer must never wait for the sound, whether the file is
    // missing or there is no audio device to play it on.
    void suonaNonAspetta_data()
    {
        QTest::addColumn<QString>("percorso");
        QTest::newRow("missing file") << QStringLiteral("/nessuna/cartella/positivo.wav");
        QTest::newRow("the program's own wave") << QFINDTESTDATA("../../assets/positivo.wav");
    }
    void suonaNonAspetta()
    {
        QFETCH(QString, percorso);
        QVERIFY(!percorso.isEmpty());
        QtSound suono;
        QElapsedTimer t;
        t.start();
        suono.carica(percorso);
        suono.suona();
        suono.suona(); // a second right answer while the first still plays
        QVERIFY2(t.elapsed() < 1000, qPrintable(QString::number(t.elapsed())));
        QTest::qWait(300); // loading and playback go on in the event loop
    }
};

QTEST_MAIN(TstQtSuono)
#include "tst_qtsuono.moc"
