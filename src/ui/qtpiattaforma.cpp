#include "ui/qtpiattaforma.h"

#include <QApplication>
#include <QMessageBox>
#include <QTime>
#include <cstring>

double QtClock::Timer() const
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

void QtRandom::Randomize(double seed)
{
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof seed);
    std::memcpy(&bits, &seed, sizeof bits);
    gen_.seed(bits);
}

double QtRandom::Rnd()
{
    // 53 random bits: uniform in [0, 1), never 1.
    return double(gen_() >> 11) * 0x1.0p-53;
}

void QtMessageBox::mostra(const QString &testo, const QString &titolo, Icona icona)
{
    QMessageBox box(icona == Icona::Critica ? QMessageBox::Critical : QMessageBox::NoIcon,
                    titolo.isEmpty() ? QApplication::applicationName() : titolo, testo,
                    QMessageBox::Ok, QApplication::activeWindow());
    box.setAccessibleName(testo);
    box.exec();
}
