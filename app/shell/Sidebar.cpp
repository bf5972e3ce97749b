#include "app/shell/Sidebar.h"

#include "app/components/Label.h"
#include "app/components/Line.h"
#include "app/components/ScrollArea.h"
#include "app/components/SymbolIcon.h"
#include "app/look/Theme.h"
#include "app/model/AppInfo.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/shell/SidebarRow.h"

#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {
namespace {

constexpr int leastWidth = 268;
constexpr int mostWidth = 320;
constexpr int sideInset = 14;

} // namespace

Sidebar::Sidebar(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
{
    setMinimumWidth(leastWidth);
    setMaximumWidth(mostWidth);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(makeRows(), 1);
    layout->addWidget(makeFooter());

    connect(&model, &AppModel::selectionChanged, this, &Sidebar::showSelection);
    connect(&model, &AppModel::weekendRuleChanged, this, &Sidebar::showSettings);
    connect(&model, &AppModel::use24HourChanged, this, &Sidebar::showSettings);
    showSelection();
    showSettings();
}

void Sidebar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme::color(Theme::Token::chrome));
}

QWidget* Sidebar::makeHeader()
{
    auto* header = new QWidget(this);
    auto* layout = new QVBoxLayout(header);
    layout->setContentsMargins(sideInset, 10, sideInset, 12);
    layout->setSpacing(3);
    layout->addWidget(
        new Label(QStringLiteral("Zelta Basic"), Theme::FontRole::sidebarHeader, Theme::Token::text, header));
    layout->addWidget(new Label(QStringLiteral("Version ") + AppInfo::version(), Theme::FontRole::caption,
                                Theme::Token::textSecondary, header));
    return header;
}

QWidget* Sidebar::makeRows()
{
    m_area = new ScrollArea(this);
    auto* list = new QWidget(m_area->viewport());
    list->setAccessibleName(QStringLiteral("Pages"));
    auto* layout = new QVBoxLayout(list);
    layout->setContentsMargins(7, 0, 7, 0);
    layout->setSpacing(1);
    for (const Module module : allCases<Module>()) {
        auto* row = new SidebarRow(module, toQt(m_model.subtitle(module)), list);
        // Not `clicked`: assistive technology checks a button without a click.
        connect(row, &QAbstractButton::toggled, this, [this, module](bool isOn) {
            if (isOn && module != m_model.selection())
                m_model.setSelection(module);
        });
        layout->addWidget(row);
        m_rows[static_cast<std::size_t>(module)] = row;
    }
    layout->addStretch(1);
    m_area->setContent(list);
    return m_area;
}

QWidget* Sidebar::makeFooter()
{
    auto* footer = new QWidget(this);
    auto* layout = new QVBoxLayout(footer);
    layout->setContentsMargins(sideInset, 0, sideInset, 8);
    layout->setSpacing(9);
    layout->addWidget(new Line(footer, Theme::Token::outline));
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addWidget(new SymbolIcon("calendar.badge.checkmark", 12, Theme::Token::textSecondary, footer));
    m_weekend = new Label({}, Theme::FontRole::caption, Theme::Token::textSecondary, footer);
    row->addWidget(m_weekend, 1);
    layout->addLayout(row);
    return footer;
}

void Sidebar::showSelection()
{
    SidebarRow* selected = m_rows[static_cast<std::size_t>(m_model.selection())];
    selected->setChecked(true);
    // The list is one tab stop, the selected row; a focus in the list goes with the selection.
    const bool hadFocus = std::ranges::any_of(m_rows, &SidebarRow::hasFocus);
    for (SidebarRow* row : m_rows)
        row->setFocusPolicy(row == selected ? Qt::TabFocus : Qt::NoFocus);
    if (hadFocus)
        selected->setFocus();
    bringSelectionIntoView();
}

/// With large fonts the list scrolls.
void Sidebar::bringSelectionIntoView()
{
    m_area->ensureWidgetVisible(m_rows[static_cast<std::size_t>(m_model.selection())], 0, 0);
}

void Sidebar::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    bringSelectionIntoView();
}

void Sidebar::showSettings()
{
    m_weekend->setText(toQt(m_model.weekendRule().summary()));
    m_rows[static_cast<std::size_t>(Module::settings)]->setSubtitle(toQt(m_model.subtitle(Module::settings)));
}

} // namespace zelta
