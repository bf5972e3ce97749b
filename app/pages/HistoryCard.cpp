#include "app/pages/HistoryCard.h"

#include "app/components/Button.h"
#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/components/ModuleGlyph.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/Module.h"
#include "app/model/Text.h"
#include "app/pages/HistoryDetail.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>
#include <algorithm>
#include <utility>

namespace zelta {

namespace {

constexpr int side = 16; // with the line around
constexpr int above = 14;
constexpr int badge = 28;
constexpr int badgeGap = 12;
constexpr int textLine = 19;
constexpr int timeLine = 15;
constexpr int belowTitle = 3;
constexpr int belowSummary = 4;
constexpr int controlGap = 2;
constexpr int aboveDetail = 11;

Label* makeText(const QString& text, Theme::FontRole role, Theme::Token token, QWidget* parent)
{
    auto* label = new Label(text, role, token, parent);
    label->setWrapped();
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

} // namespace

HistoryCard::HistoryCard(const HistoryEntry& entry, const QString& time, QWidget* parent)
    : QWidget(parent)
    , m_entry(entry)
    , m_title(makeText(toQt(entry.title), Theme::FontRole::bodyBold, Theme::Token::text, this))
    , m_summary(makeText(toQt(entry.summary), Theme::FontRole::body, Theme::Token::text, this))
    , m_time(makeText(time, Theme::FontRole::caption, Theme::Token::textSecondary, this))
    , m_toggle(new Button(QStringLiteral("Show details"), "chevron-down", this))
    , m_copy(new IconButton("doc.on.doc", QStringLiteral("Copy the full result"), this))
    , m_delete(new IconButton("trash", QStringLiteral("Delete this entry"), this))
{
    m_toggle->setLook(Button::Look::borderless);
    m_toggle->setSize(Button::Size::small);
    m_toggle->setInk(Theme::Token::accentInk);
    // Which of the many: a screen reader hears the button alone.
    const QString title = toQt(entry.title);
    m_toggle->setAccessibleDescription(title);
    m_copy->setAccessibleDescription(title);
    m_delete->setAccessibleDescription(title);
    connect(m_toggle, &QPushButton::clicked, this, &HistoryCard::toggleDetail);
    connect(m_copy, &QPushButton::clicked, this, &HistoryCard::copyRequested);
    connect(m_delete, &QPushButton::clicked, this, &HistoryCard::deletionRequested);
    m_delete->installEventFilter(this);
}

int HistoryCard::usualHeight()
{
    const auto line = [](Theme::FontRole role, int atLeast) {
        return std::max(atLeast, qCeil(QFontMetricsF(Theme::font(role)).height()));
    };
    return 2 * above + line(Theme::FontRole::bodyBold, textLine) + belowTitle
        + line(Theme::FontRole::body, textLine) + belowSummary + line(Theme::FontRole::caption, timeLine);
}

const HistoryEntry& HistoryCard::entry() const
{
    return m_entry;
}

void HistoryCard::setTime(const QString& time)
{
    m_time->setText(time);
}

void HistoryCard::setCopied(bool copied)
{
    if (std::exchange(m_isCopied, copied) == copied)
        return;
    m_copy->setConfirming(copied);
    m_copy->setAccessibleDescription(copied ? QStringLiteral("Copied") : toQt(m_entry.title));
}

std::vector<QWidget*> HistoryCard::controls() const
{
    std::vector<QWidget*> all {m_toggle, m_copy, m_delete};
    if (m_detail != nullptr)
        all.push_back(m_detail);
    return all;
}

IconButton* HistoryCard::deleteButton() const
{
    return m_delete;
}

int HistoryCard::heightForWidth(int width) const
{
    return place(width, Parts::stay);
}

/// A double click is meant for one entry, and its second half comes when the next one is there already.
bool HistoryCard::eventFilter(QObject* watched, QEvent* event)
{
    return event->type() == QEvent::MouseButtonDblClick || QWidget::eventFilter(watched, event);
}

void HistoryCard::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    Surface::draw(painter, rect(), Metric::cardRadius, Theme::color(Theme::Token::card),
                  Theme::color(Theme::Token::outline));
    const std::optional<Module> module = fromRawValue<Module>(m_entry.module);
    ModuleGlyph::draw(painter, QRectF(side, above, badge, badge), module ? symbol(*module) : "number",
                      Theme::tint(module.value_or(Module::history)));
}

void HistoryCard::resizeEvent(QResizeEvent* /*event*/)
{
    static_cast<void>(place(width(), Parts::move));
}

void HistoryCard::toggleDetail()
{
    const bool shows = m_detail == nullptr || m_detail->isHidden();
    if (m_detail == nullptr) {
        m_detail = new HistoryDetail(toQt(m_entry.detail), this);
        QWidget::setTabOrder(m_delete, m_detail);
    }
    m_detail->setVisible(shows);
    m_toggle->setLabel(shows ? QStringLiteral("Hide details") : QStringLiteral("Show details"));
    m_toggle->setSymbol(shows ? "chevron-up" : "chevron-down");
    static_cast<void>(place(width(), Parts::move));
    Q_EMIT heightChanged();
    update();
}

/// Finds where all parts go at this width, moves them there if asked, and gives the height that they need.
int HistoryCard::place(int width, Parts parts) const
{
    const bool move = parts == Parts::move;
    int right = width - side;
    for (Button* control : {static_cast<Button*>(m_delete), static_cast<Button*>(m_copy), m_toggle}) {
        const QSize size = control->sizeHint();
        right -= size.width();
        if (move)
            control->setGeometry(right, above + (Metric::buttonHeight - size.height()) / 2, size.width(),
                                 size.height());
        right -= controlGap;
    }
    const int left = side + badge + badgeGap;
    const int textWidth = std::max(1, right + controlGap - badgeGap - left);
    int y = above;
    const auto put = [&](Label* label, int line, int gap) {
        const int height = std::max(line, label->heightForWidth(textWidth));
        if (move)
            label->setGeometry(left, y, textWidth, height);
        y += height + gap;
    };
    put(m_title, textLine, belowTitle);
    put(m_summary, textLine, belowSummary);
    put(m_time, timeLine, 0);
    if (m_detail != nullptr && !m_detail->isHidden()) {
        const int detailWidth = width - side - left;
        const int height = m_detail->heightForWidth(detailWidth);
        y += aboveDetail;
        if (move)
            m_detail->setGeometry(left, y, detailWidth, height);
        y += height;
    }
    return y + above;
}

} // namespace zelta
