#include "app/pages/TapePanel.h"

#include "app/components/BleedingItem.h"
#include "app/components/Button.h"
#include "app/components/Label.h"
#include "app/components/ScrollArea.h"
#include "app/components/WrappingRow.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "app/pages/PlainColumn.h"

#include <QAction>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStringList>
#include <QToolTip>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {

namespace {

constexpr int aboveButtons = 15; // at the usual size the list ends between two lines
constexpr int aboveLines = 4; // a line is taller than its text
constexpr int textGap = 10;
constexpr int barRoom = 16; // right of the texts, inside the card's padding

} // namespace

QString tapeLineText(const Calculator::TapeEntry& entry)
{
    return toQt(entry.expression) + QStringLiteral(" = ") + toQt(entry.resultText());
}

TapeLine::TapeLine(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setToolTipDuration(Metric::lastingTip);
    setFixedHeight(lineHeight);
}

void TapeLine::setEntry(const Calculator::TapeEntry& entry)
{
    m_entry = entry;
    const QString result = toQt(entry.resultText());
    setText(result);
    setToolTip(QStringLiteral("Use ") + result);
    setAccessibleName(tapeLineText(entry));
    update();
}

void TapeLine::setTextWidth(int pixels)
{
    m_textWidth = pixels;
    update();
}

TapeLine::Texts TapeLine::fitted() const
{
    const QRect place(bleed, 0, m_textWidth, height());
    const QFontMetrics metrics(Theme::font(Theme::FontRole::body));
    const QFontMetrics resultMetrics(Theme::font(Theme::FontRole::bodyBold));
    const QString expression = toQt(m_entry.expression);
    // Where both are too long, the result gets the larger share.
    const int resultRoom
        = std::max(place.width() - textGap - metrics.horizontalAdvance(expression), place.width() * 3 / 5);
    const QString result = resultMetrics.elidedText(text(), Qt::ElideMiddle, resultRoom);
    const int resultWidth = resultMetrics.horizontalAdvance(result);
    const QRect left = place.adjusted(0, 0, -resultWidth - textGap, 0);
    return {metrics.elidedText(expression, Qt::ElideRight, left.width()), left, result,
            place.adjusted(place.width() - resultWidth, 0, 0, 0)};
}

/// Over an expression that is cut the whole line is shown; elsewhere the hover help says what a click does.
bool TapeLine::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const Texts shown = fitted();
        if (shown.expressionPlace.contains(help->pos()) && shown.expression != toQt(m_entry.expression)) {
            QToolTip::showText(help->globalPos(), tapeLineText(m_entry), this, shown.expressionPlace,
                               Metric::lastingTip);
            return true;
        }
    }
    return QAbstractButton::event(event);
}

void TapeLine::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int place = Qt::AlignVCenter | Qt::TextSingleLine;
    QPainter painter(this);
    Surface::drawPress(painter, rect(), Metric::controlRadius, Surface::pressOf(*this));
    const Texts shown = fitted();
    painter.setFont(Theme::font(Theme::FontRole::bodyBold));
    painter.setPen(Theme::ink(Module::calculator));
    painter.drawText(shown.resultPlace, Qt::AlignRight | place, shown.result);
    painter.setFont(Theme::font(Theme::FontRole::body));
    painter.setPen(Theme::color(Theme::Token::textSecondary));
    painter.drawText(shown.expressionPlace, Qt::AlignLeft | place, shown.expression);
    if (Surface::showsFocus(*this))
        Surface::drawFocusRing(painter, rect(), Metric::controlRadius);
}

TapePanel::TapePanel(QWidget* parent)
    : Card(QStringLiteral("Tape"), "list-lines", parent)
    , m_empty(new Label(QStringLiteral("Completed calculations appear here. Click one to bring its result "
                                       "back into the display."),
                        Theme::FontRole::body, Theme::Token::textSecondary, this))
{
    m_area = makeArea();
    m_empty->setWrapped();
    content()->addWidget(m_empty);
    content()->addItem(new BleedingItem(m_area, {TapeLine::bleed, aboveLines, barRoom, 0}));
    content()->setStretch(content()->count() - 1, 1);
    content()->addWidget(makeCommands());
    setEntries({});
}

