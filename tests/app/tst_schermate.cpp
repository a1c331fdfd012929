// Every screen in its main states, drawn offscreen at its design size and
// compared with the reviewed pictures in tests/data/schermate/. Flat areas
// must match exactly; the pixels along an edge may differ a little, which is
// all a different build of the font rasteriser changes. A failure leaves the
// new picture and one of its differences (red) in schermate/ beside this test.
// SCHERMATE_RINNOVA=1 writes the new pictures into tests/data/schermate
// instead, for a reviewer to look at (scripts/rinnova-schermate.sh). Each
// state is also read as a screen reader reads it.
#include "access/frmaccesso.h"
#include "app/frmautore.h"
#include "exercise/frmoperativo.h"
#include "fakes/cartella.h"
#include "fakes/estrazioni.h"
#include "fakes/mondo.h"
#include "printing/frmsceltastampante.h"
#include "printing/frmstampaeserciziotre.h"
#include "printing/frmstampaschedetre.h"
#include "results/filerisultati.h"
#include "results/frmrisultati.h"
#include "settings/filesettings.h"
#include "settings/frminizio.h"
#include "settings/frmopzioni.h"
#include "ui/rigaopzioni.h"

#include <QtTest>
#include <QtWidgets>
#include <memory>
#include <numeric>

namespace {

// How far an edge pixel may drift on any channel.
constexpr int kMargine = 8;

// The reviewed picture's pixels that came out otherwise, drawn in red over a
// faded copy of it; an empty image when there are none.
QImage differenze(const QImage &attesa, const QImage &vista)
{
    if (attesa.size() != vista.size())
        return vista; // of another size: the whole new picture is its difference
    QImage d(attesa.size(), QImage::Format_RGB32);
    bool diverse = false;
    for (int y = 0; y < attesa.height(); ++y) {
        for (int x = 0; x < attesa.width(); ++x) {
            const QRgb a = attesa.pixel(x, y), v = vista.pixel(x, y);
            bool piatto = true;
            for (int dy = -1; dy <= 1 && piatto; ++dy)
                for (int dx = -1; dx <= 1 && piatto; ++dx)
                    piatto = !attesa.valid(x + dx, y + dy) || attesa.pixel(x + dx, y + dy) == a;
            const int scarto = std::max({std::abs(qRed(a) - qRed(v)), std::abs(qGreen(a) - qGreen(v)),
                                         std::abs(qBlue(a) - qBlue(v))});
            const bool male = piatto ? scarto > 0 : scarto > kMargine;
            diverse = diverse || male;
            const int g = 200 + qGray(a) / 5;
            d.setPixel(x, y, male ? qRgb(255, 0, 0) : qRgb(g, g, g));
        }
    }
    return diverse ? d : QImage();
}

// What a screen reader finds wrong on a screen, frames not yet in front
// included: a key, field or list unnamed or unable to take the focus, a label
// that shows something but has no name, a menu entry without a caption, a row
// whose keys Tab meets out of the order space steps through them.
QString inascoltabili(QWidget *f)
{
    QStringList male;
    for (QWidget *c : f->findChildren<QWidget *>()) {
        const bool controllo = qobject_cast<QAbstractButton *>(c) || qobject_cast<QComboBox *>(c);
        auto *l = qobject_cast<QLabel *>(c);
        if ((!controllo && !(l && (!l->text().trimmed().isEmpty() || !l->pixmap().isNull()))) ||
            c->objectName().startsWith(QLatin1String("qt_")))
            continue;
        const QAccessibleInterface *i = QAccessible::queryAccessibleInterface(c);
        if (!i || i->text(QAccessible::Name).trimmed().isEmpty() || (controllo && c->focusPolicy() == Qt::NoFocus))
            male << c->objectName();
    }
    for (const QWidget *m : f->findChildren<QWidget *>())
        for (const QAction *a : qobject_cast<const QMenuBar *>(m) || qobject_cast<const QMenu *>(m) ? m->actions() : QList<QAction *>())
            if (!a->isSeparator() && a->text().trimmed().isEmpty())
                male << QStringLiteral("an entry of ") + m->objectName();
    for (const RigaOpzioni *riga : f->findChildren<RigaOpzioni *>()) {
        QList<int> visti, attesi(riga->count());
        std::iota(attesi.begin(), attesi.end(), 0);
        QWidget *w = riga->bottone(0);
        for (int passi = 0; passi < 500 && visti.size() < riga->count(); ++passi, w = w->nextInFocusChain())
            if (const int i = riga->indice(w); i >= 0 && !visti.contains(i))
                visti << i;
        if (visti != attesi)
            male << QStringLiteral("Tab order of ") + riga->bottone(0)->objectName();
    }
    return male.isEmpty() ? QString() : QStringLiteral("unnamed or unreachable: ") + male.join(u", ");
}

} // namespace

