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

} // namespace
} // namespace zelta
