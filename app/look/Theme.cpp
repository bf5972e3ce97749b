#include "app/look/Theme.h"

#include <QApplication>
#include <array>
#include <cstddef>

namespace zelta::Theme {

namespace {

struct Shade
{
    Token token;
    QRgb light;
    QRgb dark;
};

constexpr QRgb opaque(unsigned rgb)
{
    return 0xff000000U | rgb;
}

/// An overlay: `rgb` at `opacity` of 255.
constexpr QRgb veil(unsigned rgb, unsigned opacity)
{
    return opacity << 24U | rgb;
}

constexpr Shade same(Token token, unsigned rgb)
{
    return {token, opaque(rgb), opaque(rgb)};
}

constexpr Shade shade(Token token, unsigned light, unsigned dark)
{
    return {token, opaque(light), opaque(dark)};
}

/// In the order of `Token`, so that a token is its own index.
constexpr std::array shades {
    shade(Token::page, 0xF6F3F1, 0x171717),
    shade(Token::chrome, 0xECE8E4, 0x101010),
    shade(Token::card, 0xFFFFFF, 0x212121),
    shade(Token::raised, 0xFFFFFF, 0x262626),
    shade(Token::inset, 0xF7F5F2, 0x1A1A1A),
    shade(Token::outline, 0xE3DDD8, 0x343434),
    shade(Token::divider, 0xEDE9E5, 0x2F2F2F),
    shade(Token::field, 0xFFFFFF, 0x1A1A1A),
    shade(Token::fieldOutline, 0x918A84, 0x7C7874),
    shade(Token::button, 0xFFFFFF, 0x2C2C2C),
    shade(Token::buttonOutline, 0xD5CEC8, 0x444240),
    shade(Token::text, 0x211E1B, 0xF1EFED),
    shade(Token::textSecondary, 0x655F59, 0xB2AEAA),
    shade(Token::textOff, 0xA39C95, 0x6E6B68),
    same(Token::accent, 0x2970F0),
    same(Token::accentFill, 0x256EEF),
    shade(Token::accentInk, 0x1C5FDB, 0x82ACFB),
    same(Token::onAccent, 0xFFFFFF),
    same(Token::up, 0x21AD5C),
    shade(Token::upInk, 0x14733C, 0x3FCB7F),
    same(Token::down, 0xE6423D),
    shade(Token::downInk, 0xC4241F, 0xFF857F),
    same(Token::dangerFill, 0xC8322D),
    Shade {Token::weekendFill, veil(0xF29917, 46), veil(0xF29917, 46)},
    shade(Token::weekendInk, 0x8A4F00, 0xF7B75C),
    Shade {Token::workdayFill, veil(0x1F9E59, 41), veil(0x1F9E59, 41)},
    shade(Token::workdayInk, 0x136338, 0x55D08C),
    shade(Token::warnInk, 0x743F00, 0xFFC46B),
    Shade {Token::hover, veil(0x543C24, 15), veil(0xFFFFFF, 14)},
    Shade {Token::pressed, veil(0x543C24, 33), veil(0xFFFFFF, 28)},
    shade(Token::focus, 0x2970F0, 0x82ACFB),
    shade(Token::selection, 0xCFE0FD, 0x274680),
    shade(Token::tip, 0x33302C, 0x3B3937),
    shade(Token::tipText, 0xF6F3F1, 0xF1EFED),
    Shade {Token::pillBack, veil(0x000000, 13), veil(0xFFFFFF, 18)},
    Shade {Token::scrollHandle, veil(0x211A14, 71), veil(0xFFFFFF, 77)},
    shade(Token::keyDigit, 0xF4F1EE, 0x2E2E2E),
    shade(Token::keyUtility, 0xE5E0DB, 0x3B3A39),
    shade(Token::keyOperator, 0xFCEBD3, 0x463520),
    shade(Token::keyOperatorInk, 0x824D00, 0xF7B75C),
    same(Token::keyEquals, 0xF29917),
    same(Token::keyEqualsInk, 0x2B1900),
    Shade {Token::tileWorkday, veil(0x655F59, 10), veil(0xB2AEAA, 15)},
    Shade {Token::tileWeekend, veil(0x655F59, 23), veil(0xB2AEAA, 36)},
};

constexpr bool shadesFollowTokens()
{
    for (std::size_t i = 0; i < shades.size(); ++i) {
        if (static_cast<std::size_t>(shades.at(i).token) != i)
            return false;
    }
    return shades.size() == static_cast<std::size_t>(Token::tileWeekend) + 1;
}
static_assert(shadesFollowTokens());

struct PageColors
{
    QRgb inkLight;
    QRgb inkDark;
    QRgb fill;
};

/// In the order of `Module`.
constexpr auto pages = std::to_array<PageColors>({
    {opaque(0x8F5600), opaque(0xF7B75C), opaque(0xA66609)},
    {opaque(0x15703F), opaque(0x4CCB87), opaque(0x1A864B)},
    {opaque(0x0F6D68), opaque(0x3CC6BE), opaque(0x14827C)},
    {opaque(0xBE2339), opaque(0xF28997), opaque(0xD7374D)},
    {opaque(0x982CB2), opaque(0xDB9EE9), opaque(0xB43FCF)},
    {opaque(0x1C5FDB), opaque(0x82ACFB), opaque(0x256EEF)},
    {opaque(0x5B626D), opaque(0xA8AEB8), opaque(0x6B737F)},
    {opaque(0x5B606A), opaque(0xA8ADB6), opaque(0x666B75)},
});
static_assert(pages.size() == caseCount<Module>);

const PageColors& colorsOf(Module module)
{
    return pages.at(static_cast<std::size_t>(module));
}

} // namespace

Appearance appearance()
{
    constexpr int middle = 128;
    const QColor window = QGuiApplication::palette().color(QPalette::Window);
    return window.lightness() < middle ? Appearance::dark : Appearance::light;
}

QColor color(Token token)
{
    return color(token, appearance());
}

QColor color(Token token, Appearance appearance)
{
    const Shade& found = shades.at(static_cast<std::size_t>(token));
    return QColor::fromRgba(appearance == Appearance::dark ? found.dark : found.light);
}

QColor tint(Module module)
{
    const Tint tint = zelta::tint(module);
    return QColor::fromRgbF(static_cast<float>(tint.red), static_cast<float>(tint.green),
                            static_cast<float>(tint.blue));
}

QColor ink(Module module)
{
    return ink(module, appearance());
}

QColor ink(Module module, Appearance appearance)
{
    return QColor::fromRgba(appearance == Appearance::dark ? colorsOf(module).inkDark
                                                           : colorsOf(module).inkLight);
}

QColor fill(Module module)
{
    return QColor::fromRgba(colorsOf(module).fill);
}

QPalette palette(Appearance appearance)
{
    const auto shade = [appearance](Token token) { return color(token, appearance); };
    QPalette palette;
    palette.setColor(QPalette::Window, shade(Token::page));
    palette.setColor(QPalette::Base, shade(Token::field));
    palette.setColor(QPalette::AlternateBase, shade(Token::inset));
    palette.setColor(QPalette::Button, shade(Token::button));
    palette.setColor(QPalette::PlaceholderText, shade(Token::textSecondary));
    palette.setColor(QPalette::Highlight, shade(Token::selection));
    palette.setColor(QPalette::HighlightedText, shade(Token::text));
    palette.setColor(QPalette::ToolTipBase, shade(Token::tip));
    palette.setColor(QPalette::ToolTipText, shade(Token::tipText));
    palette.setColor(QPalette::Link, shade(Token::accentInk));
    palette.setColor(QPalette::LinkVisited, shade(Token::accentInk));
    palette.setColor(QPalette::Mid, shade(Token::outline));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, shade(Token::text));
        palette.setColor(QPalette::Disabled, role, shade(Token::textOff));
    }
    // Nothing looks different in a window behind others; where it might, Qt paints every widget anew when the
    // window comes to the front.
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        const auto each = static_cast<QPalette::ColorRole>(role);
        palette.setBrush(QPalette::Inactive, each, palette.brush(QPalette::Active, each));
    }
    return palette;
}

} // namespace zelta::Theme
