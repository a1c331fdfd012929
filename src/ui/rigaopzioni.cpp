#include "ui/rigaopzioni.h"

#include "content/errori.h"
#include "ui/confine.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QWidget>

#include <utility>

namespace {

// Text on the key must stay readable whatever colour the user picked for
// scanning, so it flips to white on dark backgrounds.
QColor coloreTesto(const QColor &sfondo)
{
    return qGray(sfondo.rgb()) < 128 ? QColor(Qt::white) : QColor(Qt::black);
}

constexpr const char *kProprieta = "rigaOpzioni";
constexpr const char *kGruppo = "gruppoTasti";

bool isTasto(const QEvent *e)
{
    return e->type() == QEvent::KeyPress || e->type() == QEvent::KeyRelease;
}

// The frame of a group of keys. Drawn only while it has the focus: a black
// border round the group on the focus colour. Keys typed meanwhile go to the
// key the pupil was last on, as if the frame were not there.
class CorniceGruppo : public QWidget
{
public:
    CorniceGruppo(QWidget *parent, const QColor &colore) : QWidget(parent), fuoco(colore)
    {
        // Before anything asks for its accessible face, which is then kept.
        setProperty(kGruppo, true);
        setFocusPolicy(Qt::NoFocus);
    }
    std::function<QWidget *()> inoltro;
    std::function<void(bool)> illumina; // the group's keys in the focus colour, or back
    QColor fuoco;

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!hasFocus())
            return;
        QPainter p(this);
        p.fillRect(rect(), fuoco);
        p.setPen(QPen(Qt::black, kMargine));
        p.drawRect(rect().adjusted(kMargine / 2, kMargine / 2, -kMargine / 2 - 1, -kMargine / 2 - 1));
    }
    bool event(QEvent *e) override
    {
        if (e->type() == QEvent::KeyPress || e->type() == QEvent::KeyRelease)
            if (QWidget *w = inoltro ? inoltro() : nullptr)
                return QCoreApplication::sendEvent(w, e);
        if (e->type() == QEvent::FocusIn || e->type() == QEvent::FocusOut) {
            if (illumina)
                illumina(e->type() == QEvent::FocusIn);
            update();
        }
        return QWidget::event(e);
    }

public:
    static constexpr int kMargine = 3; // half the narrowest gap between two keys
};

// For a screen reader, and for whatever follows the focus over the
// accessibility tree, a lit group is a key to press, with its keys inside.
class AccessibileGruppo : public QAccessibleWidget
{
public:
    explicit AccessibileGruppo(QWidget *w) : QAccessibleWidget(w, QAccessible::Button) {}
    QAccessible::State state() const override
    {
        QAccessible::State s = QAccessibleWidget::state();
        s.focusable = true;
        return s;
    }
};

QAccessibleInterface *fabbricaGruppi(const QString &, QObject *o)
{
    return o && o->isWidgetType() && o->property(kGruppo).isValid() ? new AccessibileGruppo(static_cast<QWidget *>(o))
                                                                     : nullptr;
}

} // namespace

RigaOpzioni::RigaOpzioni(QWidget *parent, const QStringList &captions, const QString &nome)
    : RigaOpzioni(parent, captions, nome, Opzioni{})
{
}

RigaOpzioni::RigaOpzioni(QWidget *parent, const QStringList &captions, const QString &nome,
                         Opzioni opzioni)
    : QObject(parent), opzioni_(std::move(opzioni))
{
    bottoni_.reserve(captions.size());
    for (int i = 0; i < captions.size(); ++i) {
        auto *b = new QPushButton(captions.at(i), parent);
        b->setObjectName(QStringLiteral("%1(%2)").arg(nome).arg(i));
        // Tab reaches the key; a press gives it the focus through the row
        // (see eventFilter). A click policy would let the system give the
        // focus back on the second press of a double click, after the choice
        // has moved it on: "Verifica" double-clicked would keep the focus, and
        // the next press of the switch would verify the same answer again.
        b->setFocusPolicy(Qt::TabFocus);
        b->setCheckable(false);
        b->setAutoDefault(false);
        b->setDefault(false);
        b->installEventFilter(this);
        // Guarded: the row goes before its buttons when the screen is destroyed.
        b->setProperty(kProprieta, QVariant::fromValue(QPointer<QObject>(this)));
        // Mouse and keys never reach clicked(): only a press asked for from
        // outside does, such as a screen reader's "Press" action. It chooses
        // the key as a mouse press would.
        connect(b, &QPushButton::clicked, this, [this, i] { confine([&] { emit scelto(i); }); });
        bottoni_.append(b);
        dipingi(b, opzioni_.riposo);
    }
}

