#include "app/components/Columns.h"
#include "app/components/ConfirmDialog.h"
#include "app/components/Flash.h"
#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/components/Picker.h"
#include "app/components/PillTabs.h"
#include "app/components/Switch.h"
#include "app/look/Style.h"
#include "tests/app/support/Accessible.h"
#include "tests/app/support/HandClock.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

using namespace zelta;
using namespace std::chrono_literals;

namespace {

/// The tabs of the percent page, shown and active, so that keys and focus work.
class PillTabsTest : public testing::Test
{
protected:
    PillTabsTest()
    {
        tabs.show();
        tabs.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&tabs));
    }

    [[nodiscard]] QAbstractButton& pill(int index) const
    {
        return *tabs.findChildren<QAbstractButton*>().at(index);
    }

    PillTabs tabs {{{QStringLiteral("compare"), QStringLiteral("X is what % of Y"), "pie-slice"},
                    {QStringLiteral("both"), QStringLiteral("This & that"), "percent"},
                    {QStringLiteral("change"), QStringLiteral("Increase / decrease"), "up-down-arrows"}},
                   Module::percent};
};

} // namespace

TEST_F(PillTabsTest, AVeilIsLaidOverPillsThatAreNotChosenOnly)
{
    for (const auto& [index, isVeiled] : {std::pair {0, false}, {1, true}}) {
        const QImage before = pill(index).grab().toImage();
        pill(index).setDown(true);
        EXPECT_EQ(pill(index).grab().toImage() != before, isVeiled)
            << "white on a lighter fill is hard to read";
        pill(index).setDown(false);
    }
}

TEST_F(PillTabsTest, SelectsTheFirstTabAndTellsOfClicks)
{
    QSignalSpy selected(&tabs, &PillTabs::selected);
    EXPECT_EQ(tabs.selection(), QStringLiteral("compare"));
    QTest::mouseClick(&pill(2), Qt::LeftButton);
    EXPECT_EQ(tabs.selection(), QStringLiteral("change"));
    ASSERT_EQ(selected.count(), 1);
    EXPECT_EQ(selected.front().front().toString(), QStringLiteral("change"));
    QTest::mouseClick(&pill(2), Qt::LeftButton);
    EXPECT_EQ(selected.count(), 1);
    EXPECT_TRUE(pill(2).isChecked());
    for (int i = 0; i < 3; ++i) {
        const QColor left = pill(i).grab().toImage().pixelColor(5, pill(i).height() / 2);
        EXPECT_EQ(left.rgb() == Theme::fill(Module::percent).rgb(), i == 2) << i;
    }
}

TEST_F(PillTabsTest, RestoresATabInSilenceAndIgnoresAnUnknownOne)
{
    const QSignalSpy selected(&tabs, &PillTabs::selected);
    tabs.setSelection(QStringLiteral("change"));
    tabs.setSelection(QStringLiteral("nonsense"));
    EXPECT_EQ(tabs.selection(), QStringLiteral("change"));
    EXPECT_EQ(selected.count(), 0);
}

TEST_F(PillTabsTest, IsOneTabStopWithLeftAndRight)
{
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pill(i).focusPolicy(), i == 0 ? Qt::TabFocus : Qt::NoFocus);
    pill(0).setFocus(Qt::TabFocusReason);
    QTest::keyClick(&pill(0), Qt::Key_Left);
    EXPECT_EQ(tabs.selection(), QStringLiteral("compare"));
    QTest::keyClick(&pill(0), Qt::Key_Right);
    EXPECT_EQ(tabs.selection(), QStringLiteral("both"));
    EXPECT_TRUE(pill(1).hasFocus());
    QTest::keyClick(&pill(1), Qt::Key_Right);
    EXPECT_EQ(tabs.selection(), QStringLiteral("change"));
    QTest::keyClick(&pill(2), Qt::Key_Right);
    EXPECT_EQ(tabs.selection(), QStringLiteral("change"));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(pill(i).focusPolicy(), i == 2 ? Qt::TabFocus : Qt::NoFocus);
}

TEST_F(PillTabsTest, IsARowOfRadioButtonsForAssistiveTechnology)
{
    const QSignalSpy selected(&tabs, &PillTabs::selected);
    const auto pills = tabs.findChildren<QAbstractButton*>();
    EXPECT_EQ(test::accessible(*pills[0]).role(), QAccessible::RadioButton);
    test::toggleAccessibly(*pills[1]);
    EXPECT_EQ(tabs.selection(), QStringLiteral("both"));
    test::toggleAccessibly(*pills[1]);
    EXPECT_EQ(tabs.selection(), QStringLiteral("both")) << "one of them is always chosen";
    EXPECT_TRUE(pills[1]->isChecked());
    EXPECT_EQ(selected.count(), 1);
}

TEST_F(PillTabsTest, SaysAnAmpersandAsItIs)
{
    QAccessibleInterface* described = QAccessible::queryAccessibleInterface(&pill(1));
    EXPECT_EQ(described->text(QAccessible::Name), QStringLiteral("This & that"));
}

