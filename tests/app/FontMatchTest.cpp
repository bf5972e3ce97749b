#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>

namespace {

struct Drop
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
};
using Pattern = std::unique_ptr<FcPattern, Drop>;
using Fonts = std::unique_ptr<FcFontSet, Drop>;

/// Every installed font, with what a request for it is made of.
Fonts installedFonts()
{
    const Pattern any(FcPatternCreate());
    const std::unique_ptr<FcObjectSet, Drop> objects(FcObjectSetBuild(FC_FAMILY, FC_FILE, FC_INDEX, nullptr));
    return Fonts(FcFontList(nullptr, any.get(), objects.get()));
}

/// A request as Qt makes it.
Pattern request(const FcPattern* font, double pixels)
{
    Pattern made(FcPatternCreate());
    for (const char* object : {FC_FAMILY, FC_FILE, FC_INDEX}) {
        FcValue value;
        if (FcPatternGet(font, object, 0, &value) == FcResultMatch)
            FcPatternAdd(made.get(), object, value, FcTrue);
    }
    FcPatternAddDouble(made.get(), FC_PIXEL_SIZE, pixels);
    FcConfigSubstitute(nullptr, made.get(), FcMatchPattern);
    FcDefaultSubstitute(made.get());
    return made;
}

/// What the library finds when it looks through all fonts.
Pattern lookedFor(FcPattern* wanted)
{
    std::array sets {FcConfigGetFonts(nullptr, FcSetSystem)};
    FcResult result = FcResultNoMatch;
    return Pattern(FcFontSetMatch(nullptr, sets.data(), 1, wanted, &result));
}

/// How a font is to be drawn, as text.
std::string drawing(const FcPattern* match)
{
    Pattern kept(FcPatternCreate());
    for (const char* object : {FC_FILE, FC_ANTIALIAS, FC_HINTING, FC_HINT_STYLE, FC_AUTOHINT, FC_RGBA,
                               FC_LCD_FILTER, FC_EMBEDDED_BITMAP, FC_PIXEL_SIZE}) {
        FcValue value;
        if (FcPatternGet(match, object, 0, &value) == FcResultMatch)
            FcPatternAdd(kept.get(), object, value, FcTrue);
    }
    const std::unique_ptr<FcChar8, decltype(&FcStrFree)> text(FcNameUnparse(kept.get()), &FcStrFree);
    return reinterpret_cast<const char*>(text.get());
}

} // namespace

TEST(FontMatch, DrawsEachInstalledFontAsTheLibrarySays)
{
    const Fonts fonts = installedFonts();
    ASSERT_GT(fonts->nfont, 0);
    for (int i = 0; i < fonts->nfont; ++i) {
        for (const double pixels : {7.0, 13.0, 40.0}) {
            const Pattern wanted = request(fonts->fonts[i], pixels);
            FcResult result = FcResultNoMatch;
            const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
            ASSERT_EQ(result, FcResultMatch);
            EXPECT_EQ(drawing(found.get()), drawing(lookedFor(wanted.get()).get()));
        }
    }
}

TEST(FontMatch, LooksForAFontThatIsNotNamedByItsFile)
{
    for (const char* family : {"Inter", "sans-serif", "No Such Family"}) {
        const Pattern wanted(FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, family, nullptr));
        FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
        FcDefaultSubstitute(wanted.get());
        FcResult result = FcResultNoMatch;
        const Pattern found(FcFontMatch(nullptr, wanted.get(), &result));
        ASSERT_EQ(result, FcResultMatch) << family;
        EXPECT_EQ(drawing(found.get()), drawing(lookedFor(wanted.get()).get())) << family;
    }
}