class TestSchermate : public QObject
{
    Q_OBJECT
    CartellaDiProva cartella_;
    std::unique_ptr<Mondo> m_;
    QDir fuori_;
    QStringList diverse_;

    // The screen as it looks now, against tests/data/schermate/<nome>.png,
    // and as a screen reader reads it.
    void confronta(QWidget *w, const QString &nome)
    {
        QCoreApplication::processEvents();
        if (const QString male = inascoltabili(w); !male.isEmpty())
            diverse_ << nome + QStringLiteral(" (") + male + u')';
        const QImage vista = w->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QString file = QStringLiteral(CARTELLA_DATI "/schermate/") + nome + QStringLiteral(".png");
        const QImage attesa = QImage(file).convertToFormat(QImage::Format_RGB32);
        const QImage d = attesa.isNull() ? vista : differenze(attesa, vista);
        if (d.isNull())
            return;
        if (qEnvironmentVariableIsSet("SCHERMATE_RINNOVA")) {
            QVERIFY(vista.save(file));
            return;
        }
        vista.save(fuori_.filePath(nome + QStringLiteral(".png")));
        d.save(fuori_.filePath(nome + QStringLiteral("-differenze.png")));
        diverse_ << nome; // the flow goes on, so that every state is seen
    }

private slots:
    void initTestCase()
    {
        QVERIFY(cartella_.valida());
        fuori_.setPath(QCoreApplication::applicationDirPath() + QStringLiteral("/schermate"));
        QVERIFY(fuori_.removeRecursively() && fuori_.mkpath(QStringLiteral(".")));
        // The faces the pictures were drawn with (fonts-liberation, fonts-dejavu-core).
        const QString facce = QFontInfo(QFont(QStringLiteral("Arial"))).family() + u'|' +
                              QFontInfo(QFont(QStringLiteral("Courier New"))).family() + u'|' + QFontInfo(QApplication::font()).family();
        if (facce != QLatin1String("Liberation Sans|Liberation Mono|DejaVu Sans"))
            QFAIL(qPrintable("the pictures were drawn in Liberation Sans, Liberation Mono and DejaVu Sans, "
                             "this machine gives " + facce + ": install them with scripts/deps.sh"));
    }
    void init()
    {
        // A handler the program did not mean to stop fails the test.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^handler stopped")));
        m_ = std::make_unique<Mondo>();
        m_->caso.dopo = 0.37;
    }
    void cleanup()
    {
        const QString diverse = diverse_.join(QStringLiteral(", "));
        diverse_.clear();
        QVERIFY2(diverse.isEmpty(), qPrintable(diverse + " differ from what they should be; new pictures in " + fuori_.path()));
    }
    // The start screen once the curtains have opened, then with each row chosen.
    void inizio()
    {
        auto w = m_->apri<FrmInizio>();
        while (w->tendine().attiva())
            w->tickTendine();
        Utente u{w.get()};
        confronta(w.get(), QStringLiteral("inizio"));
        u.esegui(QStringLiteral("Space Return"));
        confronta(w.get(), QStringLiteral("inizio-tipo"));
        u.esegui(QStringLiteral("Space Space Return"));
        confronta(w.get(), QStringLiteral("inizio-ordine"));
    }

    // An exercise on topic 3 with both kinds: the keypad with an answer, the
    // symbol pad, help after a wrong answer, the intervention after the third,
    // the correction and the end frame.
    void esercizio()
    {
        Settings &st = m_->stato.settings;
        st.TipoEsercizio = st.OrdineSimboli = 3;
        st.TestoTipoEsercizio = QStringLiteral(" Trova il numero o il simbolo");
        st.TestoOrdineSimboli = QStringLiteral(" Usa i simboli ordinati e non ordinati");
        m_->caso.valori = estrazioni({"19 2 13 4 7 numero", "41 2 13 4 7 simbolo", "126 5 12 3 9 numero"}, 2, 3, 3, 19);
        auto w = m_->apri<frmOperativo>();
        Utente u{w.get(), [this](const QString &p) { return m_->tempo(p); }};
        u.esegui(QStringLiteral("+7.5 3 3 4"));
        confronta(w.get(), QStringLiteral("esercizio-tastierino"));
        u.esegui(QStringLiteral("0 V Return Return +3 1 Return"));
        confronta(w.get(), QStringLiteral("esercizio-simboli"));
        u.esegui(QStringLiteral("scan:Option1(4)"));
        confronta(w.get(), QStringLiteral("esercizio-aiuto"));
        u.esegui(QStringLiteral("N Return 2 Return scan:Option1(4) N Return 3 Return scan:Option1(4) N Return"));
        confronta(w.get(), QStringLiteral("esercizio-intervento"));
        u.esegui(QStringLiteral("Return"));
        confronta(w.get(), QStringLiteral("esercizio-correzione"));
        m_->stato.record.NumeroEsercizio = 19;
        u.esegui(QStringLiteral("Return +40 6 2 , 0 9 V Return"));
        confronta(w.get(), QStringLiteral("esercizio-fine"));
    }

