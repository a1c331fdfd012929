#include "settings/resizecolore.h"

#include "fakes/cartella.h"
#include "settings/frminizio.h"
#include "settings/frmopzioni.h"
#include "settings/stato.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>
#include <functional>
#include <memory>

namespace {

class Modulo : public QWidget
{
public:
    ResizeColore tabella;

protected:
    void resizeEvent(QResizeEvent *) override { tabella.applica(); }
};

using Crea = std::function<QWidget *(QWidget *)>;

QRect scalata(const QRect &r, double fx, double fy)
{
    return QRect(qRound(r.x() * fx), qRound(r.y() * fy), qRound(r.width() * fx), qRound(r.height() * fy));
}

// Within a pixel of rounding.
bool vicine(const QRect &a, const QRect &b)
{
    return (a.topLeft() - b.topLeft()).manhattanLength() <= 2 && qAbs(a.width() - b.width()) <= 1 &&
           qAbs(a.height() - b.height()) <= 1;
}

QHash<QWidget *, QRect> geometrie(QWidget *pagina)
{
    QHash<QWidget *, QRect> g;
    for (QWidget *w : pagina->findChildren<QWidget *>())
        if (!w->isWindow() && !qobject_cast<QComboBox *>(w->parentWidget()))
            g.insert(w, w->geometry());
    return g;
}

} // namespace

Q_DECLARE_METATYPE(Crea)

class TestResizeColore : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }

    void doppioEInDietro_data()
    {
        QTest::addColumn<Crea>("crea");
        QTest::addColumn<bool>("segue");

        QTest::newRow("push button") << Crea([](QWidget *f) { return new QPushButton("Vai", f); }) << true;
        QTest::newRow("key inside a frame") << Crea([](QWidget *f) {
            auto *g = new QGroupBox(f);
            g->setGeometry(20, 20, 300, 200);
            return new QPushButton("numero", g);
        }) << true;
        QTest::newRow("combo box stays") << Crea([](QWidget *f) {
            auto *c = new QComboBox(f);
            c->addItems({"uno", "due"});
            return c;
        }) << false;
        QTest::newRow("line stays") << Crea([](QWidget *f) {
            auto *l = new QFrame(f);
            l->setFrameShape(QFrame::HLine);
            return l;
        }) << false;
    }
    void doppioEInDietro()
    {
        QFETCH(Crea, crea);
        QFETCH(bool, segue);
        Modulo m;
        m.resize(400, 300);
        QWidget *w = crea(&m);
        const QRect progetto(40, 30, 81, 23);
        w->setGeometry(progetto);
        const int punti = w->font().pointSize();
        m.tabella.prendi(&m);
        m.show();
        QVERIFY(QTest::qWaitForWindowExposed(&m));
        QCOMPARE(w->geometry(), progetto);

        m.resize(800, 600);
        QCOMPARE(w->geometry(), segue ? scalata(progetto, 2, 2) : progetto);
        m.resize(400, 450);
        QVERIFY(vicine(w->geometry(), segue ? scalata(progetto, 1, 1.5) : progetto));
        m.resize(400, 300);
        QCOMPARE(w->geometry(), progetto);
        QCOMPARE(w->font().pointSize(), punti);
    }

    // Every control of the real screens goes to twice its place and size and back.
    void schermi_data()
    {
        QTest::addColumn<QString>("schermo");
        QTest::newRow("start screen") << "FrmInizio";
        QTest::newRow("options panel") << "FrmOpzioni";
    }
    void schermi()
    {
        QFETCH(QString, schermo);
        Stato stato;
        std::unique_ptr<QWidget> form;
        QWidget *pagina = nullptr;
        if (schermo == QLatin1String("FrmInizio")) {
            auto *f = new FrmInizio(stato);
            form.reset(f);
            f->findChild<QTimer *>("timerTendine")->stop();
            pagina = f->centralWidget();
        } else {
            form.reset(new FrmOpzioni(stato));
            pagina = form.get();
        }
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        const QSize progetto = pagina->size();
        const QHash<QWidget *, QRect> prima = geometrie(pagina);
        QVERIFY(prima.size() > 20);
        const QSize finestra = form->size();

        form->resize(finestra + progetto);
        QCOMPARE(pagina->size(), progetto * 2);
        for (auto it = prima.cbegin(); it != prima.cend(); ++it)
            QVERIFY2(vicine(it.key()->geometry(), scalata(it.value(), 2, 2)), qPrintable(it.key()->objectName()));

        form->resize(finestra);
        for (auto it = prima.cbegin(); it != prima.cend(); ++it)
            QVERIFY2(vicine(it.key()->geometry(), it.value()), qPrintable(it.key()->objectName()));
    }
};

QTEST_MAIN(TestResizeColore)
#include "tst_resizecolore.moc"
