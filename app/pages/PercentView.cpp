#include "app/pages/PercentView.h"

#include "app/components/PillTabs.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/PercentSections.h"
#include "app/pages/PlainColumn.h"

#include <QLineEdit>
#include <utility>

namespace zelta {

namespace {

constexpr std::string_view tabKey = "tab.percent";

QString valueOf(PercentView::Tab tab)
{
    return toQt(rawValue(tab));
}

} // namespace

PercentView::PercentView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_column(plainColumn(this, Metric::partSpacing))
    , m_tabs(new PillTabs({{valueOf(Tab::compare), QStringLiteral("X is what % of Y"), "pie-slice"},
                           {valueOf(Tab::change), QStringLiteral("Increase / decrease"), "up-down-arrows"}},
                          Module::percent, this))
{
    m_column->addWidget(m_tabs, 0, Qt::AlignLeft);
    connect(m_tabs, &PillTabs::selected, this, &PercentView::choose);

    const auto stored = m_model.store().setting(tabKey);
    m_tab = fromRawValue<Tab>(stored.value_or(std::string())).value_or(Tab::compare);
    m_tabs->setSelection(valueOf(m_tab));
    section(m_tab)->show();
}

void PercentView::choose(const QString& value)
{
    const auto tab = fromRawValue<Tab>(toUtf8(value));
    if (!tab)
        return;
    m_model.store().setSetting(tabKey, rawValue(*tab));
    QWidget* before = section(std::exchange(m_tab, *tab));
    QWidget* now = section(*tab);
    now->show();
    // Who was typing goes on typing; Qt would take the focus to another part of the window.
    if (before->isAncestorOf(window()->focusWidget())) {
        auto* first = now->findChild<QLineEdit*>();
        first->setFocus();
        first->selectAll();
    }
    before->hide();
}

/// Made when it is asked for first.
QWidget* PercentView::section(Tab tab)
{
    QWidget*& section = m_sections.at(static_cast<std::size_t>(tab));
    if (section == nullptr) {
        if (tab == Tab::compare)
            section = new CompareSection(m_model, this);
        else
            section = new ChangeSection(m_model, this);
        section->hide();
        m_column->addWidget(section);
    }
    return section;
}

} // namespace zelta
