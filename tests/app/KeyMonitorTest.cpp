#include "app/components/KeyMonitor.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

namespace zelta {
namespace {

/// A window with a page that takes Space, a button that wants it too, and a text field.
struct Stage
{
    QWidget window;
    QWidget* page = new QWidget(&window);
    QPushButton* button = new QPushButton(QStringLiteral("b"), page);
    QLineEdit* field = new QLineEdit(&window);
    int taken = 0;
    int pressed = 0;

    Stage()
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(page);
        layout->addWidget(field);
        QObject::connect(button, &QPushButton::clicked, button, [this] { ++pressed; });
        new KeyMonitor(page, [this](const QKeyEvent& event) -> std::function<void()> {
            if (event.key() == Qt::Key_Space)
                return [this] { ++taken; };
            return {};
        });
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        button->setFocus();
    }
};

TEST(KeyMonitor, ComesBeforeTheFocusedWidget)
{
    Stage stage;
    QTest::keyClick(stage.button, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 1);
    EXPECT_EQ(stage.pressed, 0);
}

TEST(KeyMonitor, ComesBeforeAShortcutOfAMenu)
{
    Stage stage;
    QAction entry;
    entry.setShortcut(Qt::Key_Space);
    stage.window.addAction(&entry);
    const QSignalSpy triggered(&entry, &QAction::triggered);
    QTest::keyClick(stage.button, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 1);
    EXPECT_EQ(triggered.count(), 0);
}

TEST(KeyMonitor, AKeyThatActsTakesAwayTheHelpOfWhatWasThereBefore)
{
    Stage stage;
    QToolTip::showText(stage.window.mapToGlobal(QPoint(5, 5)), QStringLiteral("help"), stage.button);
    ASSERT_TRUE(QToolTip::isVisible());
    QTest::keyClick(stage.button, Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST(KeyMonitor, PassesOnWhatItHasNoActionFor)
{
    Stage stage;
    stage.field->setFocus();
    QTest::keyClick(stage.field, Qt::Key_A);
    EXPECT_EQ(stage.field->text(), QStringLiteral("a"));
}

TEST(KeyMonitor, StandsBackWhileATextInputHasTheFocus)
{
    Stage stage;
    stage.field->setFocus();
    QTest::keyClick(stage.field, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 0);
    EXPECT_EQ(stage.field->text(), QStringLiteral(" "));
}

TEST(KeyMonitor, StandsBackWhileTheMenuBarIsUsedByKey)
{
    Stage stage;
    QMenuBar bar(&stage.window);
    bar.addMenu(QStringLiteral("Go"));
    bar.show();
    bar.setFocus(Qt::MenuBarFocusReason);
    ASSERT_TRUE(bar.hasFocus());
    QTest::keyClick(&bar, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 0);
}

TEST(KeyMonitor, ListensOnlyWhileThePageIsShown)
{
    Stage stage;
    stage.page->hide();
    QTest::keyClick(&stage.window, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 0);
    stage.page->show();
    stage.button->setFocus();
    QTest::keyClick(&stage.window, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 1);
}

TEST(KeyMonitor, StandsBackWhileADialogOrAPopupIsOpen)
{
    Stage stage;
    {
        QDialog dialog(&stage.window);
        dialog.setModal(true);
        dialog.show();
        QTest::keyClick(stage.button, Qt::Key_Space);
        EXPECT_EQ(stage.taken, 0);
    }
    QMenu menu(&stage.window);
    menu.addAction(QStringLiteral("entry"));
    menu.popup(QPoint());
    QTest::keyClick(stage.button, Qt::Key_Space);
    EXPECT_EQ(stage.taken, 0);
}

} // namespace
} // namespace zelta
