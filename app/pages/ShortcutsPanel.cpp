#include "app/pages/ShortcutsPanel.h"

#include "app/components/Label.h"
#include "app/look/Surface.h"
#include "app/model/Text.h"

#include <QGridLayout>
#include <QPainter>
#include <QVBoxLayout>
#include <array>

namespace zelta {

namespace {

struct Shortcut
{
    const char* keys;
    const char* action;
    const char* help; ///< The key's name on this keyboard where it has another.
};

constexpr std::array<Shortcut, 8> shortcuts {{{"0 – 9  .", "Enter a number", ""},
                                              {"+  −  *  /", "Operators", ""},
                                              {"Return", "Equals", "Enter"},
                                              {"Delete", "Backspace", "Backspace"},
                                              {"Escape", "Clear everything", "Esc"},
                                              {"%", "Percent", ""},
                                              {"N", "Change the sign", ""},
                                              {"⌘C", "Copy the display", "Ctrl+C"}}};

/// The name of a key, drawn like the top of one.
class KeyCap final : public Label
{
public:
    KeyCap(const QString& text, QWidget* parent)
        : Label(text, Theme::FontRole::captionBold, Theme::Token::text, parent)
    {
        constexpr int sidePadding = 9;
        constexpr int height = 23;
        setContentsMargins(sidePadding, 0, sidePadding, 0);
        setFixedHeight(height);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        constexpr double radius = 6;
        Surface::draw(painter, rect(), radius, Theme::color(Theme::Token::inset),
                      Theme::color(Theme::Token::outline));
        painter.end();
        Label::paintEvent(event);
    }
};

} // namespace

ShortcutsPanel::ShortcutsPanel(QWidget* parent)
    : Card(QStringLiteral("Shortcuts"), "lightbulb.fill", parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(6);
    grid->setHorizontalSpacing(14);
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const auto& [keys, action, help] : shortcuts) {
        auto* cap = new KeyCap(toQt(keys), this);
        cap->setToolTip(toQt(help));
        grid->addWidget(cap, row, 0, Qt::AlignLeft);
        grid->addWidget(new Label(toQt(action), Theme::FontRole::menu, Theme::Token::textSecondary, this),
                        row++, 1);
    }
    content()->addLayout(grid);
}

} // namespace zelta
