#include "app/pages/CalculatorKey.h"

#include "app/model/Text.h"

#include <QKeyEvent>

namespace zelta {

namespace {

using Kind = CalculatorKey::Kind;
using Operation = Calculator::Operation;

QString helpOf(Operation operation)
{
    switch (operation) {
    case Operation::add:
        return QStringLiteral("Add");
    case Operation::subtract:
        return QStringLiteral("Subtract");
    case Operation::multiply:
        return QStringLiteral("Multiply");
    case Operation::divide:
        return QStringLiteral("Divide");
    }
    return {};
}

std::optional<CalculatorKey> keyOf(QChar character)
{
    switch (character.unicode()) {
    case u'.':
    case u',':
        return CalculatorKey::of(Kind::point);
    case u'+':
        return CalculatorKey::of(Operation::add);
    case u'-':
        return CalculatorKey::of(Operation::subtract);
    case u'*':
    case u'x':
        return CalculatorKey::of(Operation::multiply);
    case u'/':
        return CalculatorKey::of(Operation::divide);
    case u'=':
        return CalculatorKey::of(Kind::equals);
    case u'%':
        return CalculatorKey::of(Kind::percent);
    case u'c':
        return CalculatorKey::of(Kind::clear);
    case u'n':
        return CalculatorKey::of(Kind::sign);
    default:
        break;
    }
    if (character >= QLatin1Char('0') && character <= QLatin1Char('9'))
        return CalculatorKey::ofDigit(character.unicode() - u'0');
    return std::nullopt;
}

} // namespace

std::optional<CalculatorKey> CalculatorKey::typed(const QKeyEvent& event)
{
    // With Control held the text is a control character, so the modifiers come first.
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return of(Kind::equals);
    case Qt::Key_Backspace:
        return of(Kind::backspace);
    case Qt::Key_Escape:
        return of(Kind::clear);
    default:
        break;
    }
    return event.text().isEmpty() ? std::nullopt : keyOf(event.text().front());
}

void CalculatorKey::press(Calculator& calculator) const
{
    switch (kind) {
    case Kind::digit:
        return calculator.digit(digit);
    case Kind::operation:
        return calculator.operation(operation);
    case Kind::point:
        return calculator.decimalPoint();
    case Kind::sign:
        return calculator.toggleSign();
    case Kind::backspace:
        return calculator.backspace();
    case Kind::clear:
        return calculator.clearAll();
    case Kind::percent:
        return calculator.percent();
    case Kind::equals:
        return calculator.equals();
    }
}

CalculatorKeyFace CalculatorKeyFace::of(const CalculatorKey& key)
{
    using Theme::FontRole;
    using Theme::Token;
    const auto utility = [](const QString& words, std::string_view drawing, const QString& tip) {
        return CalculatorKeyFace {words, drawing, tip, Token::keyUtility, Token::text, FontRole::keyUtility};
    };
    switch (key.kind) {
    case Kind::digit:
        return {QString::number(key.digit), {}, {}, Token::keyDigit, Token::text, FontRole::keyDigit};
    case Kind::operation:
        return {toQt(rawValue(key.operation)), {},
                helpOf(key.operation),         Token::keyOperator,
                Token::keyOperatorInk,         FontRole::keyOperator};
    case Kind::point:
        return {QStringLiteral("."), {},          QStringLiteral("Decimal point"),
                Token::keyDigit,     Token::text, FontRole::keyDigit};
    case Kind::sign:
        return utility(QStringLiteral("±"), {}, QStringLiteral("Change the sign"));
    case Kind::backspace:
        return utility({}, "delete-left", QStringLiteral("Delete the last digit"));
    case Kind::clear:
        return utility(QStringLiteral("AC"), {}, QStringLiteral("Clear everything and start again"));
    case Kind::percent:
        return utility(QStringLiteral("%"), {}, QStringLiteral("Percent"));
    case Kind::equals:
        return {QStringLiteral("="), {}, QStringLiteral("Equals"), Token::keyEquals, Token::keyEqualsInk,
                FontRole::keyEquals};
    }
    return {};
}

std::array<std::array<CalculatorKey, 4>, 5> calculatorKeys()
{
    const auto digit = &CalculatorKey::ofDigit;
    const auto kind = [](Kind which) { return CalculatorKey::of(which); };
    const auto operation = [](Operation which) { return CalculatorKey::of(which); };
    return {{{kind(Kind::backspace), kind(Kind::clear), kind(Kind::percent), operation(Operation::divide)},
             {digit(7), digit(8), digit(9), operation(Operation::multiply)},
             {digit(4), digit(5), digit(6), operation(Operation::subtract)},
             {digit(1), digit(2), digit(3), operation(Operation::add)},
             {kind(Kind::sign), digit(0), kind(Kind::point), kind(Kind::equals)}}};
}

} // namespace zelta