    // The printout of the twenty lines of tests/data/esercizi.txt.
    void stampaEsercizio()
    {
        for (const QString &r : righeAttese(QStringLiteral("esercizi.txt")))
            if (r.startsWith(QLatin1String("riga |")) && m_->stato.record.NumeroEsercizio < 20)
                m_->stato.record.riga(++m_->stato.record.NumeroEsercizio) = r.mid(6).chopped(1);
        confronta(m_->apri<FrmStampaEsercizioTre>().get(), QStringLiteral("stampa-esercizio"));
    }

    // The results screen on no file, then on three exercises of the lines of
    // tests/data/esercizi.txt, the newest chosen.
    void risultati()
    {
        confronta(m_->apri<FrmRisultati>().get(), QStringLiteral("risultati-vuoto"));
        Risultato r{QDateTime(QDate(2026, 9, 14), QTime(9, 30)), QStringLiteral("migliaia,    centinaia, decine, unità"), 3, 2,
                    QStringLiteral("Trova il numero o il simbolo"), QStringLiteral("Usa i simboli ordinati e non ordinati"), 0, 0, 0, {}};
        for (const QString &l : righeAttese(QStringLiteral("esercizi.txt")))
            if (l.startsWith(QLatin1String("riga |")) && r.righe.size() < kRigheRisultato)
                r.righe << l.mid(6).chopped(1);
        for (int g = 0; g < 3; ++g) {
            r.quando = r.quando.addDays(1);
            r.esatte = 14 + 3 * g;
            r.errate = 9 - 4 * g;
            r.secondi = 400 - 60 * g;
            QVERIFY(AggiungiRisultato(NomeFileRisultati(m_->stato.settings.NomeFile), r));
        }
        confronta(m_->apri<FrmRisultati>().get(), QStringLiteral("risultati"));
        QFile::remove(NomeFileRisultati(m_->stato.settings.NomeFile));
    }

    // Worksheets on topic 6 with both previews, then "CANCELLA SCHEDA".
    void schede()
    {
        m_ = std::make_unique<Mondo>(6);
        QRandomGenerator caso(7);
        for (int i = 0; i < 300; ++i)
            m_->caso.valori.push_back(caso.generateDouble());
        auto w = m_->apri<FrmStampaSchedeTre>();
        Utente u{w.get()};
        u.esegui(QStringLiteral("1 Return 3 Return tab:CmdVisualizzaSchedaAlunni Return"));
        confronta(w.get(), QStringLiteral("schede-alunni"));
        u.esegui(QStringLiteral("tab:CmdVisualizzaSchedaDocenti Return"));
        confronta(w.get(), QStringLiteral("schede-docenti"));
        u.esegui(QStringLiteral("tab:CmdRicomincia Return"));
        confronta(w.get(), QStringLiteral("schede-cancella"));
    }

    // The options panel as it opens on the colours of a file that cannot be
    // read, the access panel with no access file, the printer choice after a
    // choice, the about box.
    void altre()
    {
        AspettoPredefinito(m_->stato.settings);
        confronta(m_->apri<FrmOpzioni>().get(), QStringLiteral("opzioni"));
        confronta(m_->apri<FrmAccesso>().get(), QStringLiteral("accesso"));
        m_->stampante.stampanti = {QStringLiteral("Ufficio"), QStringLiteral("Aula 2"), QStringLiteral("PDF")};
        m_->stato.fogli.SceltaStampanteArmata = true;
        auto scelta = m_->apri<frmSceltaStampante>();
        Utente{scelta.get()}.esegui(QStringLiteral("Down"));
        confronta(scelta.get(), QStringLiteral("scelta-stampante"));
        scelta.reset();
        FrmAutore autore;
        autore.show();
        QVERIFY(QTest::qWaitForWindowActive(&autore));
        confronta(&autore, QStringLiteral("autore"));
    }
};

QTEST_MAIN(TestSchermate)
#include "tst_schermate.moc"
