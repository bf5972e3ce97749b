#include "app/components/ConfirmDialog.h"
#include "app/components/Label.h"
#include "app/model/AppInfo.h"
#include "app/model/Text.h"
#include "app/pages/SelectableTextEditor.h"
#include "app/shell/Lifetime.h"
#include "app/shell/MainWindow.h"
#include "app/shell/PageChrome.h"
#include "app/shell/Sidebar.h"
#include "app/shell/SidebarRow.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/TestModel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <csignal>

namespace zelta {
namespace {

using namespace std::chrono_literals;

struct ShellTest : testing::Test
{
    test::TestModel test {{{"module", "notes"}}};
    MainWindow window {test.model};

    QMenu* menu(const QString& title)
    {
        for (QAction* action : window.menuBar()->actions()) {
            if (action->text().remove(QLatin1Char('&')) == title)
                return action->menu();
        }
        return nullptr;
    }

    QStringList labels()
    {
        QStringList texts;
        for (const auto* label : window.findChildren<Label*>())
            texts << label->text();
        return texts;
    }

    SidebarRow* row(Module module)
    {
        for (auto* row : window.findChildren<SidebarRow*>()) {
            if (row->text() == toQt(title(module)))
                return row;
        }
        return nullptr;
    }

    void show()
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
};

TEST_F(ShellTest, OpensOnTheRestoredPageAndBuildsNoOther)
{
    show();
    const auto pages = window.findChildren<PageChrome*>();
    ASSERT_EQ(pages.size(), 1);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Notes"));
    EXPECT_TRUE(row(Module::notes)->isChecked());
}

TEST_F(ShellTest, HasTheGivenSizes)
{
    EXPECT_EQ(window.size(), QSize(1120, 760));
    EXPECT_EQ(window.minimumSize(), QSize(940, 620));
    EXPECT_EQ(window.findChild<Sidebar*>()->minimumWidth(), 268);
    EXPECT_EQ(window.findChild<Sidebar*>()->maximumWidth(), 320);
}

TEST_F(ShellTest, ControlAndADigitShowAPageAndStoreIt)
{
    show();
    int key = Qt::Key_1;
    for (const Module module : allCases<Module>()) {
        QTest::keyClick(&window, static_cast<Qt::Key>(key++), Qt::ControlModifier);
        EXPECT_EQ(test.model.selection(), module);
        EXPECT_EQ(test.model.store().setting("module"), rawValue(module));
        EXPECT_EQ(window.windowTitle(), toQt(title(module)));
        EXPECT_TRUE(row(module)->isChecked());
    }
}

TEST_F(ShellTest, ADigitsKeyShowsAPageWhereTheDigitTakesShift)
{
    show();
    const auto press = [](Qt::Key key, quint32 place, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, place, 0, 0);
        QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
    };
    press(Qt::Key_Ampersand, 10 + 1, Qt::ControlModifier); // from a page without fields
    EXPECT_EQ(test.model.selection(), Module::percent);
    press(Qt::Key_Underscore, 10 + static_cast<quint32>(Module::settings),
          Qt::ControlModifier); // from a field
    EXPECT_EQ(test.model.selection(), Module::settings);
    for (const auto& [place, modifiers] : {std::pair<quint32, Qt::KeyboardModifiers>(9, Qt::ControlModifier),
                                           {10 + caseCount<Module>, Qt::ControlModifier},
                                           {10, Qt::NoModifier},
                                           {10, Qt::ControlModifier | Qt::AltModifier}}) {
        press(Qt::Key_Ampersand, place, modifiers);
        EXPECT_EQ(test.model.selection(), Module::settings) << place;
    }
}

TEST_F(ShellTest, TheGoMenuListsThePagesWithTheirKeys)
{
    const auto actions = menu(QStringLiteral("Go"))->actions();
    ASSERT_EQ(actions.size(), static_cast<int>(caseCount<Module>));
    for (int i = 0; i < actions.size(); ++i) {
        EXPECT_EQ(actions[i]->text(), toQt(title(static_cast<Module>(i))));
        EXPECT_EQ(actions[i]->shortcut(), QKeySequence(QStringLiteral("Ctrl+%1").arg(i + 1)));
    }
    actions[static_cast<int>(Module::history)]->trigger();
    EXPECT_EQ(test.model.selection(), Module::history);
}

TEST_F(ShellTest, ThereIsNoNew)
{
    for (const QAction* action : menu(QStringLiteral("File"))->actions())
        EXPECT_FALSE(action->text().contains(QStringLiteral("New")));
    EXPECT_EQ(window.menuBar()->actions().size(), 4);
}

TEST_F(ShellTest, AClickOnASidebarRowShowsItsPage)
{
    show();
    QTest::mouseClick(row(Module::settings), Qt::LeftButton);
    EXPECT_EQ(test.model.selection(), Module::settings);
    EXPECT_EQ(test.model.store().setting("module"), "settings");
}

TEST_F(ShellTest, AssistiveTechnologyChoosesAPage)
{
    show();
    test::toggleAccessibly(*row(Module::settings));
    EXPECT_EQ(test.model.selection(), Module::settings);
    EXPECT_EQ(test.model.store().setting("module"), "settings");
}

TEST_F(ShellTest, TheChosenPageIsSeenWhereTheSidebarHasToScroll)
{
    window.show();
    const QSize small = window.minimumSize();
    for (SidebarRow* each : window.findChildren<SidebarRow*>())
        each->setMinimumHeight(80); // as large fonts would
    window.resize(small);
    const auto isSeen = [this](Module module) {
        const SidebarRow* chosen = row(module);
        return QTest::qWaitFor([chosen] { return chosen->visibleRegion() == QRegion(chosen->rect()); }, 1000);
    };
    test.model.setSelection(Module::settings);
    EXPECT_TRUE(isSeen(Module::settings));
    test.model.setSelection(Module::calculator);
    EXPECT_TRUE(isSeen(Module::calculator));
    window.resize(small.width(), 900);
    test.model.setSelection(Module::settings);
    window.resize(small);
    EXPECT_TRUE(isSeen(Module::settings));
}

TEST_F(ShellTest, TheSidebarIsReadBeforeThePage)
{
    show();
    const QList<QWidget*> widgets = window.findChildren<QWidget*>();
    EXPECT_LT(widgets.indexOf(row(Module::notes)), widgets.indexOf(window.findChild<PageChrome*>()));
    EXPECT_EQ(window.findChild<PageChrome*>()->accessibleName(), QStringLiteral("Notes"));
    EXPECT_EQ(row(Module::notes)->parentWidget()->accessibleName(), QStringLiteral("Pages"));
}

TEST_F(ShellTest, TheSidebarIsOneTabStopAndTheArrowsMoveTheSelection)
{
    show();
    row(Module::notes)->setFocus();
    QTest::keyClick(row(Module::notes), Qt::Key_Down);
    EXPECT_EQ(test.model.selection(), Module::duration);
    QTest::keyClick(row(Module::duration), Qt::Key_Up);
    EXPECT_EQ(test.model.selection(), Module::notes);
    EXPECT_EQ(row(Module::history)->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(ShellTest, OnAPageWithFieldsTypingBeginsAtOnce)
{
    show();
    test.model.setSelection(Module::percent);
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Value X"));
    QTest::keyClicks(field, QStringLiteral("5"));
    EXPECT_EQ(field->text(), QStringLiteral("5"));
}

TEST_F(ShellTest, FromFieldToFieldTypingReplacesWhatStandsThere)
{
    show();
    test.model.setSelection(Module::percent);
    test.model.setSelection(Module::duration);
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Start date, day"));
    EXPECT_EQ(field->selectedText(), field->text());
}

TEST_F(ShellTest, APageWithoutFieldsHasTheFocusItself)
{
    show();
    for (const Module module :
         {Module::calculator, Module::calendar, Module::notes, Module::history, Module::settings}) {
        test.model.setSelection(Module::percent);
        test.model.setSelection(module);
        EXPECT_NE(qobject_cast<PageChrome*>(QApplication::focusWidget()), nullptr)
            << toQt(title(module)).toStdString();
    }
}

TEST_F(ShellTest, ANoteIsWrittenOnWhereItWas)
{
    test.model.store().createNote(Note(0, {{.text = "words"}}, test.clock.now(), test.clock.now()));
    show();
    auto* paragraph = window.findChild<SelectableTextEditor*>();
    ASSERT_TRUE(paragraph);
    paragraph->setFocus();
    test.model.setSelection(Module::percent);
    test.model.setSelection(Module::notes);
    EXPECT_EQ(QApplication::focusWidget(), paragraph);
}

TEST(ShellStart, TypingBeginsAtOnce)
{
    test::TestModel test {{{"module", "percent"}}};
    MainWindow window(test.model);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_TRUE(field);
    EXPECT_EQ(field->accessibleName(), QStringLiteral("Value X"));
}

TEST_F(ShellTest, WalkingTheSidebarByKeyboardStaysThere)
{
    show();
    row(Module::notes)->setFocus(Qt::TabFocusReason);
    window.setAttribute(Qt::WA_KeyboardFocusChange); // the Tab key has brought the focus
    const QSignalSpy moves(qApp, &QApplication::focusChanged);
    QTest::keyClick(row(Module::notes), Qt::Key_Down);
    EXPECT_EQ(test.model.selection(), Module::duration);
    EXPECT_EQ(QApplication::focusWidget(), row(Module::duration));
    EXPECT_EQ(moves.count(), 1) << "a screen reader tells of one move";
    QTest::keyClick(row(Module::duration), Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), row(Module::calculator));
}

/// Counts how often any widget is asked to lay itself out.
struct LayoutRequests final : QObject
{
    int count = 0;

    LayoutRequests() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return false;
    }
};

TEST_F(ShellTest, EveryPageComesToRest)
{
    show();
    LayoutRequests requests;
    for (const QSize size : {QSize(1120, 760), QSize(940, 620)}) {
        window.resize(size);
        for (const Module module : allCases<Module>()) {
            test.model.setSelection(module);
            const auto rests = [&requests] {
                requests.count = 0;
                QCoreApplication::processEvents();
                return requests.count == 0;
            };
            bool rested = false;
            for (int turn = 0; turn < 50 && !rested; ++turn)
                rested = rests() && rests();
            EXPECT_TRUE(rested) << title(module);
        }
    }
}

TEST_F(ShellTest, TheFooterAndTheSettingsSubtitleFollowTheSettings)
{
    test.model.setSelection(Module::settings);
    EXPECT_TRUE(labels().contains(QStringLiteral("Sun + Sat")));
    EXPECT_TRUE(labels().contains(QStringLiteral("Saturday & Sunday, 12-hour clock"))) << "in the header";
    test.model.setWeekendPresetID("none");
    EXPECT_TRUE(labels().contains(QStringLiteral("No weekend")));
    EXPECT_TRUE(labels().contains(QStringLiteral("No weekend (7-day week), 12-hour clock")));
    test.model.setUse24Hour(true);
    EXPECT_TRUE(labels().contains(QStringLiteral("No weekend (7-day week), 24-hour clock")));
    EXPECT_EQ(row(Module::settings)->accessibleDescription(),
              QStringLiteral("No weekend (7-day week), 24-hour clock"));
}

TEST_F(ShellTest, WithoutAVersionItIsADevelopmentBuild)
{
    EXPECT_EQ(AppInfo::version(), QStringLiteral("development build"));
    EXPECT_TRUE(labels().contains(QStringLiteral("Version development build")));
}

/// Content of a page that notes the widths that it is given.
struct Content : QWidget
{
    QList<int> widths;

