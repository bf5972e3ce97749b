#include "app/look/DesktopLook.h"
#include "app/look/Symbols.h"
#include "app/model/AppModel.h"
#include "app/model/LaunchArguments.h"
#include "app/model/SystemClock.h"
#include "app/model/Text.h"
#include "app/shell/Lifetime.h"
#include "app/shell/MainWindow.h"
#include "app/shell/Memory.h"

#include <fcntl.h>
#include <fontconfig/fontconfig.h>
#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QSessionManager>
#include <QStringList>
#include <QThreadPool>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

namespace zelta {
namespace {

constexpr const char* help = "Usage: zelta-basic [-ZeltaBasicDatabase PATH]\n"
                             "Calculator, percentages, units, dates and notes in one window.\n"
                             "\n"
                             "  -ZeltaBasicDatabase PATH  keep everything in this file\n"
                             "  --version                 print the version and exit\n"
                             "  --help                    print this text and exit\n";

/// Takes what whoever starts the program may leave broken. A missing standard stream would be replaced by the
/// next thing that is opened, such as the connection to the X server, and messages would go there. A full
/// file and a message that nobody reads are errors to go on from, no reason to die with words that are not
/// saved yet.
void mendSurroundings()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) == -1)
            open("/dev/null", O_RDWR);
    }
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

/// Qt takes this variable out of the environment, while the thread beside it reads others: those behind it
/// would move up, and one could be missed. Behind the last there is nothing to move.
void putStartupIdLast()
{
    constexpr auto name = "DESKTOP_STARTUP_ID";
    if (const char* value = std::getenv(name)) { // NOLINT(concurrency-mt-unsafe): no other thread yet
        const std::string id = value;
        unsetenv(name); // NOLINT(concurrency-mt-unsafe)
        setenv(name, id.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    }
}

/// Shows the window and paints it while the window manager still makes room for it; Qt would wait for that.
/// What is still to be laid out comes first, or the picture would be painted twice.
void showPainted(QWidget& window)
{
    window.show();
    QCoreApplication::sendPostedEvents();
    window.setAttribute(Qt::WA_Mapped);
    window.repaint();
}

/// Does what the first picture does not wait for, once it is on the screen: the icon is drawn in several
/// sizes, and what the start has needed for a moment goes back to the system.
class AfterFirstPicture final : public QObject
{
public:
    explicit AfterFirstPicture(QWidget& window)
        : m_window(window)
    {
        using namespace std::chrono_literals;
        m_timer.setSingleShot(true);
        m_timer.callOnTimeout(this, &AfterFirstPicture::finishStart);
        // A window that starts minimised comes onto the screen much later, and its icon at once.
        m_timer.start(m_window.windowHandle()->isExposed() ? 0ms : 1s);
        m_window.windowHandle()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Expose)
            m_timer.start(0); // with this event the picture goes to the screen
        return QObject::eventFilter(watched, event);
    }

private:
    void finishStart()
    {
        m_window.windowHandle()->removeEventFilter(this);
        m_window.setWindowIcon(Symbols::appIcon());
        QThreadPool::globalInstance()->waitForDone(); // ends what Qt has drawn the large ones with
        Memory::giveBack();
    }

    QWidget& m_window;
    QTimer m_timer;
};

/// How a desktop that restores its session starts the program again: Qt would add an option of its own, and
/// leave ours out.
QStringList restartCommand(const Store& store, bool isPlaceGiven)
{
    QStringList command {QCoreApplication::applicationFilePath()};
    std::error_code unknown; // where the working directory has gone
    const std::filesystem::path place = absolute(store.url(), unknown);
    if (isPlaceGiven && !unknown)
        command << QStringLiteral("-ZeltaBasicDatabase") << toQt(place.string());
    return command;
}

int run(int argc, char** argv, const std::optional<std::string>& database)
{
    Memory::useOneHeap();
    putStartupIdLast();
    // Opening the database, reading the font configuration and asking the X server take some milliseconds
    // each, so they go side by side.
    std::unique_ptr<Store> store;
    std::jthread beside([&store, &database] {
        store = AppModel::launchStore(database);
        FcInit();
    });
    // The arguments have been read; Qt has options of its own that are not ours.
    int onlyTheName = std::min(argc, 1);
    QApplication application(onlyTheName, argv);
    QApplication::setApplicationName(QStringLiteral("zelta-basic"));
    QApplication::setApplicationDisplayName(QStringLiteral("Zelta Basic"));
    QApplication::setApplicationVersion(QStringLiteral(ZELTA_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("zelta-basic"));
    QApplication::setQuitOnLastWindowClosed(false);

    DesktopLook look(application);
    SystemClock clock;
    beside.join();
    AppModel model(std::move(store), clock);
    MainWindow window(model);
    const Lifetime lifetime(window, clock);
    look.hearDesktop();
    QObject::connect(&application, &QGuiApplication::saveStateRequest, [&model, &database](auto& session) {
        session.setRestartCommand(restartCommand(model.store(), database.has_value()));
    });
    showPainted(window);
    const AfterFirstPicture rest(window);
    return QApplication::exec();
}

} // namespace
} // namespace zelta

int main(int argc, char** argv)
{
    using zelta::LaunchArguments;

    zelta::mendSurroundings();
    const auto count = static_cast<std::size_t>(argc > 0 ? argc - 1 : 0);
    const LaunchArguments arguments = zelta::parseLaunchArguments({argv + (argc > 0 ? 1 : 0), count});
    if (arguments.complaint)
        std::fprintf(stderr, "%s\n", arguments.complaint->c_str());
    switch (arguments.request) {
    case LaunchArguments::Request::run:
        return zelta::run(argc, argv, arguments.database);
    case LaunchArguments::Request::refuse:
        return 2;
    case LaunchArguments::Request::version:
        std::puts("zelta-basic " ZELTA_VERSION);
        return 0;
    case LaunchArguments::Request::help:
        std::fputs(zelta::help, stdout);
        return 0;
    }
    return 2; // a request that is none
}
