// Every control a pupil or teacher uses tells assistive technology what it is
// and takes the focus, on every screen and in every frame, shown or not yet;
// and the Tab order of each row of keys is the order in which space steps
// through it.
#include "app/gestoreschermi.h"

#include "content/catalogo.h"
#include "fakes/cartella.h"
#include "fakes/fakeprinter.h"
#include "fakes/fakes.h"
#include "settings/filesettings.h"
#include "settings/stato.h"
#include "ui/rigaopzioni.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QtTest>
#include <memory>

Q_DECLARE_METATYPE(Schermo)

namespace {

struct Ambiente {
    FakePrinter stampante;
    FakeMessageBox messaggi;
    FakeScreens schermi;
    FakeClock orologio;
    FakeRandom caso;
    FakeSound suono;
    Stato stato;
    Ambiente()
    {
        stato.settings.NomeFile = QStringLiteral("composizione");
        AspettoPredefinito(stato.settings);
        SceltaSimboli(1, stato.topic, stato.titoli);
        caso.dopo = 0.37;
        stato.servizi = {&orologio, &caso, &messaggi, &suono, &stampante, &schermi};
    }
};

QString nomeAccessibile(QObject *o)
{
    QAccessibleInterface *i = QAccessible::queryAccessibleInterface(o);
    return i ? i->text(QAccessible::Name).trimmed() : QString();
}

// What a person would call the control when reporting it.
QString descrivi(const QWidget *w)
{
    return QStringLiteral("%1 \"%2\"").arg(w->metaObject()->className(), w->objectName());
}

} // namespace

class TestAccessibilita : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;

private slots:
    void initTestCase() { QVERIFY(cartella_.valida()); }

    void schermi_data()
    {
        QTest::addColumn<Schermo>("schermo");
        QTest::newRow("start") << Schermo::Inizio;
        QTest::newRow("exercise") << Schermo::Operativo;
        QTest::newRow("options") << Schermo::Opzioni;
        QTest::newRow("exercise printout") << Schermo::StampaEsercizio;
        QTest::newRow("worksheets") << Schermo::Schede;
        QTest::newRow("printer choice") << Schermo::SceltaStampante;
        QTest::newRow("about") << Schermo::Autore;
    }
    void schermi()
    {
        QFETCH(Schermo, schermo);
        Ambiente a;
        std::unique_ptr<QWidget> w(GestoreSchermi::creaSchermo(schermo, a.stato, nullptr));
        QVERIFY(w);
        w->show();
        QVERIFY(QTest::qWaitForWindowExposed(w.get()));

        QVERIFY2(!nomeAccessibile(w.get()).isEmpty(), "the window has no title");

        // Keys, fields and lists: named whether their frame is in front or not.
        QStringList senzaNome;
        int controlli = 0;
        for (QWidget *c : w->findChildren<QWidget *>()) {
            const bool controllo = qobject_cast<QAbstractButton *>(c) || qobject_cast<QLineEdit *>(c) ||
                                   qobject_cast<QComboBox *>(c) || qobject_cast<QAbstractSpinBox *>(c);
            auto *l = qobject_cast<QLabel *>(c);
            // A label that shows nothing has nothing to say; a picture always has.
            const bool mostra = l && (!l->text().trimmed().isEmpty() || !l->pixmap().isNull());
            // Qt's own helpers (the menu bar's overflow arrow) are named by Qt.
            if ((!controllo && !mostra) || c->objectName().startsWith(QLatin1String("qt_")))
                continue;
            ++controlli;
            if (nomeAccessibile(c).isEmpty())
                senzaNome << descrivi(c);
            // A key the keyboard cannot reach is a key a switch user cannot press.
            if (controllo && c->focusPolicy() == Qt::NoFocus)
                senzaNome << descrivi(c) + QStringLiteral(" (no focus)");
        }
        for (QMenu *m : w->findChildren<QMenu *>())
            for (QAction *act : m->actions())
                if (!act->isSeparator() && act->text().remove(u'&').trimmed().isEmpty())
                    senzaNome << QStringLiteral("menu entry in ") + descrivi(m);
        if (auto *barra = w->findChild<QMenuBar *>())
            for (QAction *act : barra->actions())
                if (act->text().remove(u'&').trimmed().isEmpty())
                    senzaNome << QStringLiteral("menu bar entry");
        QVERIFY(controlli > 0);
        QVERIFY2(senzaNome.isEmpty(), qPrintable(senzaNome.join(u", ")));

        // Tab meets the keys of a row in the order space steps through them.
        for (RigaOpzioni *riga : w->findChildren<RigaOpzioni *>()) {
            QList<int> visti;
            QWidget *f = riga->bottone(0);
            for (int passi = 0; passi < 500 && visti.size() < riga->count(); ++passi, f = f->nextInFocusChain())
                if (const int i = riga->indice(f); i >= 0 && !visti.contains(i))
                    visti << i;
            QList<int> attesi(riga->count());
            std::iota(attesi.begin(), attesi.end(), 0);
            QVERIFY2(visti == attesi, qPrintable(riga->bottone(0)->objectName()));
        }
    }
};

QTEST_MAIN(TestAccessibilita)
#include "tst_accessibilita.moc"
