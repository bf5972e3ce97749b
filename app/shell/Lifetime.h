#pragma once

#include <QObject>

class QWidget;

namespace zelta {

class Clock;

/// Ends the process in an orderly way. Closing the window, or a signal that asks to end (TERM, INT, HUP),
/// hides the window at once; the event loop goes on until no delayed save is pending, so that nothing typed
/// is lost. The end of the desktop's session and that of the X server do not wait for that, so they have the
/// saves run at once.
class Lifetime final : public QObject
{
public:
    Lifetime(QWidget& window, Clock& clock);
    ~Lifetime() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watchSignals();
    void quitWhenSaved();

    QWidget& m_window;
    Clock& m_clock;
    bool m_closed = false;
};

} // namespace zelta
