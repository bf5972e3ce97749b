#pragma once

#include <QObject>

class QApplication;
class QWidget;

namespace zelta {

class SettingsPortal;

/// Gives the application its style, fonts and palette, light or dark as the desktop is, and follows a change
/// of that. Carets do not blink where the desktop says so; a key press hides a tool tip.
///
/// The desktop is dark when the palette that Qt takes from it is, or when the settings portal says so: a
/// light palette may mean only that nobody has set one. The portal is asked at once and never waited for.
class DesktopLook : public QObject
{
    Q_OBJECT

public:
    explicit DesktopLook(QApplication& application);

    /// Takes what the portal has answered so far: a window that is shown after it need not change its look.
    void hearDesktop();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void endKeyboardUse(QWidget& window);
    void readDesktopPalette();
    void apply();
    void applyCaretBlink();

    bool m_paletteIsDark = false;
    bool m_isApplying = false;
    SettingsPortal* m_portal;
};

} // namespace zelta
