// Preloaded into every child of bench_avvio (LD_PRELOAD), so that the real
// executables report the moment their first window is exposed without a line
// of measuring code in them. Qt calls the start-up function from the
// QCoreApplication constructor; from then on an application-wide event filter
// watches for the first exposed window.
#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <sys/resource.h>
#include <unistd.h>

namespace {

class Traguardo : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *o, QEvent *e) override
    {
        if (e->type() == QEvent::Expose && o->isWindowType() && static_cast<QWindow *>(o)->isExposed()) {
            // Reported once the exposing paint is over; then the child leaves
            // at once, as tearing down is not part of starting up.
            QTimer::singleShot(0, [] {
                rusage u{};
                getrusage(RUSAGE_SELF, &u);
                std::printf("pronto %ld\n", u.ru_maxrss);
                std::fflush(stdout);
                _exit(0);
            });
        }
        return false;
    }
};

void installa()
{
    QCoreApplication *app = QCoreApplication::instance();
    app->installEventFilter(new Traguardo(app));
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(installa)
