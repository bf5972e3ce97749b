#include "app/pages/CalculatorDisplay.h"

#include "app/components/Announcement.h"
#include "app/components/Label.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>

namespace zelta {

namespace {

constexpr int sidePadding = 4;
constexpr int expressionHeight = 19;
constexpr int numberHeight = 50;

/// The largest font in which the number fits; the smallest when it fits in none.
QFont fittingFont(const QString& number, int width)
{
    QFont font = Theme::font(Theme::FontRole::calculatorNumber);
    for (const int pixels : {40, 36, 32, 28, 24, 20}) {
        font.setPixelSize(pixels);
        if (QFontMetrics(font).horizontalAdvance(number) <= width)
            break;
    }
    return font;
}

/// What Space does by key, assistive technology does by pressing.
class PressableDisplay final : public QAccessibleWidget
{
public:
    explicit PressableDisplay(CalculatorDisplay* display)
        : QAccessibleWidget(display, QAccessible::StaticText)
        , m_display(*display)
    { }

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList {pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override
    {
        if (name == pressAction())
            Q_EMIT m_display.copyRequested();
        else
            QAccessibleWidget::doAction(name);
    }

private:
    CalculatorDisplay& m_display;
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object)
{
    auto* display = qobject_cast<CalculatorDisplay*>(object);
    return display != nullptr ? new PressableDisplay(display) : nullptr;
}

} // namespace

CalculatorDisplay::CalculatorDisplay(QWidget* parent)
    : QWidget(parent)
    , m_expressionLabel(new Label({}, Theme::FontRole::body, Theme::Token::textSecondary, this))
    , m_numberLabel(new Announcement({}, Theme::FontRole::calculatorNumber, Theme::Token::text, this))
{
    QAccessible::installFactory(makeInterface); // once; more often does nothing
    setFocusPolicy(Qt::TabFocus);
    setToolTipDuration(Metric::lastingTip);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setFixedHeight(expressionHeight + numberHeight + 2 * edge);
    for (Label* label : {m_expressionLabel, static_cast<Label*>(m_numberLabel)})
        label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void CalculatorDisplay::setTexts(const QString& expression, const QString& number)
{
    if (expression == m_expression && number == m_number)
        return; // or it would be announced as a change
    m_expression = expression;
    m_number = number;
    m_expressionLabel->setAccessibleName(expression);
    m_numberLabel->setAccessibleName(number);
    // The labels below hold the texts; the display itself says what they belong to. Between the two a reader
    // pauses: "12 + 12" has not been entered.
    setAccessibleName(QStringLiteral("Display: ")
                      + (expression.isEmpty() ? number : expression + QStringLiteral(", ") + number));
    fit();
}

void CalculatorDisplay::announceNumber()
{
    m_numberLabel->announce();
}

void CalculatorDisplay::fit()
{
    const int room = width() - 2 * sidePadding;
    const QFont font = fittingFont(m_number, room);
    const QString shown = QFontMetrics(font).elidedText(m_number, Qt::ElideMiddle, room);
    m_numberLabel->setFont(font);
    m_numberLabel->setText(shown);
    const QFontMetrics expressionMetrics(m_expressionLabel->font());
    const QString shownExpression = expressionMetrics.elidedText(m_expression, Qt::ElideMiddle, room);
    m_expressionLabel->setText(shownExpression);
    QStringList cut;
    if (shownExpression != m_expression)
        cut << m_expression;
    if (shown != m_number)
        cut << m_number;
    setToolTip(cut.join(QLatin1Char('\n')));
}

void CalculatorDisplay::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        Q_EMIT copyRequested();
    else
        QWidget::keyPressEvent(event);
}

void CalculatorDisplay::paintEvent(QPaintEvent* /*event*/)
{
    if (!Surface::showsFocus(*this))
        return;
    QPainter painter(this);
    Surface::drawFocusRing(painter, rect(), Metric::controlRadius);
}

void CalculatorDisplay::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    const int room = width() - 2 * sidePadding;
    m_expressionLabel->setGeometry(sidePadding, edge, room, expressionHeight);
    m_numberLabel->setGeometry(sidePadding, edge + expressionHeight, room, numberHeight);
    fit();
}

} // namespace zelta
