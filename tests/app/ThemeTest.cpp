#include "app/look/Theme.h"

#include "app/look/Symbols.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

using namespace zelta;
using Theme::Appearance;
using Theme::Token;

namespace {

constexpr std::array appearances {Appearance::light, Appearance::dark};

/// `top` painted over `bottom`; `share` multiplies its opacity.
QColor over(const QColor& top, const QColor& bottom, double share = 1)
{
    const double alpha = top.alphaF() * share;
    const auto mix = [alpha](double above, double below) {
        return static_cast<float>(above * alpha + below * (1 - alpha));
    };
    return QColor::fromRgbF(mix(top.redF(), bottom.redF()), mix(top.greenF(), bottom.greenF()),
                            mix(top.blueF(), bottom.blueF()));
}

/// Relative luminance and contrast as the accessibility guidelines of the web define them (WCAG 2.2, 1.4.3).
double luminance(const QColor& color)
{
    const auto linear
        = [](double part) { return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    // A list, because of two temporaries the bare call would return references.
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// A token on a stack of tokens, topmost first.
struct Pair
{
    Token text;
    std::vector<Token> ground;
    double opacity = 1;
};

QColor groundOf(const std::vector<Token>& stack, Appearance appearance)
{
    QColor result = Theme::color(stack.back(), appearance);
    for (auto token = stack.rbegin() + 1; token != stack.rend(); ++token)
        result = over(Theme::color(*token, appearance), result);
    return result;
}

double contrastOf(const Pair& pair, Appearance appearance)
{
    const QColor ground = groundOf(pair.ground, appearance);
    return contrast(over(Theme::color(pair.text, appearance), ground, pair.opacity), ground);
}

void expectContrast(const std::vector<Pair>& pairs, double needed)
{
    for (const Appearance appearance : appearances) {
        for (const Pair& pair : pairs) {
            EXPECT_GE(contrastOf(pair, appearance), needed)
                << "token " << static_cast<int>(pair.text) << " on " << static_cast<int>(pair.ground.front())
                << (appearance == Appearance::dark ? ", dark" : ", light");
        }
    }
}

constexpr double forText = 4.5;
constexpr double forOutlines = 3;

/// How much of each pixel a drawing covers, 0 to 255, row by row, as another program draws it.
std::vector<int> coverage(const QByteArray& drawing, int side)
{
    constexpr int parts = 8; // of a pixel's edge
    const QString large = QString::number(parts * side);
    QProcess renderer;
    renderer.start(QStringLiteral("rsvg-convert"),
                   {QStringLiteral("-w"), large, QStringLiteral("-h"), large});
    renderer.write(drawing);
    renderer.closeWriteChannel();
    renderer.waitForFinished();
    const QImage image = QImage::fromData(renderer.readAllStandardOutput());
    std::vector<int> sums(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int pixel = y / parts * side + x / parts;
            sums.at(static_cast<std::size_t>(pixel)) += qAlpha(image.pixel(x, y));
        }
    }
    for (int& sum : sums)
        sum /= parts * parts;
    return sums;
}

} // namespace

TEST(Theme, KeepsTextReadableOnEveryGround)
{
    expectContrast({{Token::text, {Token::page}},
                    {Token::text, {Token::chrome}},
                    {Token::text, {Token::card}},
                    {Token::text, {Token::inset}},
                    {Token::text, {Token::raised}},
                    {Token::text, {Token::field}},
                    {Token::text, {Token::button}},
                    {Token::text, {Token::hover, Token::card}},
                    {Token::text, {Token::pressed, Token::button}},
                    {Token::text, {Token::hover, Token::chrome}},
                    {Token::text, {Token::keyDigit}},
                    {Token::text, {Token::keyUtility}},
                    {Token::text, {Token::hover, Token::keyDigit}},
                    {Token::text, {Token::pressed, Token::keyUtility}},
                    {Token::text, {Token::tileWorkday, Token::card}},
                    {Token::text, {Token::selection}},
                    {Token::text, {Token::pillBack, Token::page}},
                    {Token::text, {Token::hover, Token::pillBack, Token::page}}},
                   forText);
}

TEST(Theme, KeepsSecondaryTextReadable)
{
    expectContrast({{Token::textSecondary, {Token::page}},
                    {Token::textSecondary, {Token::chrome}},
                    {Token::textSecondary, {Token::card}},
                    {Token::textSecondary, {Token::inset}},
                    {Token::textSecondary, {Token::raised}},
                    {Token::textSecondary, {Token::field}},
                    {Token::textSecondary, {Token::button}},
                    {Token::textSecondary, {Token::hover, Token::card}},
                    {Token::textSecondary, {Token::hover, Token::chrome}},
                    {Token::textSecondary, {Token::tileWeekend, Token::card}},
                    {Token::textSecondary, {Token::hover, Token::tileWeekend, Token::card}}},
                   forText);
}

TEST(Theme, KeepsColouredTextReadable)
{
    expectContrast({{Token::accentInk, {Token::card}},
                    {Token::accentInk, {Token::hover, Token::card}},
                    {Token::accentInk, {Token::page}},
                    {Token::upInk, {Token::card}},
                    {Token::upInk, {Token::hover, Token::card}},
                    {Token::upInk, {Token::page}},
                    {Token::upInk, {Token::button}},
                    {Token::downInk, {Token::card}},
                    {Token::downInk, {Token::hover, Token::card}},
                    {Token::downInk, {Token::page}},
                    {Token::downInk, {Token::button}},
                    {Token::downInk, {Token::hover, Token::button}},
                    {Token::onAccent, {Token::dangerFill}},
                    {Token::onAccent, {Token::accentFill}},
                    {Token::tipText, {Token::tip}},
                    {Token::warnInk, {Token::card}, 0.8},
                    {Token::warnInk, {Token::card}},
                    {Token::weekendInk, {Token::weekendFill, Token::card}},
                    {Token::workdayInk, {Token::workdayFill, Token::card}},
                    {Token::keyOperatorInk, {Token::keyOperator}},
                    {Token::keyOperatorInk, {Token::pressed, Token::keyOperator}},
                    {Token::keyEqualsInk, {Token::keyEquals}},
                    {Token::keyEqualsInk, {Token::pressed, Token::keyEquals}}},
                   forText);
}

TEST(Theme, KeepsOutlinesAndRingsVisible)
{
    expectContrast({{Token::fieldOutline, {Token::card}},
                    {Token::fieldOutline, {Token::field}},
                    {Token::accentFill, {Token::card}},
                    {Token::focus, {Token::card}},
                    {Token::focus, {Token::page}},
                    {Token::focus, {Token::chrome}},
                    {Token::focus, {Token::keyUtility}},
                    {Token::focus, {Token::keyOperator}}},
                   forOutlines);
}

TEST(Theme, KeepsEveryPagesInkAndFillReadable)
{
    constexpr double selectionShare = 0.14;
    for (const Module module : allCases<Module>()) {
        EXPECT_GE(contrast(Qt::white, Theme::fill(module)), forText) << rawValue(module);
        for (const Appearance appearance : appearances) {
            const QColor card = Theme::color(Token::card, appearance);
            const QColor hovered = over(Theme::color(Token::hover, appearance), card);
            const QColor selected = over(Theme::tint(module), card, selectionShare);
            EXPECT_GE(contrast(Theme::ink(module, appearance), card), forText) << rawValue(module);
            EXPECT_GE(contrast(Theme::ink(module, appearance), hovered), forText) << rawValue(module);
            EXPECT_GE(contrast(Theme::color(Token::text, appearance), selected), forText) << rawValue(module);
            EXPECT_GE(contrast(Theme::color(Token::textSecondary, appearance), selected), forText)
                << rawValue(module);
        }
    }
    for (const Appearance appearance : appearances) {
        const QColor card = Theme::color(Token::card, appearance);
        const QColor badge = over(Theme::tint(Module::duration), card, 0.12);
        const QColor tile = groundOf({Token::tileWorkday, Token::card}, appearance);
        EXPECT_GE(contrast(Theme::ink(Module::duration, appearance), badge), forText);
        EXPECT_GE(contrast(Theme::ink(Module::calendar, appearance), Theme::color(Token::inset, appearance)),
                  forText);
        EXPECT_GE(contrast(Theme::ink(Module::duration, appearance), Theme::color(Token::button, appearance)),
                  forText);
        EXPECT_GE(contrast(Theme::tint(Module::calendar), tile), forOutlines);
        EXPECT_GE(contrast(Theme::tint(Module::notes), card), forOutlines);
    }
}

TEST(Theme, LooksTheSameInAWindowBehindOthers)
{
    const QPalette before = QApplication::palette();
    QPalette desktop = before;
    desktop.setColor(QPalette::Inactive, QPalette::Light, Qt::gray);
    QApplication::setPalette(desktop);
    for (const Appearance appearance : appearances)
        EXPECT_TRUE(Theme::palette(appearance).isEqual(QPalette::Active, QPalette::Inactive));
    QApplication::setPalette(before);
}

TEST(Theme, HoldsTheGivenConstants)
{
    EXPECT_EQ(Theme::color(Token::accent).name(), QStringLiteral("#2970f0"));
    EXPECT_EQ(Theme::color(Token::up).name(), QStringLiteral("#21ad5c"));
    EXPECT_EQ(Theme::color(Token::down).name(), QStringLiteral("#e6423d"));
    EXPECT_EQ(Theme::color(Token::page, Appearance::light).name(), QStringLiteral("#f6f3f1"));
    EXPECT_EQ(Theme::color(Token::page, Appearance::dark).name(), QStringLiteral("#171717"));
    EXPECT_EQ(Theme::tint(Module::calculator).name(), QStringLiteral("#f29917"));
    EXPECT_EQ(Theme::tint(Module::settings).name(), QStringLiteral("#666b75"));
}

TEST(Theme, SetsFontsInPixelsNotPoints)
{
    const QFont headline = Theme::font(Theme::FontRole::headline);
    EXPECT_EQ(headline.pixelSize(), 27);
    EXPECT_EQ(headline.weight(), QFont::DemiBold);
    EXPECT_NEAR(headline.letterSpacing(), -0.3, 1.0 / 64);
    EXPECT_EQ(Theme::font(Theme::FontRole::field).weight(), QFont::Medium);
    EXPECT_EQ(Theme::font(Theme::FontRole::sectionLabel).weight(), QFont::Bold);
}

TEST(Theme, TakesTheDesktopsFontWhereItNamesOne)
{
    QFont named;
    named.setFamilies({QStringLiteral("Cantarell")});
    EXPECT_EQ(Theme::baseFont(named).families().front(), QStringLiteral("Cantarell"));
    for (const char* placeholder : {"Sans", "Sans Serif", "sans-serif"}) {
        QFont unnamed;
        unnamed.setFamilies({QString::fromLatin1(placeholder)});
        EXPECT_EQ(Theme::baseFont(unnamed).families().front(), QStringLiteral("Inter")) << placeholder;
    }
}

TEST(Theme, HasADrawingForEveryPage)
{
    for (const Module module : allCases<Module>())
        EXPECT_FALSE(Symbols::pixmap(symbol(module), 24, Qt::black, 1).isNull()) << rawValue(module);
    EXPECT_TRUE(Symbols::pixmap("no such symbol", 24, Qt::black, 1).isNull());
}

TEST(Theme, DrawsEachSymbolAsItsFile)
{
    struct Line
    {
        int size;
        Symbols::Stroke stroke;
        const char* width;
    };
    constexpr std::array<Line, 3> lines {{
        {16, Symbols::Stroke::regular, "\"2.1\""},
        {24, Symbols::Stroke::regular, "\"1.8\""},
        {24, Symbols::Stroke::bold, "\"2.2\""},
    }};
    const QFileInfoList files = QDir(QStringLiteral(ZELTA_ICONS)).entryInfoList({QStringLiteral("*.svg")});
    EXPECT_FALSE(files.isEmpty());
    for (const QFileInfo& info : files) {
        QFile file(info.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray drawing = file.readAll();
        const std::string name = info.baseName().toStdString();
        if (name == "app-icon")
            continue;
        for (const Line& line : lines) {
            const std::vector<int> expected
                = coverage(QByteArray(drawing).replace("\"1.8\"", line.width), line.size);
            const QImage drawn = Symbols::pixmap(name, line.size, Qt::black, 1, line.stroke).toImage();
            ASSERT_EQ(drawn.size(), QSize(line.size, line.size)) << name;
            for (std::size_t i = 0; i < expected.size(); ++i) {
                const int at = static_cast<int>(i);
                EXPECT_NEAR(qAlpha(drawn.pixel(at % line.size, at / line.size)), expected.at(i), 8)
                    << name << ", lines " << line.width << ", pixel " << at;
            }
        }
    }
}

TEST(Theme, RendersTheProgramsIconInAnySize)
{
    for (const int side : {16, 22, 64, 128}) {
        const QImage icon = Symbols::appIcon().pixmap(side).toImage();
        ASSERT_EQ(icon.size(), QSize(side, side));
        EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << "it is round at the corners";
        EXPECT_EQ(icon.pixelColor(side / 2, side / 8).alpha(), 255);
    }
}

TEST(Theme, TintsSymbolsAndRendersThemForTheScreen)
{
    const QPixmap symbol = Symbols::pixmap("arrow.left.arrow.right", 16, Qt::red, 1.5);
    EXPECT_EQ(symbol.size(), QSize(24, 24));
    EXPECT_DOUBLE_EQ(symbol.devicePixelRatio(), 1.5);
    const QImage image = symbol.toImage().convertToFormat(QImage::Format_ARGB32);
    int painted = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            painted += color.alpha() > 0 ? 1 : 0;
            if (color.alpha() == 255) {
                EXPECT_EQ(color.rgb(), QColor(Qt::red).rgb());
            }
        }
    }
    EXPECT_GT(painted, 40);
    EXPECT_NE(Symbols::pixmap("arrow.left.arrow.right", 16, Qt::blue, 1.5).toImage(), symbol.toImage());
}
