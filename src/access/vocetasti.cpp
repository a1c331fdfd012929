#include "access/vocetasti.h"

#include "access/scansioneautomatica.h"
#include "content/parole.h"
#include "stato/stato.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QVariant>
#include <QWidget>

VoceTasti::VoceTasti(Stato &stato) : stato_(stato) {}

QString VoceTasti::nome(const QWidget *w)
{
    const QVariant parlato = w->property("parlato");
    if (parlato.isValid())
        return parlato.toString();
    QString testo = w->accessibleName();
    if (const auto *b = qobject_cast<const QAbstractButton *>(w); b && testo.isEmpty())
        testo = b->text();
    // A list is said with the entry it shows: each press picks the next one.
    if (const auto *c = qobject_cast<const QComboBox *>(w))
        testo = testo.isEmpty() ? c->currentText() : testo + QStringLiteral(": ") + c->currentText();
    return ParolaTasto(testo);
}

bool VoceTasti::eventFilter(QObject *o, QEvent *e)
{
    if (e->type() != QEvent::FocusIn || !stato_.accesso.voce || !stato_.accesso.voceTasti || !o->isWidgetType())
        return false;
    const auto reason = static_cast<QFocusEvent *>(e)->reason();
    auto *w = static_cast<QWidget *>(o);
    if ((reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) && ScansioneAutomatica::tasto(w)) {
        if (!daNominare_)
            QMetaObject::invokeMethod(this, &VoceTasti::nomina, Qt::QueuedConnection);
        daNominare_ = w;
        dettiPrima_ = stato_.detti;
    }
    return false;
}

void VoceTasti::nomina()
{
    QWidget *w = std::exchange(daNominare_, nullptr);
    if (w && w == QApplication::focusWidget() && stato_.detti == dettiPrima_)
        stato_.parla(nome(w));
}
