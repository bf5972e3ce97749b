#include "app/pages/SearchField.h"

#include "app/components/IconButton.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace zelta {

namespace {

constexpr int narrowest = 120;
constexpr int symbolSize = 16;
constexpr int symbolLeft = 11;
constexpr int textLeft = 24; // beyond the field's own padding
constexpr int clearSide = 24;
constexpr int clearSymbol = 14;
constexpr int clearRight = 4;

} // namespace

SearchField::SearchField(const QString& placeholder, QWidget* parent)
    : QLineEdit(parent)
    , m_clear(new IconButton("cross-circle-filled", QStringLiteral("Clear the search"), this))
{
    setPlaceholderText(placeholder);
    setAccessibleName(placeholder);
    setFont(Theme::font(Theme::FontRole::menu));
    setTextMargins(textLeft, 0, clearSide, 0);
    m_clear->setSide(clearSide);
    m_clear->setSymbolSize(clearSymbol);
    m_clear->setCursor(Qt::ArrowCursor);
    m_clear->hide();
    connect(this, &QLineEdit::textChanged, m_clear,
            [this](const QString& text) { m_clear->setVisible(!text.isEmpty()); });
    connect(m_clear, &QPushButton::clicked, this, [this] {
        setFocus(Qt::OtherFocusReason);
        clear();
    });
}

QSize SearchField::sizeHint() const
{
    return {2 * narrowest, Metric::buttonHeight};
}

QSize SearchField::minimumSizeHint() const
{
    return {narrowest, Metric::buttonHeight};
}

void SearchField::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Escape && !text().isEmpty())
        clear();
    else if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter)
        Q_EMIT resultsWanted();
    else
        QLineEdit::keyPressEvent(event);
}

void SearchField::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    Symbols::draw(painter, QRectF(symbolLeft, 0, symbolSize, height()), "magnifier", symbolSize,
                  Theme::color(Theme::Token::textSecondary));
}

void SearchField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    m_clear->setGeometry(width() - clearSide - clearRight, (height() - clearSide) / 2, clearSide, clearSide);
}

} // namespace zelta
