#pragma once
// Runs `poi` once, on the event loop's next turn after the first paint of
// `w`: what the first frame does not show waits until the pupil can see it.
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <functional>

class DopoPrimoDisegno : public QObject
{
public:
    DopoPrimoDisegno(QWidget *w, std::function<void()> poi) : QObject(w), poi_(std::move(poi))
    {
        w->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Paint) {
            o->removeEventFilter(this);
            QTimer::singleShot(0, parent(), poi_);
            deleteLater();
        }
        return false;
    }

private:
    std::function<void()> poi_;
};
