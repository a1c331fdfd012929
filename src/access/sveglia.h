#pragma once
// One alarm at a time, so that scanning and held presses can be driven by a
// test's clock instead of the wall clock.
#include <QTimer>
#include <functional>

class ISveglia
{
public:
    virtual ~ISveglia() = default;
    // Rings once, `secondi` from now; a new call replaces the previous one.
    virtual void punta(double secondi) = 0;
    virtual void ferma() = 0;
    virtual bool puntata() const = 0;
    std::function<void()> suona;
};

class QtSveglia final : public ISveglia
{
public:
    QtSveglia()
    {
        timer_.setSingleShot(true);
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, [this] {
            if (suona)
                suona();
        });
    }
    void punta(double secondi) override { timer_.start(int(secondi * 1000.0 + 0.5)); }
    void ferma() override { timer_.stop(); }
    bool puntata() const override { return timer_.isActive(); }

private:
    QTimer timer_;
};