    void resizeEvent(QResizeEvent* event) override
    {
        if (widths.isEmpty() || widths.last() != event->size().width())
            widths << event->size().width();
    }
};

TEST_F(ShellTest, TheContentKeepsItsWidthWhenTheScrollBarComesAndGoes)
{
    auto* content = new Content;
    const auto make = [content](QWidget* parent) {
        content->setParent(parent);
        return content;
    };
    PageChrome page(Module::percent, test.model, make, nullptr);
    page.resize(800, 600);
    page.show();
    const QScrollBar* bar = page.verticalScrollBar();
    for (const bool isLong : {false, true, false}) {
        content->setFixedHeight(isLong ? 2000 : 100);
        EXPECT_TRUE(QTest::qWaitFor([&] { return bar->isVisible() == isLong; }));
    }
    EXPECT_EQ(content->widths, QList<int> {800 - 2 * Metric::pagePadding});
    page.resize(1500, 600);
    EXPECT_EQ(content->width(), Metric::maximumPageWidth - 2 * Metric::pagePadding);
}

TEST_F(ShellTest, SavedToHistoryAppearsInTheHeaderAndMovesNothing)
{
    show();
    const auto labelsOfPage = window.findChild<PageChrome*>()->findChildren<Label*>();
    const Label* title = labelsOfPage.first();
    const Label* message = *std::ranges::find(labelsOfPage, QStringLiteral("Saved to history"), &Label::text);
    QCoreApplication::processEvents();
    const QRect before = title->geometry();
    EXPECT_FALSE(message->isVisible());
    test.model.record(Module::notes, "t", {{"a", "b", {}, {}, {}}});
    QCoreApplication::processEvents();
    EXPECT_TRUE(message->isVisible());
    EXPECT_EQ(message->text(), QStringLiteral("Saved to history"));
    EXPECT_EQ(title->geometry(), before);
    test.clock.advance(2s);
    EXPECT_FALSE(message->isVisible());
    EXPECT_EQ(title->geometry(), before);
}

TEST_F(ShellTest, TheEditMenuOpenedByKeyStillMeansTheSelection)
{
    QLineEdit field(&window);
    show();
    field.show();
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("12"));
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_E, Qt::AltModifier);
    QTRY_VERIFY(menu(QStringLiteral("Edit"))->isVisible());
    EXPECT_FALSE(field.hasFocus());
    for (QAction* action : menu(QStringLiteral("Edit"))->actions()) {
        if (action->text() == QStringLiteral("Cu&t")) {
            EXPECT_TRUE(action->isEnabled());
            action->trigger();
        }
    }
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("12"));
    menu(QStringLiteral("Edit"))->hide();
}

