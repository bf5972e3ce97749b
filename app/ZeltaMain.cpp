#include "app/look/DesktopLook.h"
#include "app/model/AppModel.h"
#include "app/model/LaunchArguments.h"
#include "app/model/SystemClock.h"
#include "app/shell/Lifetime.h"
#include "app/shell/MainWindow.h"
#include "app/shell/Memory.h"

#include <fontconfig/fontconfig.h>

#include <QApplication>
#include <cstdio>
#include <memory>
#include <thread>
#include <utility>

namespace {

constexpr const char* help = "Usage: zelta-basic [-ZeltaBasicDatabase PATH]\n"
                             "Calculator, percentages, units, dates and notes in one window.\n"
                             "\n"
                             "  -ZeltaBasicDatabase PATH  keep everything in this file\n"
                             "  --version                 print the version and exit\n"
                             "  --help                    print this text and exit\n";

} // namespace

int main(int argc, char** argv)
{
    using namespace zelta;

    const auto count = static_cast<std::size_t>(argc > 0 ? argc - 1 : 0);
    const LaunchArguments arguments = parseLaunchArguments({argv + (argc > 0 ? 1 : 0), count});
    if (arguments.complaint)
        std::fprintf(stderr, "%s\n", arguments.complaint->c_str());
    switch (arguments.request) {
    case LaunchArguments::Request::refuse:
        return 2;
    case LaunchArguments::Request::version:
        std::puts("zelta-basic " ZELTA_VERSION);
        return 0;
    case LaunchArguments::Request::help:
        std::fputs(help, stdout);
        return 0;
    case LaunchArguments::Request::run:
        break;
    }

    Memory::useOneHeap();
    // Opening the database, reading the font configuration and asking the X server take some milliseconds
    // each, so they go side by side.
    std::unique_ptr<Store> store;
    std::jthread beside([&store, &arguments] {
        store = AppModel::launchStore(arguments.database);
        FcInit();
    });
    int onlyTheName
        = argc > 0 ? 1 : 0; // The rest has been read; Qt has options of its own that are not ours.
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
    window.show();
    // Qt would paint once the window manager has made room for the window; this way both work at the same
    // time. What is still to be laid out comes first, or the picture would be painted twice.
    QCoreApplication::sendPostedEvents();
    window.setAttribute(Qt::WA_Mapped);
    window.repaint();
    return QApplication::exec();
}
