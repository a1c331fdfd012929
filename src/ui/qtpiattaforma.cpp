#include "ui/qtpiattaforma.h"

#include <QApplication>
#include <QMessageBox>
#include <QDateTime>
#include <QTime>
#include <cstring>

double QtClock::Timer() const
{
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

namespace {
std::uint64_t mescola(std::uint64_t z)
{
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}
} // namespace

QtRandom::QtRandom()
    : stato_(mescola(std::uint64_t(QDateTime::currentMSecsSinceEpoch()) ^ std::uint64_t(quintptr(this))))
{
}

void QtRandom::Randomize(double seed)
{
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof seed);
    std::memcpy(&bits, &seed, sizeof bits);
    stato_ = mescola(stato_ ^ mescola(bits));
}

double QtRandom::Rnd()
{
    // splitmix64; 53 random bits: uniform in [0, 1), never 1.
    stato_ += 0x9e3779b97f4a7c15ULL;
    return double(mescola(stato_) >> 11) * 0x1.0p-53;
}

void QtMessageBox::mostra(const QString &testo, const QString &titolo, Icona icona)
{
    QMessageBox box(icona == Icona::Critica ? QMessageBox::Critical : QMessageBox::NoIcon,
                    titolo.isEmpty() ? QApplication::applicationName() : titolo, testo,
                    QMessageBox::Ok, QApplication::activeWindow());
    box.setAccessibleName(testo);
    box.exec();
}
