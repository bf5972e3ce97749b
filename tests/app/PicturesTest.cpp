#include "tests/app/support/ByWords.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractButton>
#include <QPointer>
#include <map>
#include <string>
#include <utility>

namespace zelta {
namespace {

/// Where each widget of a window was when it was painted.
class Places final : public QObject
{
public:
    explicit Places(QWidget& window)
        : m_window(window)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    void clear() { m_painted.clear(); }
    [[nodiscard]] int paintCount() const { return m_paintCount; }

    /// Widgets that a picture showed elsewhere than where they are now, or that are hidden by now.
    [[nodiscard]] std::string moved() const
    {
        std::string names;
        for (const auto& [address, seen] : m_painted) {
            if (!seen.widget)
                names += "one that is gone ";
            else if (!seen.widget->isVisible() || placeOf(*seen.widget) != seen.place)
                names += std::string(seen.widget->metaObject()->className()) + " ";
        }
        return names;
    }

    /// Widgets that were painted more than once.
    [[nodiscard]] std::string repainted() const
    {
        std::string names;
        for (const auto& [address, seen] : m_painted) {
            if (seen.count > 1)
                names += seen.widget ? std::string(seen.widget->metaObject()->className()) + " "
                                     : "one that is gone ";
        }
        return names;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) {
            auto* widget = static_cast<QWidget*>(watched);
            m_paintCount += 1;
            if (m_window.isAncestorOf(widget) && !isBar(*widget)) {
                const auto first = m_painted.try_emplace(widget, Seen {widget, placeOf(*widget)}).first;
                first->second.count += 1;
            }
        }
        return false;
    }

private:
    struct Seen
    {
        QPointer<QWidget> widget;
        std::pair<int, int> place; ///< Top and height in the first picture that shows it.
        int count = 0;
    };

    /// A scroll bar comes and goes, with its box, by an event of Qt's own.
    static bool isBar(const QWidget& widget)
    {
        return widget.inherits("QScrollBar")
            || widget.objectName() == QStringLiteral("qt_scrollarea_vcontainer");
    }

    /// From top to bottom: a scroll bar takes room from the right.
    [[nodiscard]] std::pair<int, int> placeOf(const QWidget& widget) const
    {
        return {widget.mapTo(&m_window, QPoint()).y(), widget.height()};
    }

    QWidget& m_window;
    std::map<const QWidget*, Seen> m_painted;
    int m_paintCount = 0;
};

/// Everything stands where it stays when it is shown for the first time.
struct Pictures : test::WindowTest
{
    Places places {window};

    void SetUp() override
    {
        using namespace std::chrono;
        test.clock.setWallClock(sys_days(2026y / November / 15)); // a month of six weeks
        WindowTest::SetUp();
        settle();
    }

    /// Until nothing is painted any more.
    void settle()
    {
        int before = 0;
        do {
            before = places.paintCount();
            QCoreApplication::processEvents();
        } while (places.paintCount() > before);
        places.clear();
    }

    template <typename Action> void expectOneLayout(const Action& action, std::string_view name)
    {
        settle();
        const int before = places.paintCount();
        action();
        QCoreApplication::sendPostedEvents(&window, QEvent::UpdateRequest); // the first that is handled
        ASSERT_TRUE(QTest::qWaitFor([&] { return places.paintCount() > before; })) << name;
        QCoreApplication::processEvents();
        EXPECT_EQ(places.moved(), "") << name;
    }
};

TEST_F(Pictures, ShowEachPageAsItStays)
{
    for (const int height : {620, 760}) {
        window.resize(1120, height);
        for (const Module module : {Module::percent, Module::converter, Module::calendar, Module::notes,
                                    Module::duration, Module::history, Module::settings, Module::calculator})
            expectOneLayout([&] { test.model.setSelection(module); }, rawValue(module));
    }
}

TEST_F(Pictures, ShowEachMonthAsItStays)
{
    test.model.setSelection(Module::calendar);
    for (int i = 0; i < 14; ++i)
        expectOneLayout([] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right); },
                        std::to_string(i));
}

TEST_F(Pictures, ShowASizeAsItStays)
{
    for (const Module module : allCases<Module>()) {
        test.model.setSelection(module);
        for (const QSize size : {QSize(1120, 640), {940, 700}, {1120, 760}})
            expectOneLayout([&] { window.resize(size); }, rawValue(module));
    }
}

TEST_F(Pictures, DoNotChangeWhenTheWindowComesToTheFront)
{
    test.model.setSelection(Module::calendar);
    settle();
    const int before = places.paintCount();
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activated);
    QCoreApplication::processEvents();
    EXPECT_EQ(places.paintCount(), before);
}

TEST_F(Pictures, PaintASizeOnce)
{
    for (int i = 0; i < 30; ++i) {
        const Instant then = test.clock.now() - std::chrono::hours(i);
        ASSERT_TRUE(test.model.store().createNote(Note(0, {{.text = "A note"}}, then, then)));
        ASSERT_TRUE(test.model.store().addHistory({0, then, "percent", "1% of 1", "0.01", "1% of 1 = 0.01"}));
    }
    for (const Module module : allCases<Module>()) {
        test.model.setSelection(module);
        settle();
        window.resize(window.width(), window.height() - 10);
        QCoreApplication::processEvents();
        EXPECT_EQ(places.repainted(), "") << rawValue(module);
    }
}

TEST_F(Pictures, ShowATabAsItStays)
{
    test.model.setSelection(Module::percent);
    settle();
    const auto choose = [this](const char* name) {
        auto* tab = test::named<QAbstractButton>(window, QString::fromLatin1(name));
        ASSERT_NE(tab, nullptr) << name;
        expectOneLayout([tab] { tab->click(); }, name);
    };
    choose("Increase / decrease");
    choose("X is what % of Y");
    test.model.setSelection(Module::converter);
    settle();
    choose("Temperature");
    choose("Length");
}

} // namespace
} // namespace zelta
