#include "app/components/Label.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEnterEvent>
#include <QImage>
#include <QLabel>
#include <QTest>
#include <array>
#include <memory>

namespace zelta {

namespace {

constexpr auto texts = std::to_array<const char16_t*>({
    u"Version 1.0.0",
    u"two\nlines",
    u"Everything you have calculated, saved",
    u"Percent works in context: 200 + 10 % is 220, but 10 % on its own is 0.1. Pressing = again repeats.",
    u"رشيمة الأسعار",
});

/// Qt's own label with the same text, which measures anew each time.
std::unique_ptr<QLabel> reference(const Label& label)
{
    auto plain = std::make_unique<QLabel>();
    plain->setTextFormat(Qt::PlainText);
    plain->setFont(label.font());
    plain->setWordWrap(label.wordWrap());
    plain->setText(label.text());
    return plain;
}

int inkIn(Label& label)
{
    const QImage image = label.grab().toImage();
    int ink = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ink += qGray(image.pixel(x, y)) < 128 ? 1 : 0;
    }
    return ink;
}

} // namespace

TEST(Label, AsksForTheRoomThatQtsOwnLabelAsksFor)
{
    for (const char16_t* text : texts) {
        for (const bool wraps : {false, true}) {
            Label label(QString::fromUtf16(text));
            label.setWordWrap(wraps);
            const auto plain = reference(label);
            EXPECT_EQ(label.sizeHint(), plain->sizeHint()) << qPrintable(label.text()) << wraps;
            EXPECT_EQ(label.minimumSizeHint(), plain->minimumSizeHint()) << qPrintable(label.text()) << wraps;
            if (!wraps)
                continue;
            for (const int width : {60, 150, 400, 150, 2000})
                EXPECT_EQ(label.heightForWidth(width), plain->heightForWidth(width))
                    << qPrintable(label.text()) << " at " << width;
        }
    }
}

TEST(Label, MeasuresWhatItShowsNow)
{
    Label label(QStringLiteral("short"));
    const int narrow = label.sizeHint().width();
    label.setText(QStringLiteral("quite a bit longer"));
    const int wide = label.sizeHint().width();
    EXPECT_GT(wide, narrow);
    label.setRole(Theme::FontRole::headline);
    EXPECT_GT(label.sizeHint().width(), wide);
    EXPECT_EQ(label.sizeHint(), reference(label)->sizeHint());
}

TEST(Label, PaintsTheTextOfTheMoment)
{
    Label label(QStringLiteral("iii"));
    label.resize(200, 40);
    const int little = inkIn(label);
    EXPECT_GT(little, 0);
    label.setText(QStringLiteral("MMMMMMM"));
    EXPECT_GT(inkIn(label), 2 * little);
    label.setText({});
    EXPECT_EQ(inkIn(label), 0);
}

TEST(Label, LetsTheGroundShineThroughEachInk)
{
    Label label(QStringLiteral("MMMMMMM"));
    for (const Theme::Token token :
         {Theme::Token::text, Theme::Token::textSecondary, Theme::Token::warnInk}) {
        label.setToken(token);
        label.setOpacity(0.3);
        EXPECT_NEAR(label.palette().color(label.foregroundRole()).alphaF(), 0.3, 0.01);
        label.setOpacity(1);
    }
}

TEST(Label, LetsItsTextBeSelectedAndMovesNothingForIt)
{
    Label label(QStringLiteral("November 2026"), Theme::FontRole::headline, Theme::Token::text);
    label.setSelectable();
    label.resize(label.sizeHint());
    label.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));
    const QImage before = label.grab().toImage();
    const QSize hint = label.sizeHint();
    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
    QApplication::sendEvent(&label, &enter);
    EXPECT_EQ(label.cursor().shape(), Qt::IBeamCursor);
    EXPECT_EQ(label.sizeHint(), hint);
    EXPECT_EQ(label.grab().toImage(), before);
    QTest::mouseDClick(&label, Qt::LeftButton, {}, QPoint(10, label.height() / 2));
    EXPECT_EQ(label.selectedText(), QStringLiteral("November"));
}

TEST(Label, CanBeSelectedByAPressThatComesFirst)
{
    Label label(QStringLiteral("November 2026"));
    label.setSelectable();
    label.resize(label.sizeHint());
    QTest::mousePress(&label, Qt::LeftButton, {}, QPoint(0, label.height() / 2));
    QTest::mouseMove(&label, QPoint(label.width(), label.height() / 2));
    QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(label.width(), label.height() / 2));
    EXPECT_EQ(label.selectedText(), label.text());
}

TEST(Label, BreaksAWordThatIsWiderThanItself)
{
    const QString number(60, QLatin1Char('8'));
    Label whole(number);
    whole.resize(whole.sizeHint());
    Label wrapped(number);
    wrapped.setWrapped();
    constexpr int narrow = 150;
    wrapped.resize(narrow, wrapped.heightForWidth(narrow));
    EXPECT_GT(wrapped.height(), 3 * whole.height());
    const int all = inkIn(whole);
    EXPECT_NEAR(inkIn(wrapped), all, 0.1 * all) << "all of it is painted";
}

} // namespace zelta
