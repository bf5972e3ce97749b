#pragma once

#include "app/pages/ExactText.h"
#include "core/TextDirection.h"

#include <QTextEdit>

namespace zelta {

class ParagraphLayout;

/// The plain-text view of one paragraph. It is as high as its text, runs in the direction of most of its
/// letters, and undoes its own keystrokes; neither a direction nor a text set from outside can be undone.
class SelectableTextEditor final : public QTextEdit
{
    Q_OBJECT

public:
    explicit SelectableTextEditor(QWidget* parent = nullptr);

    /// The text, to the character: no-break spaces, carriage returns and line separators included.
    [[nodiscard]] QString text() const { return m_text.text(); }

    /// Puts another text in. The caret stays where it is, or goes to the end of a shorter text.
    void setText(const QString& text);

    [[nodiscard]] TextDirection direction() const { return m_direction; }

    /// Height of the text with its insets at the present width.
    [[nodiscard]] int textHeight() const;

    /// Where the lines begin and how high they are, as far as they are laid out.
    [[nodiscard]] QRect linesRect() const;

Q_SIGNALS:
    /// A person has changed the text.
    void edited();
    /// The text, or the width, asks for another height.
    void textHeightChanged();
    /// The caret has moved, or what is around it: this area should be in sight.
    void caretMoved(const QRect& area);
    void focusChanged(bool focused);

protected:
    bool canInsertFromMimeData(const QMimeData* source) const override;
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void followEdit(int from, int removed, int added);
    void applyDirection();
    void applyOption();
    void stepOverPieceBreak(const QKeyEvent& event);
    bool deletePicture();
    void stepOutOfCharacter(const QKeyEvent& event);
    void stepToOtherLine(QKeyEvent& event);
    bool movePage(const QKeyEvent& event);

    ExactText m_text;
    ParagraphLayout* m_layout;
    TextDirection m_direction = TextDirection::leftToRight;
    bool m_isSetting = false;
};

} // namespace zelta
