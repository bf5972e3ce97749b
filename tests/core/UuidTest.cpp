#include "core/Uuid.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

namespace zelta {
namespace {

TEST(Uuid, ReadsEitherCaseAndWritesUpperCase)
{
    const auto id = Uuid::fromText("6f1c2a4e-0B7D-4e21-9A53-2c8d1f0e7b64");
    ASSERT_TRUE(id);
    EXPECT_EQ(id->text(), "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64");
    EXPECT_EQ(Uuid::fromText(id->text()), id);
}

TEST(Uuid, TakesTheNilIdentifier)
{
    EXPECT_EQ(Uuid::fromText("00000000-0000-0000-0000-000000000000"), Uuid());
}

TEST(Uuid, RefusesEveryOtherForm)
{
    for (const std::string text : {
             "",
             "6F1C2A4E",
             "6F1C2A4E0B7D4E219A532C8D1F0E7B64",
             "{6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64}",
             "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B6",
             "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B645",
             " 6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64",
             "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B6G",
             "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B6 ",
             "6F1C2A4E-0B7D-4E21-9A53-+C8D1F0E7B64",
             "6F1C2A4E+0B7D-4E21-9A53-2C8D1F0E7B64",
             "6F1C2A4E-0B7D+4E21-9A53-2C8D1F0E7B64",
             "6F1C2A4E-0B7D-4E21+9A53-2C8D1F0E7B64",
             "6F1C2A4E-0B7D-4E21-9A53+2C8D1F0E7B64",
             "0x1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64",
             "6F1C2A4E-0B7D-4E21-9A532-C8D1F0E7B64",
             "٦F1C2A4-0B7D-4E21-9A53-2C8D1F0E7B64",
         })
        EXPECT_FALSE(Uuid::fromText(text)) << text;
    std::string cut = "6F1C2A4E-0B7D-4E21-9A53-2C8D1F0E7B64";
    cut[20] = '\0';
    EXPECT_FALSE(Uuid::fromText(cut));
}

TEST(Uuid, RandomOnesDiffer)
{
    std::unordered_set<Uuid> seen;
    for (int i = 0; i < 1000; ++i) {
        const Uuid id = Uuid::random();
        EXPECT_EQ(id.text()[14], '4') << "version 4";
        EXPECT_TRUE(seen.insert(id).second);
    }
}

} // namespace
} // namespace zelta
