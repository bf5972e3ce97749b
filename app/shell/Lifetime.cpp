#include "app/shell/Lifetime.h"

#include "app/model/Clock.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <QWidget>
#include <array>
#include <cerrno>
#include <csignal>

namespace zelta {
namespace {

/// A signal handler may do next to nothing; it writes a byte, and the event loop reads it.
std::array<int, 2> signalPipe {-1, -1};

void onSignal(int)
{
    const int error = errno; // of whatever was interrupted
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signalPipe[1], &byte, 1);
    errno = error;
}

/// Qt ends the process by itself, deep below the event loop, when the X server goes. What belongs to the
/// thread that calls exit() is destroyed while everything else still stands.
struct SaveAtExit
{
    Clock* clock = nullptr; ///< While there is a window.

    SaveAtExit() = default;
    ~SaveAtExit()
    {
        if (clock != nullptr)
            clock->runSaves();
    }
    SaveAtExit(const SaveAtExit&) = delete;
    SaveAtExit& operator=(const SaveAtExit&) = delete;
};
thread_local SaveAtExit saveAtExit;

} // namespace

Lifetime::Lifetime(QWidget& window, Clock& clock)
    : m_window(window)
    , m_clock(clock)
{
    qApp->installEventFilter(this);
    // Queued: one save may be called off only to make room for the next, as a row that hands on its text
    // does.
    m_clock.setSavesSettledHandler(
        [this] { QMetaObject::invokeMethod(this, &Lifetime::quitWhenSaved, Qt::QueuedConnection); });
    watchSignals();
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { m_clock.runSaves(); });
    saveAtExit.clock = &clock;
}

Lifetime::~Lifetime()
{
    m_clock.setSavesSettledHandler({});
    saveAtExit.clock = nullptr;
}

bool Lifetime::eventFilter(QObject* watched, QEvent* event)
{
    // Queued: the window hides only after this event, and its rows hand on their text while it does.
    if (watched == &m_window && event->type() == QEvent::Close) {
        m_closed = true;
        // A signal may come while a question is open, which then goes with its window.
        for (QWidget* other : QApplication::topLevelWidgets()) {
            if (other != &m_window && other->isVisible())
                other->close();
        }
        QMetaObject::invokeMethod(this, &Lifetime::quitWhenSaved, Qt::QueuedConnection);
    } else if (event->type() == QEvent::Quit) {
        m_clock.runSaves();
    }
    return QObject::eventFilter(watched, event);
}

void Lifetime::watchSignals()
{
    if (pipe2(signalPipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    auto* notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (read(signalPipe[0], &byte, 1) > 0) { }
        m_window.close();
    });
    struct sigaction action
    { };
    action.sa_handler
        = onSignal; // NOLINT(cppcoreguidelines-pro-type-union-access): the union is the system's
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before
        { };
        sigaction(signal, nullptr, &before);
        if (before.sa_handler != SIG_IGN) // NOLINT(cppcoreguidelines-pro-type-union-access): as above
            sigaction(signal, &action, nullptr); // "nohup" has it ignored
    }
}

void Lifetime::quitWhenSaved()
{
    if (m_closed && !m_clock.hasPendingSaves())
        QCoreApplication::quit();
}

} // namespace zelta
