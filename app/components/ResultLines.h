#pragma once

#include "app/components/CopyMark.h"
#include "core/ResultRow.h"

#include <QWidget>
#include <span>
#include <string>
#include <vector>

class QVBoxLayout;

namespace zelta {

class ResultLine;

/// A stack of result lines with thin dividers. A click on one copies its value and marks it for half a
/// second; the mark moves when another is clicked. Lines are updated in place, keyed by their label.
class ResultLines final : public QWidget
{
    Q_OBJECT

public:
    explicit ResultLines(Clock& clock, QWidget* parent = nullptr);

    /// Shows these rows, in this order. Labels are unique.
    void setRows(std::span<const ResultRow> rows);
    /// Shows plain texts, one a line, without labels.
    void setTexts(std::span<const std::string> texts);
    [[nodiscard]] std::span<const ResultRow> rows() const { return m_rows; }

    /// Appends the lines to a card's column. They reach beyond it by `ResultLine::bleed` on both sides, for
    /// the hovered line's shade, and by `above` and `below` pixels at top and bottom, because a line is
    /// higher than its text.
    void addTo(QVBoxLayout* column, int above, int below);

    /// Marks something else that copies these lines, under a key that is no label.
    void setMark(std::string key) { m_mark.set(std::move(key)); }
    [[nodiscard]] bool isMarked(std::string_view key) const { return m_mark.isOn(key); }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;

Q_SIGNALS:
    void markChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::vector<ResultLine*> takeLinesFor(std::span<const ResultRow> rows);
    ResultLine* makeLine();
    void markLines();
    void place();

    std::vector<ResultRow> m_rows;
    std::vector<ResultLine*> m_lines; ///< The shown ones, in order, then hidden spare ones.
    CopyMark m_mark;
};

} // namespace zelta
