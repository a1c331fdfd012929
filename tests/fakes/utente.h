#pragma once
// A user at the keyboard and the mouse. Steps, one a word:
//   Return  Space  Tab  V  3  ,  Backspace  Ctrl+P   a key tapped, by name
//   K3                      a digit of the numeric pad
//   Space*3                 a key held down while the keyboard repeats it 3 times
//   Tab+  Tab-              a key only pressed, only released
//   click:<control>         the mouse pressed and released on a control;
//   dclick:<control>        a double click, as the system sends it
//   scan:<control>          Space until the control has the focus, then Return
//   tab:<control>           Tab until the control has the focus (the arrows
//                           within a group of radio buttons)
// UTENTE_TRACCIA=1 in the environment logs every step with the focus before it.
// Keys go to the window that has the focus and on to the widget that has it at
// that moment, as a keyboard's do: a release after a press that moved the focus
// lands where the focus went. The mouse goes to the control's window, at the
// control; whatever lies on top there gets it.
#include <QApplication>
#include <QKeySequence>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <functional>

struct Utente {
    QWidget *finestra;
    // Steps of a test's own; returns false for a step it does not know.
    std::function<bool(const QString &passo)> altro = nullptr;

    QWidget *controllo(const QString &nome) const { return finestra->findChild<QWidget *>(nome); }
    static QString fuoco() { return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : "(none)"; }

    static void tasto(QEvent::Type t, int key, Qt::KeyboardModifiers m = {}, bool ripetuto = false)
    {
        const char c = QTest::keyToAscii(Qt::Key(key));
        QWindow *w = QGuiApplication::focusWindow();
        if (!w) // no window in front: the keys go nowhere
            return;
        qt_handleKeyEvent(w, t, key, m, c && !(m & Qt::ControlModifier) ? QString(QChar::fromLatin1(c)) : QString(),
                          ripetuto);
        QCoreApplication::processEvents();
    }
    static void premi(int key, Qt::KeyboardModifiers m = {})
    {
        tasto(QEvent::KeyPress, key, m);
        tasto(QEvent::KeyRelease, key, m);
    }

    void esegui(const QString &passi)
    {
        static const QRegularExpression chiave(QStringLiteral(R"(^(K(?=\d$))?(.+?)(\*(\d+)|\+|-)?$)"));
        for (const QString &p : passi.split(u' ', Qt::SkipEmptyParts)) {
            if (qEnvironmentVariableIsSet("UTENTE_TRACCIA")) // to follow a script that goes astray
                qInfo("%s, with the focus on %s", qPrintable(p), qPrintable(fuoco()));
            if (QTest::currentTestFailed() || (altro && altro(p)))
                continue;
            const QString azione = p.section(u':', 0, 0), nome = p.section(u':', 1);
            QWidget *c = controllo(nome);
            if (azione == QLatin1String("click") || azione == QLatin1String("dclick")) {
                QVERIFY2(c, qPrintable(p));
                // A radio button answers only on its mark and caption.
                const QPoint qui = c->mapTo(c->window(), qobject_cast<QRadioButton *>(c) ? QPoint(8, c->height() / 2)
                                                                                          : c->rect().center());
                QTest::mouseEvent(azione == QLatin1String("click") ? QTest::MouseClick : QTest::MouseDClick,
                                  c->window()->windowHandle(), Qt::LeftButton, {}, qui);
            } else if (azione == QLatin1String("scan")) {
                for (int i = 0; i < 40 && fuoco() != nome; ++i)
                    premi(Qt::Key_Space);
                QCOMPARE(fuoco(), nome);
                premi(Qt::Key_Return);
            } else if (azione == QLatin1String("tab")) {
                for (int i = 0; i < 60 && c && QApplication::focusWidget() != c; ++i) {
                    const QWidget *f = QApplication::focusWidget();
                    const bool gruppo = qobject_cast<const QRadioButton *>(c) && qobject_cast<const QRadioButton *>(f) &&
                                        f->parent() == c->parent();
                    premi(gruppo ? Qt::Key_Down : Qt::Key_Tab);
                }
                QCOMPARE(fuoco(), nome);
            } else {
                const QRegularExpressionMatch m = chiave.match(p);
                const QKeyCombination k = QKeySequence::fromString(m.captured(2))[0];
                QVERIFY2(k.key() != Qt::Key_unknown && k.key() != 0, qPrintable(p));
                const Qt::KeyboardModifiers mod = k.keyboardModifiers() | (m.hasCaptured(1) ? Qt::KeypadModifier : Qt::NoModifier);
                const QString fine = m.captured(3);
                if (fine != u'-')
                    tasto(QEvent::KeyPress, k.key(), mod);
                for (int i = 0; i < 2 * m.captured(4).toInt(); ++i) // release, press, release, ...
                    tasto(i % 2 ? QEvent::KeyPress : QEvent::KeyRelease, k.key(), mod, true);
                if (fine != u'+')
                    tasto(QEvent::KeyRelease, k.key(), mod);
            }
        }
    }
};
