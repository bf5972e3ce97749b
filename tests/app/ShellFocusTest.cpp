#include "app/components/Label.h"
#include "app/components/Pill.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "app/pages/CalculatorDisplay.h"
#include "app/pages/NotesView.h"
#include "app/shell/AboutDialog.h"
#include "app/shell/PageChrome.h"
#include "app/shell/SidebarRow.h"
#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QSplitter>
#include <algorithm>

namespace zelta {
namespace {

/// Where the focus goes when a page is shown, and what of the window is seen then.
struct ShellFocus : test::WindowTest
{
    [[nodiscard]] SidebarRow* row(Module module) const
    {
        const auto rows = window.findChildren<SidebarRow*>();
        return *std::ranges::find(rows, toQt(title(module)), &SidebarRow::text);
    }

    /// The page that is shown.
    [[nodiscard]] PageChrome* page() const
    {
        const auto pages = window.findChildren<PageChrome*>();
        return *std::ranges::find_if(pages, &QWidget::isVisible);
    }

    static QString focusedField()
    {
        const auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        return field != nullptr ? field->accessibleName() : QString();
    }
};

TEST_F(ShellFocus, AClickShowsNoFocusRings)
{
    QTest::mouseClick(row(Module::percent), Qt::LeftButton);
    EXPECT_EQ(focusedField(), QStringLiteral("Value X"));
    EXPECT_FALSE(Surface::showsFocus(*QApplication::focusWidget()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Surface::showsFocus(*QApplication::focusWidget()));
}

/// Counts what is painted of a widget.
struct Paints final : QObject
{
    int count = 0;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST_F(ShellFocus, APageIsNotPaintedForItsFocus)
{
    QApplication::processEvents();
    Paints paints;
    page()->viewport()->installEventFilter(&paints);
    row(Module::calculator)->setFocus();
    QApplication::processEvents();
    page()->setFocus();
    QApplication::processEvents();
    EXPECT_TRUE(page()->hasFocus());
    EXPECT_EQ(paints.count, 0);
    page()->viewport()->update();
    QApplication::processEvents();
    EXPECT_EQ(paints.count, 1) << "what is painted is counted";
}

TEST_F(ShellFocus, TypingBeginsInTheFirstFieldThatIsSeen)
{
    test.model.setSelection(Module::percent);
    QTest::mouseClick(window.findChildren<Pill*>().at(1), Qt::LeftButton);
    test.model.setSelection(Module::settings);
    test.model.setSelection(Module::percent);
    EXPECT_EQ(focusedField(), QStringLiteral("Value"));
}

TEST_F(ShellFocus, TypingGoesOnInTheFieldThatHadItLast)
{
    test.model.setSelection(Module::percent);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_EQ(focusedField(), QStringLiteral("Value Y"));
    test.model.setSelection(Module::history);
    test.model.setSelection(Module::percent);
    EXPECT_EQ(focusedField(), QStringLiteral("Value Y"));
    QTest::mouseClick(window.findChildren<Pill*>().at(1), Qt::LeftButton);
    test.model.setSelection(Module::history);
    test.model.setSelection(Module::percent);
    EXPECT_EQ(focusedField(), QStringLiteral("Value")) << "the other one is not seen";
}

TEST_F(ShellFocus, HomeAndEndScrollThePage)
{
    window.resize(940, 620);
    test.model.setSelection(Module::converter);
    page()->setFocus();
    QApplication::processEvents();
    const QScrollBar& bar = *page()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    for (const auto modifiers : {Qt::NoModifier, Qt::ControlModifier}) {
        QTest::keyClick(page(), Qt::Key_End, modifiers);
        EXPECT_EQ(bar.value(), bar.maximum());
        QTest::keyClick(page(), Qt::Key_Home, modifiers);
        EXPECT_EQ(bar.value(), 0);
    }
}

TEST_F(ShellFocus, AKeyOfTheCalculatorBringsItsDisplayIntoSight)
{
    window.resize(940, 620);
    test.model.setSelection(Module::calculator);
    QApplication::processEvents();
    QScrollBar& bar = *page()->verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    bar.setValue(bar.maximum());
    QTest::keyClick(page(), Qt::Key_4);
    EXPECT_FALSE(page()->findChild<CalculatorDisplay*>()->visibleRegion().isEmpty());
    bar.setValue(bar.maximum());
    QTest::keyClick(page(), Qt::Key_Up);
    EXPECT_GT(bar.value(), 0) << "no key of the calculator";
}

TEST_F(ShellFocus, AFieldThatIsTypedIntoIsSeen)
{
    window.resize(940, 620);
    test.model.setSelection(Module::duration);
    QApplication::processEvents();
    QWidget* field = QApplication::focusWidget();
    ASSERT_NE(qobject_cast<QLineEdit*>(field), nullptr);
    page()->verticalScrollBar()->setValue(page()->verticalScrollBar()->maximum());
    ASSERT_TRUE(field->visibleRegion().isEmpty());
    QTest::keyClick(field, Qt::Key_3);
    EXPECT_FALSE(field->visibleRegion().isEmpty());
}

TEST_F(ShellFocus, WhoComesByTabIsSeen)
{
    window.resize(940, 620);
    test.model.setSelection(Module::duration);
    QApplication::processEvents();
    row(Module::duration)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(row(Module::duration), Qt::Key_Backtab);
    EXPECT_TRUE(page()->isAncestorOf(QApplication::focusWidget())) << "the last control of the page";
    EXPECT_FALSE(QApplication::focusWidget()->visibleRegion().isEmpty());
}

TEST_F(ShellFocus, RowsAreAsHighAsTheirWordsNeedAtAnyWidth)
{
    auto* splitter = window.findChild<QSplitter*>();
    for (const int width : {268, 280, 320}) {
        splitter->setSizes({width, window.width() - width});
        QApplication::processEvents();
        for (const SidebarRow* row : window.findChildren<SidebarRow*>()) {
            EXPECT_EQ(row->height(), row->heightForWidth(row->width())) << width << toUtf8(row->text());
        }
    }
}

TEST_F(ShellFocus, TheSelectedRowIsRaised)
{
    test.model.setSelection(Module::percent);
    for (const Module module : allCases<Module>()) {
        const QColor ground = row(module)->grab().toImage().pixelColor(3, row(module)->height() / 2);
        EXPECT_EQ(ground.rgb() == Theme::color(Theme::Token::raised).rgb(), module == Module::percent)
            << title(module);
    }
}

TEST_F(ShellFocus, ThePageThatIsTurnedToShowsTheMessageAsWell)
{
    test.model.record(Module::calculator, "t", {{"a", "b", {}, {}, {}}});
    test.model.setSelection(Module::percent);
    const auto labels = page()->findChildren<Label*>();
    const auto* message = *std::ranges::find(labels, QStringLiteral("Saved to history"), &Label::text);
    EXPECT_TRUE(message->isVisible());
}

TEST_F(ShellFocus, AboutTellsTheVersionAndCloses)
{
    for (QAction* action : window.menuBar()->actions().back()->menu()->actions()) {
        if (action->text() == QStringLiteral("&About Zelta Basic"))
            action->trigger();
    }
    auto* about = window.findChild<AboutDialog*>();
    ASSERT_NE(about, nullptr);
    EXPECT_TRUE(about->isVisible());
    QStringList texts;
    for (const auto* label : about->findChildren<Label*>())
        texts += label->text();
    EXPECT_EQ(texts.join(QLatin1Char('|')),
              QStringLiteral("Zelta Basic|Version development build|Everyday figures, offline and exact to "
                             "the last digit."));
    QTest::keyClick(about, Qt::Key_Return);
    EXPECT_FALSE(about->isVisible());
}

TEST_F(ShellFocus, NotesFillThePage)
{
    test.model.setSelection(Module::notes);
    QApplication::processEvents();
    const auto* notes = window.findChild<NotesView*>();
    EXPECT_EQ(notes->mapTo(page(), QPoint(0, notes->height())).y(), page()->height() - Metric::pagePadding);
}

} // namespace
} // namespace zelta
