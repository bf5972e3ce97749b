#include "app/pages/HistoryView.h"

#include "app/components/Button.h"
#include "app/components/Card.h"
#include "app/components/Clipboard.h"
#include "app/components/ConfirmDialog.h"
#include "app/components/EmptyState.h"
#include "app/components/IconButton.h"
#include "app/components/Label.h"
#include "app/components/ScrollArea.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/HistoryCard.h"
#include "app/pages/HistoryList.h"
#include "app/pages/PlainColumn.h"
#include "core/CalendarKit.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zelta {

namespace {

constexpr int mostEntries = 500;
constexpr int cardsAround = 320; // pixels above and below what is seen that are ready as well

} // namespace

HistoryView::HistoryView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_copyMark(model.clock(), [this] { m_list->showCopied(m_copyMark); })
{
    setAccessibleName(toQt(title(Module::history))); // it has the focus when its last entry goes
    QVBoxLayout* column = plainColumn(this, Metric::partSpacing);
    column->addWidget(makeHeader());
    m_list = new HistoryList(this);
    column->addWidget(m_list);
    m_empty = makeEmptyState();
    column->addWidget(m_empty);
    column->addStretch(1); // nothing moves while the page still has the height of a longer list

    connect(m_list, &HistoryList::copyRequested, this, &HistoryView::copy);
    connect(m_list, &HistoryList::deletionRequested, this, &HistoryView::remove);
    connect(m_list, &HistoryList::placesChanged, this, [this](int moved) {
        keepPlace(moved);
        fillView();
    });
    connect(&model, &AppModel::historyTokenChanged, this, [this] {
        if (isVisible())
            load();
    });
}

void HistoryView::showEvent(QShowEvent* event)
{
    if (m_viewport == nullptr)
        enterArea();
    load();
    QWidget::showEvent(event);
}

void HistoryView::hideEvent(QHideEvent* event)
{
    // What is in view stays ready, wherever the page is scrolled to.
    m_list->rest(seen());
    m_cardsAround.cancel();
    QWidget::hideEvent(event);
}

void HistoryView::enterArea()
{
    const QScrollArea* area = ScrollArea::around(*this);
    if (area == nullptr)
        return;
    m_viewport = area->viewport();
    m_scrollBar = area->verticalScrollBar();
    m_viewport->installEventFilter(this);
    connect(m_scrollBar, &QScrollBar::valueChanged, this, [this] { fill(cardsAround); });
}

bool HistoryView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize)
        fillView();
    return QWidget::eventFilter(watched, event);
}

/// The part of the list that can be seen; all of it where nothing scrolls.
QRect HistoryView::seen() const
{
    if (m_viewport == nullptr)
        return m_list->rect();
    return {m_list->mapFrom(m_viewport, QPoint()), m_viewport->size()};
}

/// Makes the cards that can be seen, and then those around them, for the Tab key and the next turn of the
/// wheel: a picture does not wait for these.
void HistoryView::fillView()
{
    using namespace std::chrono_literals;
    fill(0);
    m_cardsAround = m_model.clock().after(1ms, [this] { fill(cardsAround); });
}

/// Makes the cards that can be seen, and those so far around them.
void HistoryView::fill(int around)
{
    if (isVisible())
        keepPlace(m_list->fill(seen(), around));
}

/// What is being read stays where it is though it went down in the list.
void HistoryView::keepPlace(int moved)
{
    if (moved == 0 || m_scrollBar == nullptr)
        return;
    // The scroll bar learns of the new length first.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    m_scrollBar->setValue(m_scrollBar->value() + moved);
}

QWidget* HistoryView::makeHeader()
{
    constexpr int height = 56;
    auto* header = new Card(this);
    header->setFixedHeight(height);
    header->layout()->setContentsMargins(Metric::cardPadding, 0, Metric::cardPadding, 0);
    m_count = new Label(QString(), Theme::FontRole::bodyBold, Theme::Token::text, header);
    m_clear = new Button(QStringLiteral("Clear history"), "trash", header);
    m_clear->setInk(Theme::Token::downInk);
    connect(m_clear, &QPushButton::clicked, this, &HistoryView::confirmClearing);
    auto* row = new QHBoxLayout;
    row->addWidget(m_count, 1);
    row->addWidget(m_clear);
    header->content()->addLayout(row);
    return header;
}

QWidget* HistoryView::makeEmptyState()
{
    auto* card = new Card(this);
    card->layout()->setContentsMargins(0, 0, 0, 0); // the state keeps its own distance
    card->content()->addWidget(new EmptyState(
        symbol(Module::history), QStringLiteral("Nothing saved yet"),
        QStringLiteral("Calculations are saved automatically. You can turn that off in Settings."), card));
    return card;
}

void HistoryView::load()
{
    std::vector<HistoryEntry> entries = m_model.store().history(mostEntries);
    if (entries.empty() && isAncestorOf(window()->focusWidget()))
        setFocus(); // what had it goes or is disabled, and Qt would go on to another part of the window
    m_count->setText(toQt(std::to_string(entries.size()) + " saved"));
    m_clear->setEnabled(!entries.empty());
    m_empty->setVisible(entries.empty());
    m_list->setVisible(!entries.empty());
    // Zone and clock format are those of this moment, for cards that stay as well.
    const auto timeText = [this, calendar = m_model.calendar()](const HistoryEntry& entry) {
        const std::string date = CalendarKit::fullDate(entry.createdAt, calendar);
        return toQt(date + " · " + m_model.clockText(entry.createdAt, calendar));
    };
    const int moved = m_list->setEntries(std::move(entries), timeText);
    layout()->activate(); // a card's height depends on the list's width
    keepPlace(moved);
    fillView();
}

void HistoryView::copy(const HistoryEntry& entry)
{
    copyText(toQt(entry.detail));
    m_copyMark.set(std::to_string(entry.id));
}

void HistoryView::remove(const HistoryEntry& entry)
{
    const std::int64_t id = entry.id;
    const std::vector<HistoryEntry>& entries = m_list->entries();
    const auto at
        = static_cast<std::size_t>(std::ranges::find(entries, id, &HistoryEntry::id) - entries.begin());
    const HistoryCard* card = m_list->card(id);
    const bool hadFocus = entries.size() > 1 && card != nullptr && card->deleteButton()->hasFocus();
    const std::int64_t next = hadFocus ? entries[at + 1 < entries.size() ? at + 1 : at - 1].id : 0;
    // Whoever deletes with the keyboard goes on with the next entry: before this one goes, or Qt would pass
    // the focus on to a stranger first, and again, where that card comes into view only now.
    const auto goOn = [this, hadFocus, next] {
        if (const HistoryCard* neighbour = hadFocus ? m_list->card(next) : nullptr)
            neighbour->deleteButton()->setFocus(Qt::TabFocusReason);
    };
    goOn();
    m_model.store().deleteHistory(id);
    load();
    goOn();
}

void HistoryView::confirmClearing()
{
    ConfirmDialog::ask(*this,
                       {.title = QStringLiteral("Clear the whole history?"),
                        .text = QStringLiteral("This cannot be undone."),
                        .action = QStringLiteral("Clear history")},
                       [this] {
                           m_model.store().clearHistory();
                           load();
                       });
}

} // namespace zelta
