#pragma once

#include "app/model/Clock.h"

#include <QWidget>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>

namespace zelta {

class IconButton;
class SelectableTextEditor;

/// The row of one paragraph: its text view, a bar beside the text while that has the focus, and the control
/// that removes the paragraph. What is typed is handed on when the typing has paused, and at once when the
/// row leaves the screen.
class TextBlockEditor final : public QWidget
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds publishDelay {350};

    explicit TextBlockEditor(Clock& clock, QWidget* parent = nullptr);

    [[nodiscard]] SelectableTextEditor* editor() const { return m_editor; }
    [[nodiscard]] IconButton* removeButton() const { return m_remove; }

    /// The paragraph's text as the page has it. A text that is new to the row replaces what the row shows.
    void setValue(std::string_view value);

    void setMinHeight(int pixels);

    /// Which paragraph of the note this is, counted from 1, for those who hear the page.
    void setPlace(std::ptrdiff_t place);

    /// Height of the text at the present width, but at least the minimum.
    [[nodiscard]] int preferredHeight() const;

    /// Hands on what was typed and has not been handed on yet, and what an input method is composing.
    void publishNow();

Q_SIGNALS:
    void published(const std::string& text);
    void removeRequested();
    void heightChanged();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void handOn();
    void schedulePublish();

    Clock& m_clock;
    SelectableTextEditor* m_editor;
    IconButton* m_remove;
    std::string m_value;
    int m_minHeight = 0;
    std::ptrdiff_t m_place = 0;
    bool m_isTyped = false; // since the last hand-over
    Clock::Task m_publishTask;
};

} // namespace zelta
