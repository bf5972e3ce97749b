#pragma once

#include "app/model/Clock.h"

#include <QWidget>

namespace zelta {

class Announcement;
class SymbolIcon;

/// A short confirmation, "Tape copied": check mark and text in the colour of success, gone after its time. A
/// newer one takes over and starts the time again. Its place stays reserved, so that nothing moves.
class Flash : public QWidget
{
    Q_OBJECT

public:
    Flash(Clock& clock, std::chrono::milliseconds duration, QWidget* parent = nullptr);

    /// Shows `text` for the flash's time.
    void flash(const QString& text);

    /// Shows `text` until it is cleared: for a message that somebody else times.
    void hold(const QString& text);
    void clear();

    [[nodiscard]] bool isShowing() const;
    [[nodiscard]] QString text() const;

Q_SIGNALS:
    /// It appeared or went; for a page that shows a flash in the place of another text.
    void showingChanged(bool isShowing);

private:
    void setShowing(bool showing);

    Clock& m_clock;
    std::chrono::milliseconds m_duration;
    SymbolIcon* m_icon;
    Announcement* m_label;
    Clock::Task m_end;
    bool m_isShowing = false;
};

} // namespace zelta
