#include "app/pages/NoteEditorPane.h"

#include "app/components/Button.h"
#include "app/components/EmptyState.h"
#include "app/components/Flash.h"
#include "app/components/Label.h"
#include "app/look/Theme.h"
#include "app/pages/ParagraphColumn.h"
#include "core/Note.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace zelta {

namespace {

constexpr int line = 1;
constexpr std::chrono::milliseconds flashTime {1400};

/// The foot of the card, below a thin line while there is something above it.
class Footer final : public QWidget
{
public:
    using QWidget::QWidget;

    bool hasLine = false;

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        if (!hasLine)
            return;
        QPainter painter(this);
        painter.fillRect(0, 0, width() + line, line, Theme::color(Theme::Token::divider));
    }
};

} // namespace

NoteEditorPane::NoteEditorPane(Clock& clock, QWidget* parent)
    : Card(parent)
    , m_paragraphs(new ParagraphColumn(clock, this))
    , m_empty(new EmptyState("note.text", QStringLiteral("Nothing selected"),
                             QStringLiteral("Pick a note on the left, or make a new one."), this))
    , m_footer(makeFooter(clock))
{
    // The corners are round, so what scrolls keeps a little away from the card's top.
    constexpr int top = 4;
    constexpr int besideScrollBar = 3;
    layout()->setContentsMargins(line, top, besideScrollBar, line);
    content()->addWidget(m_paragraphs, 1);
    content()->addWidget(m_empty, 1);
    content()->addWidget(m_footer);
    show(nullptr);
}

void NoteEditorPane::show(const Note* note)
{
    static_cast<Footer*>(m_footer)->hasLine = note != nullptr;
    m_footer->update();
    m_paragraphs->setVisible(note != nullptr);
    m_empty->setVisible(note == nullptr);
    m_words->setVisible(note != nullptr);
    m_add->setVisible(note != nullptr);
    if (note != nullptr)
        showWords(*note);
    layout()->activate(); // the paragraphs are laid out at the width that they get
    m_paragraphs->show(note);
}

void NoteEditorPane::showWords(const Note& note)
{
    m_words->setText(QStringLiteral("%1 words").arg(note.wordCount()));
}

QWidget* NoteEditorPane::makeFooter(Clock& clock)
{
    constexpr int left = 24;
    constexpr int right = 10;
    constexpr int vertical = 8;
    constexpr int gap = 12;
    auto* footer = new Footer(this);
    m_words = new Label({}, Theme::FontRole::caption, Theme::Token::textSecondary, footer);
    m_flash = new Flash(clock, flashTime, footer);
    m_add = new Button(QStringLiteral("Add paragraph"), "plus", footer);
    m_add->setSize(Button::Size::small);
    auto* row = new QHBoxLayout(footer);
    row->setContentsMargins(left, vertical + line, right, vertical);
    row->setSpacing(gap);
    row->addWidget(m_words);
    row->addWidget(m_flash);
    row->addStretch(1);
    row->addWidget(m_add);
    footer->setFixedHeight(line + 2 * vertical + Metric::smallButtonHeight);
    return footer;
}

} // namespace zelta