TEST(Button, KeepsItsWidthWhileItConfirms)
{
    Button copy(QStringLiteral("Copy all results"), "doc.on.doc");
    const QSize resting = copy.sizeHint();
    copy.showConfirmation(QStringLiteral("Copied"));
    EXPECT_EQ(copy.sizeHint(), resting);
    EXPECT_EQ(copy.text(), QStringLiteral("Copied"));
    copy.clearConfirmation();
    EXPECT_EQ(copy.text(), QStringLiteral("Copy all results"));
    EXPECT_EQ(copy.label(), QStringLiteral("Copy all results"));
}

TEST(Button, TakesTheFocusByTabOnly)
{
    EXPECT_EQ(Button(QStringLiteral("Swap")).focusPolicy(), Qt::TabFocus);
    EXPECT_EQ(Switch(QStringLiteral("Clock"), {}).focusPolicy(), Qt::TabFocus);
}

TEST(Button, EnterPressesItAsSpaceDoes)
{
    Button button(QStringLiteral("Save to history"));
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::keyClick(&button, Qt::Key_Space);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    EXPECT_EQ(clicks.count(), 3);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
    QCoreApplication::sendEvent(&button, &held);
    EXPECT_EQ(clicks.count(), 3) << "once, however long it is held";
}

TEST(Button, LooksOffWhileItCannotBePressed)
{
    Button button(QStringLiteral("Clear history"), "trash");
    button.setInk(Theme::Token::downInk);
    button.resize(button.sizeHint());
    const QImage on = button.grab().toImage();
    button.setEnabled(false);
    EXPECT_NE(button.grab().toImage(), on);
    button.setEnabled(true);
    EXPECT_EQ(button.grab().toImage(), on);
}

