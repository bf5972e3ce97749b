#include "app/look/WrappedText.h"

#include "app/look/Theme.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTextLayout>
#include <array>
#include <memory>
#include <vector>

namespace zelta {

namespace {

constexpr auto shortTexts = std::to_array<const char16_t*>({
    u"",
    u"Saturday & Sunday, 12-hour clock",
    u"Percent works in context: 200 + 10 % is 220, but 10 % on its own is 0.1. Pressing = again repeats the "
    u"last operation.",
    u"Adds one day \u2014 use this for stays, leave and rentals; a line\u00a0break\u00a0never comes here",
    u"two  spaces   and more between the words, and one at the end ",
    u"1234567890123456789012345678901234567890123456789012345678901234567890 is a number, 0.000000000001 too",
    u"two\u2028lines of which the second is by far the longer one",
    u"Donau\u00addampf\u00adschiff\u00adfahrts\u00adgesell\u00adschafts\u00adkapit\u00e4ns\u00adm\u00fctzen"
    u"\u00adfabrik",
    u"Saturday, 7 March 2026 \u2192 8 March 2026, 3 \u00d7 5 \u00f7 2 a / 5 a ! b ( x) and \u201d (a 0.1 123 "
    u"456 7 8 9",
    u"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29\u00a030\u00a0\u00a031 "
    u"\u00a032",
    u" begins with  a space",
    u"with a\ttab in the middle of it",
    u"\u0631\u0634\u064a\u0645\u0629 \u0627\u0644\u0623\u0633\u0639\u0627\u0631 "
    u"\u0627\u0644\u0633\u0646\u0648\u064a\u0629",
    u"mixed \u0631\u0634\u064a\u0645\u0629 \u0627\u0644\u0623\u0633\u0639\u0627\u0631 and left again, then "
    u"more",
    u"e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301e\u0301 and fi ffi",
});

std::vector<QString> texts()
{
    std::vector<QString> all;
    for (const char16_t* text : shortTexts)
        all.push_back(QString::fromUtf16(text));
    all.push_back(QStringLiteral("a long text is not for adding ").repeated(50));
    return all;
}

constexpr int height = 20;

/// The same text as Qt's layout breaks it, with nothing remembered from another width.
std::unique_ptr<QTextLayout> reference(const QString& text, QTextOption::WrapMode mode, double width)
{
    auto layout = std::make_unique<QTextLayout>(text, Theme::font(Theme::FontRole::body));
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(mode);
    layout->setTextOption(option);
    layout->beginLayout();
    double top = 0;
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLineWidth(width);
        const double room = std::max<double>(height, line.height());
        line.setPosition(QPointF(0, top + (room - line.height()) / 2));
        top += room;
    }
    layout->endLayout();
    return layout;
}

class Lines : public testing::TestWithParam<QTextOption::WrapMode>
{ };

} // namespace

TEST_P(Lines, AreThoseOfTheToolkitAtEachWidth)
{
    for (const QString& text : texts()) {
        WrappedText wrapped;
        wrapped.set(text, Theme::font(Theme::FontRole::body), GetParam(), height);
        for (int step = 0; step < 900; ++step) {
            const int width = 100 + step * 271 % 900; // up and down, each once
            const auto expected = reference(wrapped.text(), GetParam(), width);
            const std::vector<WrappedText::Line>& lines = wrapped.lines(width);
            ASSERT_EQ(static_cast<int>(lines.size()), expected->lineCount())
                << qPrintable(wrapped.text()) << " at " << width;
            double top = 0;
            for (std::size_t i = 0; i < lines.size(); ++i) {
                const QTextLine line = expected->lineAt(static_cast<int>(i));
                EXPECT_EQ(lines[i].from, line.textStart()) << qPrintable(wrapped.text()) << " at " << width;
                EXPECT_EQ(lines[i].length, line.textLength())
                    << qPrintable(wrapped.text()) << " at " << width;
                const bool endsInSpace = i + 1 == lines.size() && wrapped.text().endsWith(QLatin1Char(' '));
                EXPECT_NEAR(lines[i].width, line.naturalTextWidth(), endsInSpace ? 5 : 1);
                EXPECT_EQ(lines[i].top, top);
                top += std::max<double>(height, line.height());
            }
            EXPECT_EQ(wrapped.size(width).height(), top);
        }
    }
}

TEST_P(Lines, AreDrawnAsTheToolkitDrawsThem)
{
    for (const QString& text : texts()) {
        for (const double scale : {1.0, 1.25, 2.0}) {
            WrappedText wrapped;
            wrapped.set(text, Theme::font(Theme::FontRole::body), GetParam(), height);
            for (const int width : {150, 321, 1200}) {
                QImage ours(QSize(1200, 400), QImage::Format_RGB32);
                ours.setDevicePixelRatio(scale);
                ours.fill(Qt::white);
                QImage theirs = ours;
                QPainter painter(&ours);
                const std::vector<WrappedText::Line>& lines = wrapped.lines(width);
                for (std::size_t i = 0; i < lines.size(); ++i)
                    wrapped.draw(painter, QPointF(7, 5 + lines[i].top), i);
                painter.end();
                painter.begin(&theirs);
                reference(wrapped.text(), GetParam(), width)->draw(&painter, QPointF(7, 5));
                painter.end();
                EXPECT_EQ(ours, theirs)
                    << qPrintable(wrapped.text()) << " at " << width << ", scale " << scale;
            }
        }
    }
}

TEST(WrappedText, CutsAVeryLongWordWhereverALineIsFull)
{
    const QString number(20'000, QLatin1Char('7'));
    EXPECT_EQ(WrappedText::cuttingMode(number), QTextOption::WrapAnywhere);
    EXPECT_EQ(WrappedText::cuttingMode(QStringLiteral("1234567 ").repeated(3000)),
              QTextOption::WrapAtWordBoundaryOrAnywhere);
    WrappedText wrapped;
    wrapped.set(number, Theme::font(Theme::FontRole::body), QTextOption::WrapAtWordBoundaryOrAnywhere,
                height);
    const std::vector<WrappedText::Line>& lines = wrapped.lines(500);
    ASSERT_GT(lines.size(), 100U);
    qsizetype next = 0;
    for (const WrappedText::Line& line : lines) {
        EXPECT_EQ(line.from, next);
        EXPECT_LE(line.width, 500);
        next = line.from + line.length;
    }
    EXPECT_EQ(next, number.size()) << "all of it";
}

INSTANTIATE_TEST_SUITE_P(WrappedTexts, Lines,
                         testing::Values(QTextOption::WordWrap, QTextOption::WrapAtWordBoundaryOrAnywhere),
                         [](const auto& test) {
                             return test.param == QTextOption::WordWrap ? "OfWords" : "OfWordsAndTheirParts";
                         });

} // namespace zelta