ScrollArea* TapePanel::makeArea()
{
    auto* area = new ScrollArea(this);
    area->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    area->setMinimumHeight(2 * TapeLine::lineHeight);
    auto* column = new QWidget(area->viewport());
    QVBoxLayout* layout = plainColumn(column, 0);
    layout->addStretch(1);
    area->setContent(column);
    area->viewport()->installEventFilter(this);
    return area;
}

WrappingRow* TapePanel::makeCommands()
{
    setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* row = new WrappingRow(this);
    row->setContentsMargins(0, aboveButtons, 0, 0);
    const auto add = [this, row](const char* label, std::string_view symbol, void (TapePanel::*run)()) {
        auto* button = new Button(toQt(label), symbol, row);
        button->setSize(Button::Size::small);
        connect(button, &QAbstractButton::clicked, this, run);
        row->add(button);
        return Command {button, addAction(toQt(label), this, run)};
    };
    m_copy = add("Copy tape", "doc.on.doc", &TapePanel::copyTape);
    m_save = add("Save to history", "tray.and.arrow.down", &TapePanel::saveRequested);
    m_clear = add("Clear tape", "trash", &TapePanel::clearRequested);
    return row;
}

TapeLine* TapePanel::makeLine()
{
    auto* column = static_cast<QVBoxLayout*>(m_area->widget()->layout());
    auto* line = new TapeLine(m_area->widget());
    column->insertWidget(static_cast<int>(m_lines.size()), line);
    // Tab goes from line to line, and only then to the buttons below.
    if (m_lines.empty()) {
        QWidget::setTabOrder(line, m_copy.button);
        QWidget::setTabOrder(m_copy.button, m_save.button);
        QWidget::setTabOrder(m_save.button, m_clear.button);
    } else {
        QWidget::setTabOrder(m_lines.back(), line);
    }
    connect(line, &QAbstractButton::clicked, this, [this, line] { Q_EMIT used(line->entry().result); });

    const auto copied = QStringLiteral("Copied");
    line->addAction(QStringLiteral("Copy result"), this,
                    [this, line, copied] { Q_EMIT copyRequested(toQt(line->entry().resultText()), copied); });
    line->addAction(QStringLiteral("Copy line"), this,
                    [this, line, copied] { Q_EMIT copyRequested(tapeLineText(line->entry()), copied); });
    return line;
}

void TapePanel::setEntries(const std::deque<Calculator::TapeEntry>& entries)
{
    while (m_lines.size() < entries.size())
        m_lines.push_back(makeLine());
    moveFocus(entries.empty());
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        m_lines[i]->setVisible(i < entries.size());
        if (i < entries.size() && m_lines[i]->entry().id != entries[i].id)
            m_lines[i]->setEntry(entries[i]);
    }
    m_empty->setVisible(entries.empty());
    for (const Command& command : {m_copy, m_clear}) {
        command.button->setEnabled(!entries.empty());
        command.action->setEnabled(!entries.empty());
    }
    m_area->verticalScrollBar()->setValue(0);
    fitLines();
}

/// The focus does not stay on a line that scrolls out of sight, nor on what is about to go: Qt would take it
/// to another part of the window.
void TapePanel::moveFocus(bool isEmpty)
{
    const bool isOnLine = std::ranges::any_of(m_lines, &QWidget::hasFocus);
    if (isEmpty && (isOnLine || m_copy.button->hasFocus() || m_clear.button->hasFocus()))
        m_save.button->setFocus();
    else if (isOnLine)
        m_lines.front()->setFocus();
}

void TapePanel::copyTape()
{
    QStringList texts;
    for (const TapeLine* line : m_lines) {
        if (!line->isHidden())
            texts += tapeLineText(line->entry());
    }
    Q_EMIT copyRequested(texts.join(QLatin1Char('\n')), QStringLiteral("Tape copied"));
}

/// The texts end where the card's other content ends, with and without a scroll bar.
void TapePanel::fitLines()
{
    const int textWidth = m_area->width() - TapeLine::bleed - barRoom;
    const bool hasBar = m_area->viewport()->width() < m_area->width();
    m_area->widget()->layout()->setContentsMargins(0, 0, hasBar ? 0 : TapeLine::bleed, 0);
    for (TapeLine* line : m_lines)
        line->setTextWidth(textWidth);
}

bool TapePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == m_area->viewport())
        fitLines();
    return Card::eventFilter(watched, event);
}

} // namespace zelta
