#pragma once

#include "app/components/Card.h"
#include "app/model/Module.h"
#include "core/ResultRow.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zelta {

class AppModel;
class Button;
class Label;
class ResultLines;
class WrappingRow;

/// The card "Result": an answer as lines that can be copied one by one or all together, and that go into the
/// history by themselves (and at once by "Save to history") when the list belongs to a page.
class ResultList final : public Card
{
    Q_OBJECT

public:
    /// `module` is the page under which answers are recorded; nothing is recorded without one. `emptyMessage`
    /// is shown in place of an empty answer.
    ResultList(AppModel& model, std::optional<Module> module, const QString& emptyMessage,
               QWidget* parent = nullptr);

    /// Shows an answer. `title` names it in the history: "50 compared with 75".
    void setRows(std::vector<ResultRow> rows, std::string title);
    [[nodiscard]] std::span<const ResultRow> rows() const { return m_rows; }
    [[nodiscard]] const std::string& title() const { return m_title; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    WrappingRow* makeActions();
    void copyAll();
    void save();
    void showMark();
    void offerToHistory();

    AppModel& m_model;
    std::optional<Module> m_module;
    std::vector<ResultRow> m_rows;
    std::string m_title;
    Label* m_empty;
    ResultLines* m_lines;
    Button* m_copyAll = nullptr;
    WrappingRow* m_actions;
};

} // namespace zelta
