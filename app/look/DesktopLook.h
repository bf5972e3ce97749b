#pragma once

#include <QObject>

class QApplication;

namespace zelta {

class SettingsPortal;

/// Dresses the application: style, fonts, palette; light or dark as the desktop is, also while the program
/// runs. Carets stand still where the desktop wants that, and a tool tip goes with the next key.
///
/// The desktop says so by the palette that Qt starts with or changes to; where that palette is light because
/// nobody has set one, by the settings portal, which is asked at once and never waited for.
class DesktopLook : public QObject
{
    Q_OBJECT

public:
    explicit DesktopLook(QApplication& application);

    /// Takes what the portal has answered so far: a window that is shown after it need not change its look.
    void hearDesktop();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void readDesktopPalette();
    void apply();
    void applyCaretBlink();

    bool m_paletteIsDark = false;
    bool m_isApplying = false;
    SettingsPortal* m_portal;
};

} // namespace zelta
