#include "app/pages/ConverterView.h"

#include "app/components/Card.h"
#include "app/components/Columns.h"
#include "app/components/InfoNote.h"
#include "app/components/Label.h"
#include "app/components/NumberField.h"
#include "app/components/Picker.h"
#include "app/components/PillTabs.h"
#include "app/components/ResultLines.h"
#include "app/components/ResultList.h"
#include "app/components/SwapButton.h"
#include "app/components/WrappingRow.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/PlainColumn.h"
#include "core/Converter.h"

namespace zelta {

namespace {

constexpr std::string_view kindKey = "converter.kind";
constexpr int fieldSpacing = 12;
constexpr int fieldLineSpacing = 14;
constexpr int labelGap = 6;
constexpr int pickerWidth = 210;
constexpr int leastColumn = 340;
constexpr int aboveNote = 10;

PillTabs::Tab tabOf(UnitKind kind, std::string symbol)
{
    return {toQt(rawValue(kind)), toQt(title(kind)), std::move(symbol)};
}

Picker* makePicker(const QString& label, QWidget* parent)
{
    auto* picker = new Picker(label, parent);
    picker->setFixedWidth(pickerWidth);
    return picker;
}

QWidget* labelled(Picker* picker, QWidget* parent)
{
    auto* place = new QWidget(parent);
    QVBoxLayout* column = plainColumn(place, labelGap);
    auto* label = new Label(picker->accessibleName(), Theme::FontRole::captionMedium,
                            Theme::Token::textSecondary, place);
    label->setBuddy(picker);
    column->addWidget(label);
    column->addWidget(picker);
    return place;
}

/// A card of lines to read off and copy; the lines stand closer to the title and the edge than other content.
ResultLines* makeLines(Card* card, AppModel& model)
{
    constexpr int above = 8;
    constexpr int below = 10; // so that all lengths fit a window of 760 without scrolling
    auto* lines = new ResultLines(model.clock(), card);
    lines->addTo(card->content(), above, below);
    return lines;
}

Card* makeReferenceCard(QWidget* parent)
{
    return new Card(QStringLiteral("Common conversions"), "list-lines", parent);
}

} // namespace

ConverterView::ConverterView(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_model(model)
    , m_column(plainColumn(this, Metric::partSpacing))
    , m_tabs(new PillTabs({tabOf(UnitKind::length, "ruler"), tabOf(UnitKind::mass, "weighing-scale"),
                           tabOf(UnitKind::temperature, "thermometer")},
                          Module::converter, this))
    , m_amount(new NumberField(QStringLiteral("Amount"), {}, this))
    , m_from(makePicker(QStringLiteral("From"), this))
    , m_to(makePicker(QStringLiteral("To"), this))
{
    m_column->addWidget(m_tabs, 0, Qt::AlignLeft);
    m_column->addWidget(makeInput());
    m_results = new ResultList(model, std::nullopt, QStringLiteral("Type an amount to convert it."), this);
    m_column->addWidget(m_results);
    m_references = makeReferenceCard(this);
    m_referenceLines = makeLines(m_references, model);
    m_column->addWidget(m_references);

    connect(m_tabs, &PillTabs::selected, this, &ConverterView::choose);
    connect(m_amount, &NumberField::textEdited, this, &ConverterView::showAnswer);
    connect(m_from, &QComboBox::activated, this, &ConverterView::showAnswer);
    connect(m_to, &QComboBox::activated, this, &ConverterView::showAnswer);
    restore();
}

std::string ConverterView::fromId() const
{
    return toUtf8(m_from->currentData().toString());
}

std::string ConverterView::toId() const
{
    return toUtf8(m_to->currentData().toString());
}

QWidget* ConverterView::makeInput()
{
    constexpr int amountWidth = 160;
    auto* card = new Card(this);
    auto* row = new WrappingRow(card, fieldSpacing, fieldLineSpacing);
    m_amount->setFieldWidth(amountWidth);
    row->add(m_amount);
    row->add(labelled(m_from, row));
    row->add(makeSwapButton(row));
    row->add(labelled(m_to, row));
    card->content()->addWidget(row);
    return card;
}

QWidget* ConverterView::makeSwapButton(QWidget* parent)
{
    auto* place = new QWidget(parent);
    QVBoxLayout* column = plainColumn(place, 0);
    column->setContentsMargins(0, NumberField::fieldTop(), 0, 0);
    auto* button = new SwapButton(QStringLiteral("Swap the two units"), Module::converter, place);
    button->setSide(Metric::fieldHeight);
    connect(button, &QAbstractButton::clicked, this, &ConverterView::swap);
    column->addWidget(button);
    // The pickers are older than the button between them, and Tab would go by age.
    setTabOrder(m_from, button);
    setTabOrder(button, m_to);
    return place;
}

QWidget* ConverterView::makeTemperatures()
{
    auto* left = new QWidget(this);
    QVBoxLayout* leftColumn = plainColumn(left, aboveNote);
    Card* references = makeReferenceCard(left);
    makeLines(references, m_model)->setTexts(Converter::referenceEntries(UnitKind::temperature));
    leftColumn->addWidget(references);
    leftColumn->addWidget(new InfoNote(
        QStringLiteral(
            "Temperature scales are shifted as well as stretched, so a reading converts but a difference "
            "does not: 20 °C is 68 °F, yet a rise of 20 °C is a rise of 36 °F."),
        left));
    leftColumn->addStretch(1);

    auto* right = new QWidget(this);
    QVBoxLayout* rightColumn = plainColumn(right, 0);
    auto* ladder = new Card(QStringLiteral("Everyday temperatures"), "thermometer", right);
    makeLines(ladder, m_model)->setTexts(Converter::temperatureLadder());
    rightColumn->addWidget(ladder);
    rightColumn->addStretch(1);
    return new Columns(leastColumn, left, right, this);
}

/// A page lives as long as the program, so this runs once. It writes nothing: a category that this version
/// does not know stays stored until another is chosen.
void ConverterView::restore()
{
    const auto stored = m_model.store().setting(kindKey);
    const auto kind = fromRawValue<UnitKind>(stored.value_or(std::string()));
    adopt(kind.value_or(UnitKind::length));
    m_tabs->setSelection(toQt(rawValue(m_kind)));
}

void ConverterView::choose(const QString& kindId)
{
    const auto kind = fromRawValue<UnitKind>(toUtf8(kindId));
    if (!kind)
        return;
    m_model.store().setSetting(kindKey, rawValue(*kind));
    adopt(*kind);
}

void ConverterView::adopt(UnitKind kind)
{
    m_kind = kind;
    const auto offer = [kind](Picker* picker, std::string_view chosen) {
        picker->clear();
        for (const UnitDef& unit : units(kind))
            picker->addEntry(toQt(unit.name), toQt(unit.symbol), toQt(unit.id));
        picker->setCurrentIndex(picker->findData(toQt(chosen)));
    };
    const auto [from, to] = Converter::startingPair(kind);
    offer(m_from, from);
    offer(m_to, to);
    showReferences();
    showAnswer();
}

void ConverterView::swap()
{
    const int from = m_from->currentIndex(); // both offer the same units
    m_from->setCurrentIndex(m_to->currentIndex());
    m_to->setCurrentIndex(from);
    showAnswer();
}

void ConverterView::showReferences()
{
    const bool temperatures = m_kind == UnitKind::temperature;
    if (temperatures && m_temperatures == nullptr) {
        m_temperatures = makeTemperatures();
        m_column->addWidget(m_temperatures);
    }
    if (!temperatures)
        m_referenceLines->setTexts(Converter::referenceEntries(m_kind));
    m_references->setVisible(!temperatures);
    if (m_temperatures != nullptr)
        m_temperatures->setVisible(temperatures);
}

void ConverterView::showAnswer()
{
    m_results->setRows(Converter::rows(m_kind, fromId(), toId(), toUtf8(m_amount->text())), {});
}

} // namespace zelta
