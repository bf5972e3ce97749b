#include "app/look/DesktopLook.h"

#include "app/look/SettingsPortal.h"
#include "app/look/Style.h"
#include "app/look/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QPixmapCache>
#include <QStyleHints>
#include <QToolTip>

namespace zelta {

namespace {

bool isOurs(const QPalette& palette)
{
    return palette.color(QPalette::Window) == Theme::color(Theme::Token::page)
        && palette.color(QPalette::WindowText) == Theme::color(Theme::Token::text);
}

} // namespace

DesktopLook::DesktopLook(QApplication& application)
    : QObject(&application)
    , m_portal(new SettingsPortal(this))
{
    m_paletteIsDark = Theme::appearance() == Theme::Appearance::dark;
    QApplication::setFont(Theme::baseFont(QApplication::font()));
    QApplication::setStyle(new Style);
    const QFont menu = Theme::font(Theme::FontRole::menu);
    QApplication::setFont(menu, "QMenuBar");
    QApplication::setFont(menu, "QMenu");
    QToolTip::setFont(Theme::font(Theme::FontRole::caption));
    apply();
    application.installEventFilter(this);
    // Qt leaves out those that the Edit menu has just now, and shows the others.
    QCoreApplication::setAttribute(Qt::AA_DontShowShortcutsInContextMenus);
    connect(m_portal, &SettingsPortal::prefersDarkChanged, this, &DesktopLook::apply);
    connect(m_portal, &SettingsPortal::caretBlinkChanged, this, &DesktopLook::applyCaretBlink);
    m_portal->ask();
}

void DesktopLook::hearDesktop()
{
    m_portal->hear();
}

bool DesktopLook::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == parent() && !m_isApplying)
        readDesktopPalette();
    else if (event->type() == QEvent::KeyPress && QToolTip::isVisible())
        QToolTip::hideText(); // it would lie over what is typed, and tell what was there before
    else if (event->type() == QEvent::MouseButtonPress && watched->isWidgetType())
        endKeyboardUse(*static_cast<QWidget*>(watched)->window());
    return QObject::eventFilter(watched, event);
}

/// Qt notes that the keyboard moved the focus, and for the rest of the run shows rings for the mouse as well.
void DesktopLook::endKeyboardUse(QWidget& window)
{
    if (!window.testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    window.setAttribute(Qt::WA_KeyboardFocusChange, false);
    if (QWidget* focus = window.focusWidget())
        focus->update();
}

/// Our palette hides the desktop's: where it still stands, it is taken off to see what the desktop says now.
void DesktopLook::readDesktopPalette()
{
    m_isApplying = true;
    if (isOurs(QGuiApplication::palette()))
        QApplication::setPalette(QPalette());
    m_paletteIsDark = Theme::appearance() == Theme::Appearance::dark;
    m_isApplying = false;
    apply();
}

void DesktopLook::apply()
{
    const bool dark = m_paletteIsDark || m_portal->prefersDark();
    const QPalette palette = Theme::palette(dark ? Theme::Appearance::dark : Theme::Appearance::light);
    m_isApplying = true;
    QPixmapCache::clear();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    m_isApplying = false;
}

void DesktopLook::applyCaretBlink()
{
    constexpr int asThePlatformSays = -1;
    QGuiApplication::styleHints()->setCursorFlashTime(m_portal->caretBlinks() ? asThePlatformSays : 0);
}

} // namespace zelta
