#include "app/shell/AboutDialog.h"

#include "app/components/Button.h"
#include "app/components/Label.h"
#include "app/look/Symbols.h"
#include "app/look/Theme.h"
#include "app/model/AppInfo.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace zelta {
namespace {

constexpr int iconSize = 64;

} // namespace

AboutDialog::AboutDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowTitle(QStringLiteral("About Zelta Basic"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Metric::pagePadding, Metric::pagePadding, Metric::pagePadding,
                               Metric::cardPadding);
    layout->setSpacing(Metric::cardPadding);

    auto* icon = new QLabel(this);
    icon->setPixmap(Symbols::appIcon().pixmap(iconSize));
    layout->addWidget(icon, 0, Qt::AlignTop);

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
