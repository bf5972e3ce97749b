/// From a key press in a number field to the painted answer, in the real window with every part of it: the
/// slowest and the common case of what a typing person waits for. One frame is 16 ms.

#include "app/components/ResultLine.h"
#include "app/look/DesktopLook.h"
#include "app/model/AppModel.h"
#include "app/model/SystemClock.h"
#include "app/shell/MainWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using namespace zelta;

constexpr double frame = 16; // milliseconds
constexpr int warmUps = 50;
constexpr int samples = 1000;

/// Sees when the watched widget has been painted with the window around it.
class PaintWatch final : public QObject
{
public:
    explicit PaintWatch(QWidget* widget)
        : QObject(widget)
    {
        widget->installEventFilter(this);
    }

    bool painted = false;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        painted = painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

QLineEdit* field(const QWidget& window, const QString& name)
{
    for (QLineEdit* candidate : window.findChildren<QLineEdit*>()) {
        if (candidate->accessibleName() == name)
            return candidate;
    }
    return nullptr;
}

void press(QWidget* target, Qt::Key key, const QString& text)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &up);
}

/// Milliseconds from each press until its answer stands painted: digits come and go, so every press changes
/// it.
std::vector<double> measure(QLineEdit* target, PaintWatch& watch)
{
    std::vector<double> times;
    for (int i = 0; i < warmUps + samples; ++i) {
        const bool typing = i % 8 < 4;
        watch.painted = false;
        QElapsedTimer timer;
        timer.start();
        if (typing)
            press(target, Qt::Key_7, QStringLiteral("7"));
        else
            press(target, Qt::Key_Backspace, {});
        while (!watch.painted)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (i >= warmUps)
            times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    std::ranges::sort(times);
    return times;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const DesktopLook look(application);
    const QTemporaryDir folder;
    SystemClock clock;
    auto store = std::make_unique<Store>(folder.filePath(QStringLiteral("bench.sqlite")).toStdString());
    store->setSetting("module", "percent");
    AppModel model(std::move(store), clock);
    MainWindow window(model);
    window.show();

    QLineEdit* x = field(window, QStringLiteral("Value X"));
    QLineEdit* y = field(window, QStringLiteral("Value Y"));
    if (x == nullptr || y == nullptr)
        return 1;
    y->setFocus();
    press(y, Qt::Key_3, QStringLiteral("3"));
    x->setFocus();
    press(x, Qt::Key_5, QStringLiteral("5"));
    QApplication::processEvents();

    PaintWatch watch(window.findChild<ResultLine*>()->findChild<QLabel*>());
    const std::vector<double> times = measure(x, watch);
    const double median = times.at(times.size() / 2);
    const double high = times.at(times.size() * 95 / 100);
    std::printf("key press to painted answer: median %.2f ms, 95 %% within %.2f ms, at most %.2f ms\n",
                median, high, times.back());
    std::printf("ratio key-to-paint %.3f budget 1.0\n", high / frame);
    return 0;
}
