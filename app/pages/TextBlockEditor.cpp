#include "app/pages/TextBlockEditor.h"

#include "app/components/IconButton.h"
#include "app/look/Theme.h"
#include "app/model/Text.h"
#include "app/pages/SelectableTextEditor.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace zelta {

namespace {

constexpr int textMargin = 8; // on both sides of the text view
constexpr int removeSide = 28; // a column of this width is always kept free
constexpr int removeTop = 3;
constexpr int removeSymbol = 14;
constexpr int barWidth = 3;
constexpr int barGap = 9; // between bar and text

/// Always there for the keyboard and for assistive technology, drawn only when the row is in use.
class RemoveButton final : public IconButton
{
public:
    RemoveButton(const SelectableTextEditor* editor, QWidget* row)
        : IconButton("trash", QStringLiteral("Remove this paragraph"), row)
        , m_editor(editor)
    {
        setSide(removeSide);
        setSymbolSize(removeSymbol);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (parentWidget()->underMouse() || m_editor->hasFocus() || hasFocus())
            IconButton::paintEvent(event);
    }

private:
    const SelectableTextEditor* m_editor;
};

} // namespace

TextBlockEditor::TextBlockEditor(Clock& clock, QWidget* parent)
    : QWidget(parent)
    , m_clock(clock)
    , m_editor(new SelectableTextEditor(this))
    , m_remove(new RemoveButton(m_editor, this))
{
    connect(m_editor, &SelectableTextEditor::edited, this, &TextBlockEditor::schedulePublish);
    connect(m_editor, &SelectableTextEditor::textHeightChanged, this, &TextBlockEditor::heightChanged);
    connect(m_editor, &SelectableTextEditor::focusChanged, this, qOverload<>(&QWidget::update));
    connect(m_editor, &SelectableTextEditor::focusChanged, m_remove, qOverload<>(&QWidget::update));
    connect(m_remove, &QPushButton::clicked, this, &TextBlockEditor::removeRequested);
}

void TextBlockEditor::setValue(std::string_view value)
{
    if (value == m_value)
        return;
    m_publishTask.cancel();
    m_isTyped = false;
    m_value = value;
    m_editor->setText(toQt(value));
}

void TextBlockEditor::setMinHeight(int pixels)
{
    m_minHeight = pixels;
}

void TextBlockEditor::setPlace(std::ptrdiff_t place)
{
    if (std::exchange(m_place, place) != place)
        m_editor->setAccessibleName(QStringLiteral("Paragraph %1").arg(place));
}

int TextBlockEditor::preferredHeight() const
{
    return std::max(m_minHeight, m_editor->textHeight());
}

void TextBlockEditor::publishNow()
{
    if (m_editor->hasFocus())
        QGuiApplication::inputMethod()->commit();
    handOn();
}

/// What is being composed stays so: a pause to choose between characters does not end it.
void TextBlockEditor::handOn()
{
    // Pending until the page has it: in a gap without pending saves a closed program would end.
    const Clock::Task due = std::move(m_publishTask);
    if (!std::exchange(m_isTyped, false))
        return;
    std::string local = toUtf8(m_editor->text());
    if (local == m_value)
        return;
    m_value = std::move(local);
    Q_EMIT published(m_value);
}

void TextBlockEditor::schedulePublish()
{
    m_isTyped = true;
    m_publishTask = m_clock.after(
        publishDelay, [this] { handOn(); }, Clock::Purpose::save);
    update();
}

void TextBlockEditor::enterEvent(QEnterEvent* /*event*/)
{
    m_remove->update();
}

void TextBlockEditor::leaveEvent(QEvent* /*event*/)
{
    m_remove->update();
}

void TextBlockEditor::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    publishNow();
}

void TextBlockEditor::paintEvent(QPaintEvent* /*event*/)
{
    if (!m_editor->hasFocus())
        return;
    const QRect lines = m_editor->linesRect().translated(m_editor->pos());
    const bool isRightToLeft = m_editor->direction() == TextDirection::rightToLeft;
    const int x = isRightToLeft ? lines.right() + 1 + barGap : lines.left() - barGap - barWidth;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::tint(Module::notes));
    painter.drawRoundedRect(QRectF(x, lines.top() + 1, barWidth, lines.height() - 2), barWidth / 2.0,
                            barWidth / 2.0);
}

void TextBlockEditor::resizeEvent(QResizeEvent* /*event*/)
{
    m_editor->setGeometry(textMargin, 0, width() - removeSide - 2 * textMargin, height());
    m_remove->setGeometry(width() - removeSide, removeTop, removeSide, removeSide);
}

} // namespace zelta
