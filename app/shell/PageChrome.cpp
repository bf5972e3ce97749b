#include "app/shell/PageChrome.h"

#include "app/components/Flash.h"
#include "app/components/Label.h"
#include "app/components/ModuleGlyph.h"
#include "app/look/Surface.h"
#include "app/look/Theme.h"
#include "app/model/AppModel.h"
#include "app/model/Text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QTextEdit>
#include <QVBoxLayout>
#include <algorithm>

namespace zelta {
namespace {

constexpr int badgeSize = 38;
constexpr int headerGap = 12;
constexpr int headerHeight = 42;

/// A page that begins with its help line has that line closer to the header, which it belongs to.
int spacingBelowHeader(Module module)
{
    constexpr int aboveHelp = 10;
    return module == Module::notes ? aboveHelp : Metric::partSpacing;
}

/// As wide as its scroll area, up to a limit: the scroll bar lies inside the right padding, so that nothing
/// moves and nothing is laid out again when it comes and goes.
class PageLayout final : public QVBoxLayout
{
public:
    PageLayout(QWidget* column, const QScrollArea& area)
        : QVBoxLayout(column)
        , m_area(area)
    {
        setContentsMargins(Metric::pagePadding, Metric::pagePadding, Metric::pagePadding,
                           Metric::pagePadding);
        setSpacing(0);
    }

    void setGeometry(const QRect& column) override
    {
        QVBoxLayout::setGeometry({column.topLeft(), QSize(pageWidth(), column.height())});
    }
    [[nodiscard]] int heightForWidth(int /*width*/) const override
    {
        return QVBoxLayout::heightForWidth(pageWidth());
    }
    [[nodiscard]] int minimumHeightForWidth(int /*width*/) const override
    {
        return QVBoxLayout::minimumHeightForWidth(pageWidth());
    }

private:
    [[nodiscard]] int pageWidth() const { return std::min(m_area.width(), Metric::maximumPageWidth); }

    const QScrollArea& m_area;
};

} // namespace

PageChrome::PageChrome(Module module, AppModel& model, const MakeContent& makeContent, QWidget* parent)
    : ScrollArea(parent)
    , m_module(module)
    , m_model(model)
    , m_column(new QWidget(viewport()))
{
    setAccessibleName(toQt(title(module))); // it may have the focus

    auto* layout = new PageLayout(m_column, *this);
    layout->addWidget(makeHeader(m_column));
    layout->addSpacing(spacingBelowHeader(module));
    QWidget* content = makeContent(m_column);
    const bool fills = content->sizePolicy().verticalPolicy() & QSizePolicy::ExpandFlag;
    layout->addWidget(content, fills ? 1 : 0);
    if (!fills)
        layout->addStretch(1);
    setContent(m_column);

    connect(&model, &AppModel::lastSaveMessageChanged, this, &PageChrome::showMessage);
    const auto showSubtitle = [this] { m_subtitle->setText(toQt(m_model.subtitle(m_module))); };
    connect(&model, &AppModel::weekendRuleChanged, this, showSubtitle);
    connect(&model, &AppModel::use24HourChanged, this, showSubtitle);
    // The scroll area follows Tab within the page; who comes into it by Tab from outside must be seen as
    // well.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, QWidget* now) {
        if (m_column->isAncestorOf(now))
            m_lastFocus = now;
        if (isVisible() && m_column->isAncestorOf(now) && !m_column->isAncestorOf(before)
            && Surface::showsFocus(*now))
            ensureWidgetVisible(now);
        disconnect(m_typing);
        if (auto* field = qobject_cast<QLineEdit*>(now); field && m_column->isAncestorOf(field))
            m_typing
                = connect(field, &QLineEdit::textEdited, this, [this, field] { ensureWidgetVisible(field); });
    });
    showMessage();
}

void PageChrome::focusEntry()
{
    // Not a focus proxy of the page: that takes every stop before and after the field out of the Tab order.
    if (auto* text = qobject_cast<QTextEdit*>(m_lastFocus); text && text->isVisibleTo(this)) {
        text->setFocus();
        return;
    }
    auto fields = m_module == Module::notes ? QList<QLineEdit*>() : findChildren<QLineEdit*>();
    if (auto* last = qobject_cast<QLineEdit*>(m_lastFocus); last && m_module != Module::notes)
        fields.prepend(last);
    const auto first
        = std::ranges::find_if(fields, [this](const QWidget* field) { return field->isVisibleTo(this); });
    if (first == fields.end()) {
        setFocus();
        return;
    }
    (*first)->setFocus();
    (*first)->selectAll();
}

void PageChrome::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(viewport()).fillRect(viewport()->rect(), Theme::color(Theme::Token::page));
}

// The page looks the same with the focus, so that nothing is painted: Qt would paint all that is on it.
void PageChrome::focusInEvent(QFocusEvent* /*event*/) { }
void PageChrome::focusOutEvent(QFocusEvent* /*event*/) { }

void PageChrome::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::MoveToStartOfLine)
        || event->matches(QKeySequence::MoveToStartOfDocument))
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
    else if (event->matches(QKeySequence::MoveToEndOfLine)
             || event->matches(QKeySequence::MoveToEndOfDocument))
        verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
    else
        ScrollArea::keyPressEvent(event); // arrows and page keys
}

QWidget* PageChrome::makeHeader(QWidget* column)
{
    auto* header = new QWidget(column);
    header->setFixedHeight(headerHeight); // two lines, a little tighter than the font's own spacing
    auto* layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(headerGap);
    layout->addWidget(new ModuleGlyph(symbol(m_module), Theme::tint(m_module), badgeSize, header));

    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch(1);
    texts->addWidget(new Label(toQt(title(m_module)), Theme::FontRole::title, Theme::Token::text, header));
    m_subtitle = new Label(toQt(m_model.subtitle(m_module)), Theme::FontRole::menu,
                           Theme::Token::textSecondary, header);
    m_subtitle->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    texts->addWidget(m_subtitle);
    texts->addStretch(1);
    layout->addLayout(texts, 1);

    m_message = new Flash(m_model.clock(), {}, header); // the model times it
    // Its place is kept from the start, so that the message moves nothing.
    m_message->hold(QStringLiteral("Saved to history"));
    m_message->clear();
    layout->addWidget(m_message);
    return header;
}

void PageChrome::showMessage()
{
    if (const auto& message = m_model.lastSaveMessage())
        m_message->hold(toQt(*message));
    else
        m_message->clear();
}

} // namespace zelta
