#include "app/pages/PercentSections.h"

#include "app/components/Button.h"
#include "app/components/Card.h"
#include "app/components/InfoNote.h"
#include "app/components/NumberField.h"
#include "app/components/ResultList.h"
#include "app/components/WrappingRow.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"
#include "app/pages/PlainColumn.h"
#include "core/Num.h"
#include "core/PercentMath.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QVBoxLayout>

namespace zelta {

namespace {

constexpr int fieldSpacing = 18;
constexpr int fieldLineSpacing = 14;
constexpr int aboveNote = 10;

NumberField* makeField(const QString& label, const QString& explanation, int width, QWidget* parent)
{
    auto* field = new NumberField(label, explanation, parent);
    field->setPlaceholder(QStringLiteral("0"));
    field->setFieldWidth(width);
    return field;
}

} // namespace

CompareSection::CompareSection(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_x(makeField(QStringLiteral("Value X"), QStringLiteral("The part, or the starting point"), 200, this))
    , m_y(makeField(QStringLiteral("Value Y"), QStringLiteral("The whole, or the comparison"), 200, this))
{
    QVBoxLayout* column = plainColumn(this, 0);
    column->addWidget(makeInput());
    column->addSpacing(aboveNote);
    column->addWidget(new InfoNote(
        QStringLiteral(
            "“X is this much of Y” answers 50 is what % of 75. “Change X → Y” measures the move from X to Y "
            "against X alone, so it reads differently going the other way."),
        this));
    column->addSpacing(Metric::partSpacing);
    m_results
        = new ResultList(model, Module::percent, QStringLiteral("Type two numbers to compare them."), this);
    column->addWidget(m_results);
    connect(m_x, &NumberField::textEdited, this, &CompareSection::showAnswer);
    connect(m_y, &NumberField::textEdited, this, &CompareSection::showAnswer);
}

QWidget* CompareSection::makeInput()
{
    auto* card = new Card(this);
    auto* row = new WrappingRow(card, fieldSpacing, fieldLineSpacing);
    row->add(m_x);
    row->add(m_y);

    auto* swapPlace = new QWidget(row);
    auto* swapColumn = new QVBoxLayout(swapPlace);
    constexpr int onCentreLine = (Metric::fieldHeight - Metric::buttonHeight) / 2;
    swapColumn->setContentsMargins(0, NumberField::fieldTop() + onCentreLine, 0, 0);
    auto* swapButton = new Button(QStringLiteral("Swap"), "arrow.left.arrow.right", swapPlace);
    swapButton->setLook(Button::Look::borderless);
    swapButton->setInk([] { return Theme::ink(Module::percent); });
    swapButton->setToolTip(QStringLiteral("Swap X and Y"));
    swapButton->setAccessibleName(swapButton->toolTip());
    connect(swapButton, &QAbstractButton::clicked, this, &CompareSection::swap);
    swapColumn->addWidget(swapButton);
    row->add(swapPlace);

    card->content()->addWidget(row);
    return card;
}

void CompareSection::swap()
{
    QGuiApplication::inputMethod()->commit(); // what is being composed belongs to its field
    const QString x = m_x->text();
    m_x->setText(m_y->text());
    m_y->setText(x);
    showAnswer();
}

void CompareSection::showAnswer()
{
    const std::string x = toUtf8(m_x->text());
    const std::string y = toUtf8(m_y->text());
    const auto a = Num::parse(x);
    const auto b = Num::parse(y);
    std::vector<ResultRow> rows;
    if (a && b)
        rows = PercentMath::Relationship {*a, *b}.rows();
    m_results->setRows(std::move(rows), x + " compared with " + y);
}

ChangeSection::ChangeSection(AppModel& model, QWidget* parent)
    : QWidget(parent)
    , m_value(makeField(QStringLiteral("Value"), {}, 180, this))
    , m_percent(makeField(QStringLiteral("Percentage"), {}, 130, this))
{
    m_percent->setSuffix(QStringLiteral("%"));
    QVBoxLayout* column = plainColumn(this, 0);
    column->addWidget(makeInput());
    column->addSpacing(Metric::partSpacing);
    m_results
        = new ResultList(model, Module::percent, QStringLiteral("Enter a value and a percentage."), this);
    column->addWidget(m_results);
    connect(m_value, &NumberField::textEdited, this, &ChangeSection::showAnswer);
    connect(m_percent, &NumberField::textEdited, this, &ChangeSection::showAnswer);
}

QWidget* ChangeSection::makeInput()
{
    auto* card = new Card(QStringLiteral("Apply a percentage"), "plus-minus", this);
    auto* row = new WrappingRow(card, fieldSpacing, fieldLineSpacing);
    row->add(m_value);
    row->add(m_percent);
    card->content()->addWidget(row);
    return card;
}

void ChangeSection::showAnswer()
{
    const std::string valueText = toUtf8(m_value->text());
    const std::string percentText = toUtf8(m_percent->text());
    const auto value = Num::parse(valueText);
    const auto percent = Num::parse(percentText);
    std::vector<ResultRow> rows;
    if (value && percent)
        rows = PercentMath::change(*value, *percent).rows();
    // What was typed stands as it is: a typed "%" is doubled.
    m_results->setRows(std::move(rows), valueText + " ± " + percentText + "%");
}

} // namespace zelta
