#include "app/components/ResultList.h"

#include "app/components/Button.h"
#include "app/components/Clipboard.h"
#include "app/components/Label.h"
#include "app/components/ResultLines.h"
#include "app/components/WrappingRow.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"

#include <QShowEvent>
#include <QVBoxLayout>
#include <utility>

namespace zelta {

namespace {

/// Marks "Copy all results"; no row has this label.
constexpr const char* allKey = "__all__";

constexpr int aboveLines = 8;
constexpr int aboveActions = 14;

} // namespace

ResultList::ResultList(AppModel& model, std::optional<Module> module, const QString& emptyMessage,
                       QWidget* parent)
    : Card(QStringLiteral("Result"), "equals-sign", parent)
    , m_model(model)
    , m_module(module)
    , m_empty(new Label(emptyMessage, Theme::FontRole::body, Theme::Token::textSecondary, this))
    , m_lines(new ResultLines(model.clock(), this))
    , m_actions(makeActions())
{
    m_empty->setWrapped();
    content()->addWidget(m_empty);
    m_lines->addTo(content(), aboveLines, 0);
    content()->addWidget(m_actions);
    m_lines->hide();
    m_actions->hide();
    connect(m_lines, &ResultLines::markChanged, this, &ResultList::showMark);
}

WrappingRow* ResultList::makeActions()
{
    auto* actions = new WrappingRow(this);
    actions->setContentsMargins(0, aboveActions, 0, 0);
    m_copyAll = new Button(QStringLiteral("Copy all results"), "doc.on.doc", actions);
    connect(m_copyAll, &QAbstractButton::clicked, this, &ResultList::copyAll);
    actions->add(m_copyAll);
    if (m_module) {
        auto* saveButton = new Button(QStringLiteral("Save to history"), "tray.and.arrow.down", actions);
        connect(saveButton, &QAbstractButton::clicked, this, &ResultList::save);
        actions->add(saveButton);
    }
    return actions;
}

void ResultList::setRows(std::vector<ResultRow> rows, std::string title)
{
    m_title = std::move(title);
    if (rows == m_rows)
        return;
    const bool sameText = plainText(rows) == plainText(m_rows);
    const bool emptinessChanges = rows.empty() != m_rows.empty();
    m_rows = std::move(rows);
    m_lines->setRows(m_rows);
    if (emptinessChanges) {
        m_empty->setVisible(m_rows.empty());
        m_lines->setVisible(!m_rows.empty());
        m_actions->setVisible(!m_rows.empty());
    }
    if (!sameText && isVisible())
        offerToHistory();
}

void ResultList::showEvent(QShowEvent* event)
{
    Card::showEvent(event);
    if (!event->spontaneous())
        offerToHistory();
}

void ResultList::offerToHistory()
{
    if (m_module && !m_rows.empty())
        m_model.autoRecord(*m_module, m_title, m_rows);
}

void ResultList::copyAll()
{
    copyText(toQt(plainText(m_rows)));
    m_lines->setMark(allKey);
}

void ResultList::save()
{
    m_model.record(*m_module, m_title, m_rows);
}

void ResultList::showMark()
{
    if (m_lines->isMarked(allKey))
        m_copyAll->showConfirmation(QStringLiteral("Copied"));
    else
        m_copyAll->clearConfirmation();
}

} // namespace zelta