/// Runs the event loop; true when it was ended by a quit, false when `limit` turns of it went by.
bool quits(int limit = 20)
{
    bool ended = false;
    QObject context;
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &context, [&ended] { ended = true; });
    std::function<void()> turn = [&] {
        if (!ended && --limit > 0)
            QMetaObject::invokeMethod(&context, turn, Qt::QueuedConnection);
        else if (!ended)
            QCoreApplication::exit(1);
    };
    turn();
    return QCoreApplication::exec() == 0;
}

TEST_F(ShellTest, ClosingTheWindowHidesItAtOnceAndEndsTheProcessWhenNothingIsPending)
{
    const Lifetime lifetime(window, test.clock);
    show();
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(quits());
}

TEST_F(ShellTest, AnOpenQuestionGoesWithTheWindow)
{
    const Lifetime lifetime(window, test.clock);
    show();
    bool isConfirmed = false;
    const QPointer<ConfirmDialog> dialog = ConfirmDialog::ask(
        window, {.title = QStringLiteral("Sure?"), .text = {}, .action = QStringLiteral("Yes")},
        [&isConfirmed] { isConfirmed = true; });
    ASSERT_TRUE(dialog->isVisible());
    window.close();
    EXPECT_TRUE(dialog == nullptr || !dialog->isVisible());
    EXPECT_TRUE(quits());
    EXPECT_FALSE(isConfirmed);
}