QPushButton *RigaOpzioni::bottone(int i) const
{
    if (i < 0 || i >= bottoni_.size())
        throw ErroreIntervallo("button index out of range");
    return bottoni_.at(i);
}

int RigaOpzioni::count() const
{
    return int(bottoni_.size());
}

int RigaOpzioni::indice(const QObject *bottone) const
{
    for (int i = 0; i < bottoni_.size(); ++i)
        if (bottoni_.at(i) == bottone)
            return i;
    return -1;
}

int RigaOpzioni::indiceFuoco() const
{
    for (int i = 0; i < bottoni_.size(); ++i)
        if (bottoni_.at(i)->hasFocus())
            return i;
    return -1;
}

bool RigaOpzioni::pronto(int i) const
{
    return bottoni_.at(i)->isEnabled() && !bottoni_.at(i)->isHidden();
}

void RigaOpzioni::passo()
{
    passoDa(indiceFuoco());
}

// A disabled or hidden widget cannot take the focus in Qt. When disabled keys
// are not skipped, a step onto one of them therefore leaves the focus where
// it was. When they are skipped, hidden keys are skipped too, or the scan
// would stop for good on a key the pupil cannot see. A row with no key able
// to take the focus leaves the focus alone.
void RigaOpzioni::passoDa(int da)
{
    const int n = count();
    if (n == 0)
        return;
    int i = da + 1 >= n ? 0 : da + 1;
    if (opzioni_.saltaDisabilitati) {
        int giri = 0;
        while (!pronto(i)) {
            if (++giri >= n)
                return;
            i = i + 1 >= n ? 0 : i + 1;
        }
    }
    bottoni_.at(i)->setFocus(Qt::TabFocusReason);
}

void RigaOpzioni::scegli(int i)
{
    emit scelto(i);
}

