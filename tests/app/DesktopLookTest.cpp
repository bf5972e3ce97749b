#include "app/look/DesktopLook.h"

#include "app/components/Label.h"
#include "app/look/SettingsPortal.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "tests/app/support/StandInPortal.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDeadlineTimer>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QStyleHints>
#include <QTest>
#include <QTextEdit>
#include <QThread>
#include <QToolTip>
#include <memory>
#include <utility>

using namespace zelta;
using Theme::Appearance;
using Theme::Token;

namespace {

/// What a desktop does to its programs when somebody chooses another look.
void setDesktopPalette(const QColor& window, const QColor& text)
{
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    QApplication::setPalette(palette);
}

/// A desktop without a portal, so that the tests do not depend on where they run.
class DesktopLookTest : public testing::Test
{
protected:
    DesktopLookTest()
    {
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("XDG_RUNTIME_DIR", "/nonexistent");
        setDesktopPalette(QColor(239, 239, 239), Qt::black);
    }
    ~DesktopLookTest() override { setDesktopPalette(QColor(239, 239, 239), Qt::black); }

    static QApplication& application() { return *static_cast<QApplication*>(QCoreApplication::instance()); }
};

// The portal's numbers.
constexpr unsigned preferDark = 1;
constexpr unsigned preferLight = 2;

/// One bus for all: a process keeps the session bus that it has once found.
class DesktopPortalTest : public DesktopLookTest
{
protected:
    static void SetUpTestSuite()
    {
        portal = new test::StandInPortal;
        address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
        ASSERT_TRUE(portal->isReady());
    }
    static void TearDownTestSuite() { delete std::exchange(portal, nullptr); }

    DesktopPortalTest()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        // A signal could still be on its way when the test begins to listen, and be heard.
        portal->setAnswer(preferDark);
    }

    static inline test::StandInPortal* portal = nullptr;
    static inline QByteArray address;
};

bool becomes(Appearance appearance)
{
    return QTest::qWaitFor([appearance] { return Theme::appearance() == appearance; });
}

} // namespace

TEST_F(DesktopLookTest, MenusOfFieldsNameNoShortcuts)
{
    const DesktopLook look(application());
    QLineEdit field;
    QTextEdit text;
    const std::unique_ptr<QMenu> ofField(field.createStandardContextMenu());
    const std::unique_ptr<QMenu> ofText(text.createStandardContextMenu());
    for (const QMenu* menu : {ofField.get(), ofText.get()}) {
        EXPECT_FALSE(menu->actions().isEmpty());
        for (const QAction* action : menu->actions())
            EXPECT_FALSE(action->text().contains(u'\t')) << qPrintable(action->text());
    }
}

TEST_F(DesktopLookTest, ShowsNoFocusRingsOnceTheMouseIsUsed)
{
    const DesktopLook look(application());
    QWidget window;
    QLineEdit first(&window);
    QLineEdit second(&window);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first.setFocus();
    QTest::keyClick(&first, Qt::Key_Tab);
    ASSERT_TRUE(Surface::showsFocus(second));
    QTest::mouseClick(&window, Qt::LeftButton, {}, {window.width() - 1, window.height() - 1});
    EXPECT_FALSE(Surface::showsFocus(second));
    QTest::keyClick(&second, Qt::Key_Tab);
    EXPECT_TRUE(Surface::showsFocus(first));
}

TEST_F(DesktopLookTest, StartsAsTheDesktopIs)
{
    {
        const DesktopLook look(application());
        EXPECT_EQ(Theme::appearance(), Appearance::light);
        EXPECT_EQ(QApplication::palette().color(QPalette::Window),
                  Theme::color(Token::page, Appearance::light));
    }
    setDesktopPalette(QColor(40, 40, 40), Qt::white);
    const DesktopLook look(application());
    EXPECT_EQ(Theme::appearance(), Appearance::dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), Theme::color(Token::page, Appearance::dark));
}

TEST_F(DesktopLookTest, FollowsAPaletteThatChangesWhileTheProgramRuns)
{
    const DesktopLook look(application());
    setDesktopPalette(QColor(30, 30, 46), Qt::white);
    EXPECT_EQ(Theme::appearance(), Appearance::dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), Theme::color(Token::field, Appearance::dark));
    setDesktopPalette(QColor(250, 250, 250), Qt::black);
    EXPECT_EQ(Theme::appearance(), Appearance::light);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), Theme::color(Token::field, Appearance::light));
}

TEST_F(DesktopLookTest, AToolTipGoesWithTheNextKey)
{
    const DesktopLook look(application());
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QToolTip::showText(window.mapToGlobal(QPoint()), QStringLiteral("stale"), &window);
    ASSERT_TRUE(QToolTip::isVisible());
    QTest::keyClick(&window, Qt::Key_Shift);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 2000))
        << "long before it goes by itself";
}