TEST_F(ShellTest, TheProcessOutlivesItsWindowUntilDelayedSavesHaveBeenWritten)
{
    const Lifetime lifetime(window, test.clock);
    show();
    test.model.autoRecord(Module::percent, "t", {{"a", "b", {}, {}, {}}});
    window.close();
    EXPECT_FALSE(quits());
    EXPECT_TRUE(test.model.store().history(1).empty());
    QMetaObject::invokeMethod(
        qApp, [this] { test.clock.advance(1500ms); }, Qt::QueuedConnection);
    EXPECT_TRUE(quits());
    EXPECT_EQ(test.model.store().history(1).size(), 1U);
}

TEST_F(ShellTest, AnEndThatDoesNotWaitSavesAtOnce)
{
    const Lifetime lifetime(window, test.clock);
    show();
    test.model.autoRecord(Module::percent, "t", {{"a", "b", {}, {}, {}}});
    // As at the end of a desktop's session.
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    EXPECT_TRUE(quits());
    EXPECT_EQ(test.model.store().history(2).size(), 1U);
    EXPECT_FALSE(test.clock.hasPendingSaves());
}

TEST_F(ShellTest, AnOpenWindowKeepsTheProcessWhenAllIsSaved)
{
    const Lifetime lifetime(window, test.clock);
    show();
    test.model.autoRecord(Module::percent, "t", {{"a", "b", {}, {}, {}}});
    test.clock.advance(1500ms);
    ASSERT_FALSE(test.clock.hasPendingSaves());
    EXPECT_FALSE(quits());
}

TEST_F(ShellTest, ASignalThatIsIgnoredFromTheStartStaysSo)
{
    const auto before = std::signal(SIGHUP, SIG_IGN); // as "nohup" has it
    const Lifetime lifetime(window, test.clock);
    show();
    std::raise(SIGHUP);
    EXPECT_FALSE(quits());
    EXPECT_TRUE(window.isVisible());
    std::signal(SIGHUP, before);
}

TEST_F(ShellTest, SignalsThatAskToEndCloseTheWindow)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        std::signal(signal, SIG_DFL); // a test in the background may have inherited another
        const Lifetime lifetime(window, test.clock);
        show();
        std::raise(signal);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !window.isVisible(); }));
        EXPECT_TRUE(quits());
    }
}

} // namespace
} // namespace zelta