TEST(IconButton, IsCalledByItsHelp)
{
    const IconButton button("trash", QStringLiteral("Delete this entry"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Delete this entry"));
    EXPECT_EQ(button.toolTip(), QStringLiteral("Delete this entry"));
}

TEST(Flash, StaysForItsTimeAndStartsAgainWithANewerText)
{
    test::HandClock clock;
    Flash flash(clock, 900ms);
    flash.flash(QStringLiteral("Copied"));
    clock.advance(899ms);
    EXPECT_EQ(flash.text(), QStringLiteral("Copied"));
    flash.flash(QStringLiteral("Tape copied"));
    clock.advance(899ms);
    EXPECT_EQ(flash.text(), QStringLiteral("Tape copied"));
    clock.advance(1ms);
    EXPECT_FALSE(flash.isShowing());
}

TEST(Flash, HoldsAMessageThatSomebodyElseTimes)
{
    test::HandClock clock;
    Flash flash(clock, 900ms);
    flash.flash(QStringLiteral("Copied"));
    flash.hold(QStringLiteral("Saved to history"));
    clock.advance(5s);
    EXPECT_EQ(flash.text(), QStringLiteral("Saved to history"));
    flash.clear();
    EXPECT_FALSE(flash.isShowing());
}

TEST(Columns, StandSideBySideWhereBothGetTheirMinimum)
{
    auto* left = new QWidget;
    auto* right = new QWidget;
    left->setFixedHeight(50);
    right->setFixedHeight(80);
    Columns columns(340, left, right);
    EXPECT_EQ(columns.heightForWidth(698), 80);
    EXPECT_EQ(columns.heightForWidth(697), 50 + Columns::gap + 80);
    columns.resize(698, 80);
    columns.show();
    EXPECT_EQ(left->geometry().width(), 340);
    EXPECT_EQ(right->geometry().left(), 358);
    columns.resize(697, 148);
    EXPECT_EQ(right->geometry().topLeft(), QPoint(0, 68));
    EXPECT_EQ(left->geometry().width(), 697);
}

TEST(ConfirmDialog, IsReadInItsOrder)
{
    ConfirmDialog dialog({QStringLiteral("Clear the whole history?"),
                          QStringLiteral("This cannot be undone."), QStringLiteral("Clear history")},
                         nullptr);
    QAccessibleInterface& seen = test::accessible(dialog);
    EXPECT_EQ(seen.text(QAccessible::Name), QStringLiteral("Clear the whole history?"));
    QStringList names;
    for (int i = 0; i < seen.childCount(); ++i)
        names += seen.child(i)->text(QAccessible::Name);
    EXPECT_EQ(names.join(QLatin1Char('|')),
              QStringLiteral("Clear the whole history?|This cannot be undone.|Cancel|Clear history"));
    EXPECT_EQ(seen.text(QAccessible::Description), QStringLiteral("This cannot be undone."));
    const int middle = dialog.actionButton()->height() / 2;
    EXPECT_EQ(dialog.actionButton()->grab().toImage().pixelColor(5, middle).rgb(),
              Theme::color(Theme::Token::dangerFill).rgb());
}

TEST(ConfirmDialog, DestroysOnlyByItsButton)
{
    QWidget window;
    window.show();
    int confirmed = 0;
    const auto ask = [&] {
        return ConfirmDialog::ask(window,
                                  {QStringLiteral("Clear the whole history?"),
                                   QStringLiteral("This cannot be undone."), QStringLiteral("Clear history")},
                                  [&confirmed] { ++confirmed; });
    };
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        ConfirmDialog* dialog = ask();
        EXPECT_TRUE(dialog->cancelButton()->isDefault());
        dialog->actionButton()->setFocus(Qt::TabFocusReason);
        QTest::keyClick(dialog->actionButton(), key);
        EXPECT_TRUE(dialog->isHidden());
        EXPECT_EQ(confirmed, 0);
    }
    QTest::mouseClick(ask()->cancelButton(), Qt::LeftButton);
    EXPECT_EQ(confirmed, 0);
    QTest::mouseClick(ask()->actionButton(), Qt::LeftButton);
    EXPECT_EQ(confirmed, 1);
}

TEST(Switch, IsFramedAsItIsDrawn)
{
    Style style;
    Switch control(QStringLiteral("Clock"), {});
    control.setStyle(&style);
    control.show();
    EXPECT_EQ(test::accessible(control).rect().size(), control.size());
}

TEST(Picker, DescribesTheUnitByItsSymbol)
{
    Picker picker(QStringLiteral("From"));
    picker.addEntry(QStringLiteral("Mile"), QStringLiteral("mi"), QStringLiteral("mile"));
    picker.addEntry(QStringLiteral("Kilometre"), QStringLiteral("km"), QStringLiteral("kilometre"));
    EXPECT_EQ(picker.accessibleDescription(), QStringLiteral("mi"));
    picker.setCurrentIndex(1);
    EXPECT_EQ(picker.accessibleDescription(), QStringLiteral("km"));
    EXPECT_EQ(picker.itemData(0, Qt::AccessibleDescriptionRole).toString(), QStringLiteral("mi"));
}

TEST(Picker, LeavesTheWheelToThePage)
{
    Picker picker(QStringLiteral("From"));
    picker.addEntry(QStringLiteral("Mile"), QStringLiteral("mi"), QStringLiteral("mile"));
    picker.addEntry(QStringLiteral("Kilometre"), QStringLiteral("km"), QStringLiteral("kilometre"));
    picker.show();
    QWheelEvent wheel(QPointF(5, 5), picker.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&picker, &wheel);
    EXPECT_EQ(picker.currentData().toString(), QStringLiteral("mile"));
    EXPECT_FALSE(wheel.isAccepted());
}

TEST(Picker, MakesItsListWhenItIsOpened)
{
    constexpr int entryHeight = 32;
    Picker picker(QStringLiteral("From"));
    picker.addEntry(QStringLiteral("Mile"), QStringLiteral("mi"), QStringLiteral("mile"));
    picker.show();
    QTest::keyClick(&picker, Qt::Key_Down);
    EXPECT_EQ(picker.findChild<QAbstractItemView*>(), nullptr);
    picker.showPopup();
    ASSERT_NE(picker.findChild<QAbstractItemView*>(), nullptr);
    EXPECT_EQ(picker.view()->sizeHintForRow(0), entryHeight);
    picker.hidePopup();
}

TEST(Label, ShowsMarkupAsItIs)
{
    const Label label(QStringLiteral("<b>&amp;</b>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.text(), QStringLiteral("<b>&amp;</b>"));
}

TEST(Label, WrapsInLinesOfTheGivenHeight)
{
    Label label(QStringLiteral("one two three four five six seven eight nine ten"), Theme::FontRole::note,
                Theme::Token::textSecondary);
    label.setWrapped(16);
    EXPECT_EQ(label.heightForWidth(10000), 16);
    EXPECT_EQ(label.heightForWidth(60) % 16, 0);
    EXPECT_GT(label.heightForWidth(60), 48);
}

TEST(Style, AFieldsTextStaysOnItsLineBesideATallerFont)
{
    Style style;
    QLineEdit field;
    field.setStyle(&style);
    field.resize(200, Metric::fieldHeight);
    const auto topOfFirstDigit = [&field](const QString& text) {
        field.setText(text);
        const QImage shown = field.grab(QRect(11, 4, 9, field.height() - 8)).toImage();
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x) {
                if (qGray(shown.pixel(x, y)) < 128)
                    return y;
            }
        }
        return -1;
    };
    for (const int pixels : {13, 15, 18}) {
        QFont font = Theme::baseFont(QFont());
        font.setPixelSize(pixels);
        field.setFont(font);
        const int usual = topOfFirstDigit(QStringLiteral("5"));
        EXPECT_GT(usual, 0);
        EXPECT_NEAR(topOfFirstDigit(QStringLiteral("5 ٣٤")), usual, 1) << pixels;
        EXPECT_EQ(topOfFirstDigit(QStringLiteral("5 é")), usual) << pixels;
    }
}