void RigaOpzioni::invio(int i)
{
    QKeyEvent invio(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    if (tasto)
        confine([&] { tasto(i, &invio); });
    else
        confine([&] { emit scelto(i); });
}

RigaOpzioni *RigaOpzioni::di(const QObject *bottone)
{
    return bottone ? qobject_cast<RigaOpzioni *>(bottone->property(kProprieta).value<QPointer<QObject>>().data())
                   : nullptr;
}

void RigaOpzioni::setGruppi(const QList<Gruppo> &gruppi)
{
    static const bool fabbrica = (QAccessible::installFactory(fabbricaGruppi), true);
    Q_UNUSED(fabbrica);
    gruppi_ = gruppi;
    for (int g = 0; g < gruppi_.size(); ++g) {
        QRect r;
        for (int i : gruppi_.at(g).ordine)
            r |= bottone(i)->geometry();
        const int m = CorniceGruppo::kMargine;
        auto *c = new CorniceGruppo(bottone(gruppi_.at(g).ordine.value(0))->parentWidget(), opzioni_.fuoco);
        c->setObjectName(QStringLiteral("%1.gruppo(%2)").arg(bottone(0)->objectName().section(u'(', 0, 0)).arg(g));
        c->setAccessibleName(gruppi_.at(g).nome);
        c->setGeometry(r.adjusted(-m, -m, m, m));
        c->setProperty(kProprieta, QVariant::fromValue(QPointer<QObject>(this)));
        c->inoltro = [this]() -> QWidget * { return ultimo_; };
        // The whole group lights up, as a row does in row-and-column scanning.
        c->illumina = [this, g](bool si) {
            for (int i : gruppi_.at(g).ordine)
                dipingi(bottoni_.at(i), si || bottoni_.at(i)->hasFocus() ? opzioni_.fuoco : opzioni_.riposo);
        };
        // The keys go inside, where they were: same window, so the Tab
        // order stays as it was.
        for (int i : gruppi_.at(g).ordine) {
            QPushButton *b = bottone(i);
            const QRect q = b->geometry().translated(-c->pos());
            b->setParent(c);
            b->setGeometry(q);
            b->show();
        }
        c->lower();
        cornici_.append(c);
    }
}

int RigaOpzioni::quantiGruppi() const
{
    return int(gruppi_.size());
}

QWidget *RigaOpzioni::gruppo(int g) const
{
    return cornici_.value(g);
}

const QList<int> &RigaOpzioni::ordine(int g) const
{
    return gruppi_.at(g).ordine;
}

int RigaOpzioni::gruppoDi(const QWidget *w) const
{
    const int i = indice(w);
    for (int g = 0; g < gruppi_.size(); ++g)
        if (cornici_.at(g) == w || (i >= 0 && gruppi_.at(g).ordine.contains(i)))
            return g;
    return -1;
}

bool RigaOpzioni::gruppoAttivo(int g) const
{
    for (int i : gruppi_.at(g).ordine)
        if (pronto(i))
            return true;
    return false;
}

void RigaOpzioni::setColori(const QColor &fuoco, const QColor &riposo)
{
    opzioni_.fuoco = fuoco;
    opzioni_.riposo = riposo;
    for (QPushButton *b : std::as_const(bottoni_))
        dipingi(b, b->hasFocus() ? fuoco : riposo);
    for (QWidget *c : std::as_const(cornici_))
        static_cast<CorniceGruppo *>(c)->fuoco = fuoco;
}

const RigaOpzioni::Opzioni &RigaOpzioni::opzioni() const
{
    return opzioni_;
}

bool RigaOpzioni::flagPasso() const
{
    return flagPasso_;
}

bool RigaOpzioni::flagTasto() const
{
    return flagTasto_;
}

bool RigaOpzioni::eventFilter(QObject *watched, QEvent *event)
{
    // A button being destroyed is no longer a QPushButton here.
    auto *b = qobject_cast<QPushButton *>(watched);
    const int i = b ? indice(b) : -1;
    if (i < 0)
        return QObject::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::FocusIn:
        ultimo_ = b;
        b->setDown(false);
        dipingi(b, opzioni_.fuoco);
        return false;
    case QEvent::FocusOut:
        dipingi(b, opzioni_.riposo);
        b->setDown(false);
        return false;
    default:
        break;
    }

    if (isTasto(event)) {
        auto *k = static_cast<QKeyEvent *>(event);
        if (event->type() == QEvent::KeyPress)
            premuto(i, k);
        else
            rilasciato(b, k);
        // QPushButton would click on Space and move the focus on Tab or the
        // arrows: the row decides what every key does.
        return true;
    }

    if (event->type() == QEvent::MouseButtonDblClick) {
        // The second press of a double click: the first one has chosen
        // already, and a double click is one press.
        b->setDown(false);
        return true;
    }
    if (event->type() == QEvent::MouseButtonPress) {
        if (opzioni_.flag == Flag::PerEvento)
            flagPasso_ = flagTasto_ = false;
        // The press is swallowed, so give the focus as a click would, before
        // the choice: the screen may move it on to the next row.
        if (!b->hasFocus())
            b->setFocus(Qt::MouseFocusReason);
        b->setDown(false);
        if (opzioni_.mouseImpostaFlagTasto)
            flagTasto_ = true;
        confine([&] { emit scelto(i); });
        return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
        // Swallowed as well, so clicked() never fires on top of the choice.
        b->setDown(false);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void RigaOpzioni::premuto(int i, QKeyEvent *k)
{
    if (opzioni_.flag == Flag::PerEvento)
        flagPasso_ = flagTasto_ = false;

    if (!flagTasto_) {
        if (tasto) {
            bool accettato = false;
            confine([&] { accettato = tasto(i, k); });
            if (accettato)
                flagTasto_ = true;
        } else if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
            flagTasto_ = true;
            const int f = indiceFuoco();
            confine([&] { emit scelto(f >= 0 ? f : i); });
        }
    }

    if (k->text() == QLatin1String(" ") && !flagPasso_) {
        // The key handler may have moved the focus already: step from there.
        const int f = indiceFuoco();
        passoDa(f >= 0 ? f : i);
        flagPasso_ = true;
    }
}

void RigaOpzioni::rilasciato(QPushButton *b, QKeyEvent *k)
{
    b->setDown(false);
    // While a key is held the keyboard repeats release and press pairs; only
    // the real release ends the press, so that a held key acts once.
    if (k->isAutoRepeat() && opzioni_.flag == Flag::PerRiga)
        return;
    flagPasso_ = flagTasto_ = false;
}

void RigaOpzioni::dipingi(QPushButton *b, const QColor &c)
{
    b->setDown(false);
    // A thicker dark border marks the focused key, so it stands out without
    // relying on colour alone.
    const bool fuoco = b->hasFocus();
    const QString bordo = fuoco ? QStringLiteral("4px solid #000000")
                                : QStringLiteral("1px solid %1").arg(c.darker(170).name());
    b->setStyleSheet(QStringLiteral("QPushButton { background-color: %1; color: %2; border: %3;"
                                    " border-radius: 10px; padding: 2px; }"
                                    " QPushButton:disabled { color: #7a7a7a; }")
                         .arg(c.name(), coloreTesto(c).name(), bordo));
}
