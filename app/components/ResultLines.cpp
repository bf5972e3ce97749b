#include "app/components/ResultLines.h"

#include "app/components/BleedingItem.h"
#include "app/components/Clipboard.h"
#include "app/components/ResultLine.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {

namespace {

/// What identifies a line among its neighbours: its label, or the text that stands alone.
const std::string& keyOf(const ResultRow& row)
{
    return row.label.empty() ? row.value : row.label;
}

} // namespace

ResultLines::ResultLines(Clock& clock, QWidget* parent)
    : QWidget(parent)
    , m_mark(clock, [this] {
        markLines();
        Q_EMIT markChanged();
    })
{
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ResultLines::setTexts(std::span<const std::string> texts)
{
    std::vector<ResultRow> rows;
    for (const std::string& text : texts)
        rows.push_back({{}, text, {}, Weight::detail, Tone::neutral});
    setRows(rows);
}

void ResultLines::setRows(std::span<const ResultRow> rows)
{
    if (std::ranges::equal(rows, m_rows))
        return;
    const std::size_t oldCount = m_rows.size();
    m_rows.assign(rows.begin(), rows.end());
    std::vector<ResultLine*> lines = takeLinesFor(rows);
    const bool sameOrder = lines == m_lines;
    m_lines = std::move(lines);
    for (std::size_t i = 0; i < rows.size(); ++i)
        m_lines[i]->setRow(rows[i]);
    markLines();
    for (std::size_t i = 0; i < m_lines.size(); ++i)
        m_lines[i]->setVisible(i < rows.size());
    if (!sameOrder) {
        for (ResultLine* line : m_lines)
            line->raise(); // the order in which assistive technology reads them
        // Tab goes by age, and new lines are younger than the buttons below them. They follow this widget,
        // which only counts in the order while it could take the focus itself.
        setFocusPolicy(Qt::TabFocus);
        QWidget* before = this;
        for (ResultLine* line : m_lines) {
            setTabOrder(before, line);
            before = line;
        }
        setFocusPolicy(Qt::NoFocus);
    }
    if (!sameOrder || oldCount != rows.size())
        updateGeometry();
    place();
}

/// Each row keeps the line that showed its label; other rows take what lines are left, and what remains is
/// spare.
std::vector<ResultLine*> ResultLines::takeLinesFor(std::span<const ResultRow> rows)
{
    std::vector<ResultLine*> free = m_lines;
    std::vector<ResultLine*> lines(rows.size(), nullptr);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto same = std::ranges::find_if(
            free, [&](const ResultLine* line) { return keyOf(line->row()) == keyOf(rows[i]); });
        if (same != free.end()) {
            lines[i] = *same;
            free.erase(same);
        }
    }
    for (ResultLine*& line : lines) {
        if (line != nullptr)
            continue;
        if (free.empty()) {
            line = makeLine();
        } else {
            line = free.front();
            free.erase(free.begin());
        }
    }
    lines.insert(lines.end(), free.begin(), free.end());
    return lines;
}

ResultLine* ResultLines::makeLine()
{
    auto* line = new ResultLine(this);
    connect(line, &ResultLine::highlightChanged, this, qOverload<>(&QWidget::update));
    connect(line, &QAbstractButton::clicked, this, [this, line] {
        copyText(toQt(line->row().value));
        m_mark.set(keyOf(line->row()));
    });
    return line;
}

void ResultLines::addTo(QVBoxLayout* column, int above, int below)
{
    column->addItem(new BleedingItem(this, {ResultLine::bleed, above, ResultLine::bleed, below}));
}

void ResultLines::markLines()
{
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        m_lines[i]->setMarked(m_mark.isOn(keyOf(m_rows[i])));
}

QSize ResultLines::sizeHint() const
{
    int width = 0;
    int height = 0;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        width = std::max(width, m_lines[i]->sizeHint().width());
        height += m_lines[i]->sizeHint().height();
    }
    return {width, height};
}

QSize ResultLines::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

int ResultLines::heightForWidth(int width) const
{
    int height = 0;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        height += m_lines[i]->heightForWidth(width);
    return height;
}

void ResultLines::place()
{
    int y = 0;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const int height = m_lines[i]->heightForWidth(width());
        m_lines[i]->setGeometry(0, y, width(), height);
        y += height;
    }
    update();
}

/// A line whose texts need another number of lines asks for another height.
bool ResultLines::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        place();
        updateGeometry();
        return true;
    }
    return QWidget::event(event);
}

void ResultLines::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    place();
}

void ResultLines::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QColor divider = Theme::color(Theme::Token::divider);
    for (std::size_t i = 1; i < m_rows.size(); ++i) {
        if (!m_lines[i - 1]->isHighlighted() && !m_lines[i]->isHighlighted())
            painter.fillRect(ResultLine::bleed, m_lines[i]->y(), width() - 2 * ResultLine::bleed, 1, divider);
    }
}

} // namespace zelta
