#pragma once
// A key pressed and released on whatever has the focus, as a keyboard does,
// for the benches that drive the real program.
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

inline void tasto(Qt::Key k, const QString &testo)
{
    QWidget *f = QApplication::focusWidget();
    if (!f)
        return;
    QKeyEvent giu(QEvent::KeyPress, k, Qt::NoModifier, testo);
    QApplication::sendEvent(f, &giu);
    QKeyEvent su(QEvent::KeyRelease, k, Qt::NoModifier, testo);
    QApplication::sendEvent(f, &su);
    QApplication::processEvents();
}
