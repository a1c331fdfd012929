#pragma once
// Children double-click everything. Installed on the application, this makes
// a double click on any button one press: the second press of the pair is
// dropped before the button sees it, so "STAMPA" prints one page, not two.
#include <QAbstractButton>
#include <QEvent>

class UnaPressione : public QObject
{
protected:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        return e->type() == QEvent::MouseButtonDblClick && qobject_cast<QAbstractButton *>(o);
    }
};
