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
constexpr int top = 4; // the corners are round: what scrolls keeps a little away from the card's top
constexpr std::chrono::milliseconds flashTime {1400};

} // namespace

NoteEditorPane::NoteEditorPane(Clock& clock, QWidget* parent)
    : Card(parent)
    , m_paragraphs(new ParagraphColumn(clock, this))
    , m_empty(new EmptyState("note.text", QStringLiteral("Nothing selected"),
                             QStringLiteral("Pick a note on the left, or make a new one."), this, top))
    , m_footer(makeFooter(clock))
{
    constexpr int besideScrollBar = 3;
    layout()->setContentsMargins(line, top, besideScrollBar, line);
    content()->addWidget(m_paragraphs, 1);
    content()->addWidget(m_empty, 1);
    content()->addWidget(m_footer);
    showNote(nullptr);
}

void NoteEditorPane::showNote(const Note* note)
{
    m_paragraphs->setVisible(note != nullptr);
    m_empty->setVisible(note == nullptr);
    m_words->setVisible(note != nullptr);
    m_add->setVisible(note != nullptr);
    if (note != nullptr)
        showWords(*note);
    layout()->activate(); // the paragraphs are laid out at the width that they get
    m_paragraphs->showNote(note);
    update();
}

/// A thin line parts the paragraphs from the foot.
void NoteEditorPane::paintEvent(QPaintEvent* event)
{
    Card::paintEvent(event);
    if (m_paragraphs->isHidden())
        return;
    QPainter painter(this);
    painter.fillRect(line, m_footer->y(), width() - 2 * line, line, Theme::color(Theme::Token::divider));
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
    auto* footer = new QWidget(this);
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
