#pragma once

#include "core/Enumeration.h"

#include <QWidget>
#include <array>
#include <string_view>
#include <utility>

class QVBoxLayout;

namespace zelta {

class AppModel;
class PillTabs;

/// The page "Percentage": two numbers compared on one tab, a percentage applied on the other. The chosen tab
/// is remembered; what was typed stays while the program runs.
class PercentView final : public QWidget
{
    Q_OBJECT

public:
    enum class Tab { compare, change };

    explicit PercentView(AppModel& model, QWidget* parent = nullptr);

    [[nodiscard]] Tab tab() const { return m_tab; }

private:
    void choose(const QString& value);
    QWidget* section(Tab tab);

    AppModel& m_model;
    QVBoxLayout* m_column;
    PillTabs* m_tabs;
    std::array<QWidget*, 2> m_sections {}; ///< By tab, each made when it is first shown.
    Tab m_tab = Tab::compare;
};

template <> struct EnumerationTable<PercentView::Tab>
{
    static constexpr auto all = std::to_array<std::pair<PercentView::Tab, std::string_view>>(
        {{PercentView::Tab::compare, "compare"}, {PercentView::Tab::change, "change"}});
};

} // namespace zelta