TEST_F(DesktopLookTest, RecoloursTextsThatAreAlreadyShown)
{
    const DesktopLook look(application());
    QWidget window;
    auto* saved = new Label(QStringLiteral("Saved"), Theme::FontRole::caption, Token::upInk, &window);
    auto* quiet
        = new Label(QStringLiteral("Version"), Theme::FontRole::caption, Token::textSecondary, &window);
    quiet->hide();
    window.show();
    const auto shows = [](const Label* label, Token token) {
        return label->palette().color(label->foregroundRole()) == Theme::color(token);
    };
    EXPECT_TRUE(shows(saved, Token::upInk));
    EXPECT_TRUE(shows(quiet, Token::textSecondary));
    setDesktopPalette(QColor(30, 30, 46), Qt::white);
    EXPECT_EQ(Theme::appearance(), Appearance::dark);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows(saved, Token::upInk); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows(quiet, Token::textSecondary); }));
    saved->setToken(Token::text);
    EXPECT_TRUE(shows(saved, Token::text));
}

TEST_F(DesktopPortalTest, IsDarkBeforeTheFirstWindowWhenThePortalHasAnswered)
{
    QThread elsewhere;
    QObject::connect(
        &elsewhere, &QThread::finished, portal, [] { portal->moveToThread(application().thread()); },
        Qt::DirectConnection);
    portal->moveToThread(&elsewhere);
    elsewhere.start();
    DesktopLook look(application());
    // No event loop runs here, as none does before the first window is shown.
    const QDeadlineTimer deadline(5000);
    while (Theme::appearance() == Appearance::light && !deadline.hasExpired())
        look.hearDesktop();
    EXPECT_EQ(Theme::appearance(), Appearance::dark);
    elsewhere.quit();
    elsewhere.wait();
}

TEST_F(DesktopPortalTest, TurnsDarkWhenOnlyThePortalSaysSo)
{
    const DesktopLook look(application());
    QWidget window;
    window.show();
    EXPECT_EQ(Theme::appearance(), Appearance::light) << "the start does not wait for the portal";
    EXPECT_TRUE(becomes(Appearance::dark));
    portal->setColorScheme(preferLight);
    EXPECT_TRUE(becomes(Appearance::light));
    portal->setColorScheme(preferDark);
    EXPECT_TRUE(becomes(Appearance::dark));

    // A desktop that does set palettes changes one more time: dark stays while the portal says so.
    setDesktopPalette(QColor(250, 250, 250), Qt::black);
    EXPECT_EQ(Theme::appearance(), Appearance::dark);
    portal->setColorScheme(0);
    EXPECT_TRUE(becomes(Appearance::light));
}

TEST_F(DesktopPortalTest, LetsCaretsStandStillWhereTheDesktopWantsIt)
{
    const int usual = QGuiApplication::styleHints()->cursorFlashTime();
    ASSERT_GT(usual, 0);
    const auto becomes = [](int time) {
        return QTest::qWaitFor([time] { return QGuiApplication::styleHints()->cursorFlashTime() == time; });
    };
    portal->setCaretBlinks(false);
    const DesktopLook look(application());
    EXPECT_TRUE(becomes(0));
    portal->setCaretBlinks(true);
    EXPECT_TRUE(becomes(usual));
    portal->setCaretBlinks(false);
    EXPECT_TRUE(becomes(0));
    portal->setCaretBlinks(true);
    EXPECT_TRUE(becomes(usual));
}

TEST_F(DesktopPortalTest, LetsCaretsBlinkWhereTheDesktopDoesNotSay)
{
    SettingsPortal heard;
    const QSignalSpy changes(&heard, &SettingsPortal::caretBlinkChanged);
    portal->forgetCaretBlinks();
    heard.ask();
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return heard.prefersDark(); }));
    portal->setAnimations(false);
    portal->setColorScheme(preferLight); // heard after what was told before
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return !heard.prefersDark(); }));
    EXPECT_EQ(changes.count(), 0) << "another setting is another thing";
    portal->setCaretBlinks(true);
}

TEST_F(DesktopPortalTest, HearsOfTheColourSchemeOnly)
{
    SettingsPortal heard;
    const QSignalSpy changes(&heard, &SettingsPortal::prefersDarkChanged);
    heard.ask();
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return heard.prefersDark(); }));
    portal->setColorScheme(preferLight);
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return !heard.prefersDark(); }));
    portal->tell(QStringLiteral("contrast"), 1);
    portal->setCaretBlinks(false); // heard after what was told before
    EXPECT_TRUE(QTest::qWaitFor([&heard] { return !heard.caretBlinks(); }));
    portal->setCaretBlinks(true);
    EXPECT_EQ(changes.count(), 2) << "a higher contrast is not a darker look";
}
