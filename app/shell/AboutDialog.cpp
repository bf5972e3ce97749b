#include "app/shell/AboutDialog.h"

#include "app/components/Button.h"
#include "app/components/Label.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"
#include "app/model/AppInfo.h"

#include <QHBoxLayout>
#include <QPainter>

namespace zelta {
namespace {

constexpr int iconSize = 64;

/// A decoration, like the pages' badges: not a label, whose picture a screen reader would announce without a
/// name.
class AppIcon final : public QWidget
{
public:
    explicit AppIcon(QWidget* parent)
        : QWidget(parent)
    {
        setFixedSize(iconSize, iconSize);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter(this).drawPixmap(0, 0, Symbols::appIcon().pixmap(size(), devicePixelRatioF()));
    }
};

} // namespace

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About Zelta Basic"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metric::pagePadding, Metric::pagePadding, Metric::pagePadding,
                               Metric::cardPadding);
    layout->setSpacing(Metric::cardPadding);

    layout->addWidget(new AppIcon(this), 0, Qt::AlignTop);

    auto* texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(
        new Label(QStringLiteral("Zelta Basic"), Theme::FontRole::title, Theme::Token::text, this));
    texts->addWidget(new Label(QStringLiteral("Version ") + AppInfo::version(), Theme::FontRole::menu,
                               Theme::Token::textSecondary, this));
    texts->addSpacing(8);
    texts->addWidget(new Label(QStringLiteral("Everyday figures, offline and exact to the last digit."),
                               Theme::FontRole::menu, Theme::Token::text, this));
    texts->addSpacing(12);
    auto* close = new Button(QStringLiteral("Close"), this);
    close->setDefault(true);
    connect(close, &Button::clicked, this, &QDialog::accept);
    texts->addWidget(close, 0, Qt::AlignRight);
    layout->addLayout(texts, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void AboutDialog::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), Theme::color(Theme::Token::card));
}

} // namespace zelta
