#include "app/model/Text.h"

#include <gtest/gtest.h>

namespace zelta {
namespace {

TEST(Text, CrossesToQtAndBackAsItIs)
{
    for (const char* text : {"", "é שלום 😀", "\uFEFF", "\uFEFF\uFEFFtext\uFEFF"})
        EXPECT_EQ(toUtf8(toQt(text)), text);
    EXPECT_EQ(toQt("\uFEFFa"), QStringLiteral(u"\uFEFFa"));
}

TEST(Text, ReplacesWhatIsNoText)
{
    EXPECT_EQ(toQt("a\xffz"), QStringLiteral(u"a\uFFFDz"));
    EXPECT_EQ(toUtf8(QString(QChar(0xD83D))), "?");
}

TEST(Text, LeadingCharactersAreWhole)
{
    EXPECT_EQ(leadingCharacters(QStringLiteral("abc"), 3), QStringLiteral("abc"));
    EXPECT_EQ(leadingCharacters(QStringLiteral("abcd"), 3), QStringLiteral("abc"));
    EXPECT_EQ(leadingCharacters(QStringLiteral(u"ab𠮷𠮷"), 3), QStringLiteral("ab"));
    EXPECT_EQ(leadingCharacters(QStringLiteral(u"ab𠮷𠮷"), 4), QStringLiteral(u"ab𠮷"));
    EXPECT_EQ(leadingCharacters(QStringLiteral(u"a👨‍👩‍👧‍👦b"), 6), QStringLiteral("a"));
    EXPECT_EQ(leadingCharacters(QStringLiteral(u"ae\u0301b"), 2), QStringLiteral("a"));
    EXPECT_EQ(leadingCharacters(QStringLiteral(u"a🇩🇪b"), 3), QStringLiteral("a")) << "half a flag";
    EXPECT_EQ(leadingCharacters(QStringLiteral(u"e\u0301\u0301\u0301\u0301b"), 3),
              QStringLiteral(u"e\u0301\u0301"));
}

TEST(Text, OpenMarksForTheDirectionAreClosed)
{
    EXPECT_EQ(closersFor(QStringLiteral(u"plain שלום")), QString());
    for (const char16_t opener : {u'\u202A', u'\u202B', u'\u202D', u'\u202E'})
        EXPECT_EQ(closersFor(QChar(opener) + QStringLiteral("Invoice")), QStringLiteral(u"\u202C"));
    for (const char16_t opener : {u'\u2066', u'\u2067', u'\u2068'})
        EXPECT_EQ(closersFor(QChar(opener) + QStringLiteral("Invoice")), QStringLiteral(u"\u2069"));
    EXPECT_EQ(closersFor(QStringLiteral(u"\u202Ba\u202C b")), QString()) << "closed by itself";
    EXPECT_EQ(closersFor(QStringLiteral(u"\u2067a\u202Bb")), QStringLiteral(u"\u202C\u2069"));
    EXPECT_EQ(closersFor(QStringLiteral(u"\u2067a\u202Bb\u2069")), QString())
        << "with the isolate its content ends";
    EXPECT_EQ(closersFor(QStringLiteral(u"\u2067a\u2068b\u2069")), QStringLiteral(u"\u2069"))
        << "the inner one only";
    EXPECT_EQ(closersFor(QStringLiteral(u"\u202Aa\u2066b\u202C")), QStringLiteral(u"\u2069\u202C"))
        << "what is outside of an isolate cannot be closed in it";
    EXPECT_EQ(closersFor(QStringLiteral(u"a\u202C\u2069")), QString());
}

} // namespace
} // namespace zelta
