#include "app/components/NumberField.h"

#include "tests/app/support/Accessible.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

using namespace zelta;

namespace {

/// A field as a page makes it, shown, so that "visible" means what a person sees.
class NumberFieldTest : public testing::Test
{
protected:
    NumberFieldTest()
    {
        field.setPlaceholder(QStringLiteral("0"));
        field.show();
    }

    void type(const char* keys)
    {
        field.field()->selectAll();
        QTest::keyClicks(field.field(), QString::fromUtf8(keys));
    }

    NumberField field {QStringLiteral("Value X"), QStringLiteral("The part, or the starting point")};
};

} // namespace

TEST_F(NumberFieldTest, WarnsExactlyWhileTheTextIsNoNumber)
{
    EXPECT_FALSE(field.showsWarning());
    type("abc");
    EXPECT_TRUE(field.showsWarning());
    type("1,5");
    EXPECT_FALSE(field.showsWarning());
    type("-");
    EXPECT_TRUE(field.showsWarning());
    type("15%");
    EXPECT_FALSE(field.showsWarning());
}

TEST_F(NumberFieldTest, TakesABlankTextForUnfinishedNotForAMistake)
{
    type("abc");
    field.field()->selectAll();
    QTest::keyClick(field.field(), Qt::Key_Delete);
    EXPECT_FALSE(field.showsWarning());
    type("   ");
    EXPECT_FALSE(field.showsWarning());
}

TEST_F(NumberFieldTest, HearsAndTellsAssistiveTechnology)
{
    const QSignalSpy edited(&field, &NumberField::textEdited);
    test::enterAccessibly(*field.field(), QStringLiteral("abc"));
    EXPECT_EQ(edited.count(), 1);
    EXPECT_EQ(field.field()->accessibleDescription(), QStringLiteral("Not a number"));
    field.field()->setAccessibleDescription(QStringLiteral("as it was told"));
    test::enterAccessibly(*field.field(), QStringLiteral("abcd"));
    EXPECT_EQ(field.field()->accessibleDescription(), QStringLiteral("as it was told")) << "once is enough";
    test::enterAccessibly(*field.field(), QStringLiteral("12"));
    EXPECT_EQ(edited.count(), 3);
    EXPECT_EQ(edited.back().front().toString(), QStringLiteral("12"));
    EXPECT_EQ(field.field()->accessibleDescription(), QStringLiteral("The part, or the starting point"));
    field.setText(QStringLiteral("5"));
    EXPECT_EQ(edited.count(), 3) << "the page set it";
}

TEST_F(NumberFieldTest, TakesWhatIsPastedOnOneLine)
{
    const QSignalSpy edited(&field, &NumberField::textEdited);
    const auto paste = [this](const char* text) {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        field.field()->paste();
        return field.text();
    };
    EXPECT_EQ(paste("12\r\n"), QStringLiteral("12")) << "a cell of a table";
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(edited.front().front().toString(), QStringLiteral("12"));
    field.field()->setCursorPosition(1);
    EXPECT_EQ(paste("3\t4\u20285\u2029"), QStringLiteral("13 4 5 2"));
    EXPECT_EQ(field.field()->cursorPosition(), 7) << "behind it";
    EXPECT_FALSE(field.showsWarning());
}

TEST_F(NumberFieldTest, WarnsOfATextThatThePageSets)
{
    field.setText(QStringLiteral("nothing"));
    EXPECT_TRUE(field.showsWarning());
    field.setText({});
    EXPECT_FALSE(field.showsWarning());
}

TEST_F(NumberFieldTest, TellsOfTypingOnly)
{
    const QSignalSpy edited(&field, &NumberField::textEdited);
    field.setText(QStringLiteral("5"));
    EXPECT_EQ(edited.count(), 0);
    type("7");
    ASSERT_EQ(edited.count(), 1);
    EXPECT_EQ(edited.front().front().toString(), QStringLiteral("7"));
}

TEST_F(NumberFieldTest, HasTheGivenWidthAndWords)
{
    EXPECT_EQ(field.field()->width(), 84);
    field.setFieldWidth(200);
    EXPECT_EQ(field.field()->width(), 200);
    EXPECT_EQ(field.field()->accessibleName(), QStringLiteral("Value X"));
    EXPECT_EQ(field.field()->accessibleDescription(), QStringLiteral("The part, or the starting point"));
    EXPECT_EQ(field.field()->placeholderText(), QStringLiteral("0"));
}
