#pragma once

#include "core/Units.h"

#include <QWidget>
#include <string>

class QVBoxLayout;

namespace zelta {

class AppModel;
class Card;
class NumberField;
class Picker;
class PillTabs;
class ResultLines;
class ResultList;

/// The page "Converter": an amount in one unit, read in another, with common conversions below. The category
/// is remembered; units and amount stay while the program runs. Conversions do not go into the history.
class ConverterView final : public QWidget
{
    Q_OBJECT

public:
    explicit ConverterView(AppModel& model, QWidget* parent = nullptr);

    [[nodiscard]] UnitKind kind() const { return m_kind; }
    [[nodiscard]] std::string fromId() const;
    [[nodiscard]] std::string toId() const;

private:
    QWidget* makeInput();
    QWidget* makeSwapButton(QWidget* parent);
    QWidget* makeTemperatures();

    void restore();
    void choose(const QString& kindId);
    void adopt(UnitKind kind);
    void swap();
    void showReferences();
    void showAnswer();

    AppModel& m_model;
    UnitKind m_kind = UnitKind::length;

    QVBoxLayout* m_column;
    PillTabs* m_tabs;
    NumberField* m_amount;
    Picker* m_from;
    Picker* m_to;
    ResultList* m_results = nullptr; ///< Made after the fields: readers and Tab go by age.
    Card* m_references = nullptr; ///< The common conversions of lengths or weights.
    ResultLines* m_referenceLines = nullptr;
    QWidget* m_temperatures = nullptr; ///< Those of temperatures with the ladder; made when first shown.
};

} // namespace zelta
