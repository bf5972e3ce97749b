#include "app/model/SystemClock.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <QTimer>
#include <utility>

namespace zelta {

namespace {

constexpr auto longDelay = std::chrono::seconds(10);

/// A timer of the kernel that goes on while the computer sleeps; null where there is none to be had.
std::shared_ptr<QSocketNotifier> timerThroughSleep(std::chrono::milliseconds delay)
{
    const int timer = timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC);
    if (timer < 0)
        return nullptr;
    const auto seconds = std::chrono::floor<std::chrono::seconds>(delay);
    itimerspec when {};
    when.it_value.tv_sec = seconds.count();
    when.it_value.tv_nsec = std::chrono::nanoseconds(delay - seconds).count();
    timerfd_settime(timer, 0, &when, nullptr);
    // Released from within its own signal as well, hence deleteLater.
    return {new QSocketNotifier(timer, QSocketNotifier::Read), [](QSocketNotifier* notifier) {
                notifier->setEnabled(false);
                close(static_cast<int>(notifier->socket()));
                notifier->deleteLater();
            }};
}

} // namespace

Instant SystemClock::now() const
{
    return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now());
}

std::shared_ptr<void> SystemClock::schedule(std::chrono::milliseconds delay, Fire fire)
{
    if (delay >= longDelay) {
        if (const auto notifier = timerThroughSleep(delay)) {
            QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                             [raw = notifier.get(), fire = std::move(fire)] {
                                 raw->setEnabled(false); // or it would be called again and again
                                 fire();
                             });
            return notifier;
        }
    }
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
