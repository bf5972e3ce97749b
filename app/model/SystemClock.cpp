#include "app/model/SystemClock.h"

#include <QTimer>
#include <utility>

namespace zelta {

Instant SystemClock::now() const
{
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::shared_ptr<void> SystemClock::schedule(std::chrono::milliseconds delay, Fire fire)
{
    // Released from within its own timeout as well, hence deleteLater.
    std::shared_ptr<QTimer> timer(new QTimer, [](QTimer* t) {
        t->stop();
        t->deleteLater();
    });
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, timer.get(), std::move(fire));
    timer->start(delay);
    return timer;
}

} // namespace zelta
