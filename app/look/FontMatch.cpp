#include <fontconfig/fontconfig.h>

#include <array>
#include <cstddef>
#include <memory>

namespace {

struct DropConfiguration
{
    void operator()(FcConfig* configuration) const { FcConfigDestroy(configuration); }
};

/// The font with this face of this file; null where it is not among them.
FcPattern* face(const FcFontSet& fonts, const FcChar8* file, int index)
{
    for (FcPattern** font = fonts.fonts; font != fonts.fonts + fonts.nfont; ++font) {
        FcChar8* itsFile = nullptr;
        int itsIndex = 0;
        if (FcPatternGetInteger(*font, FC_INDEX, 0, &itsIndex) == FcResultMatch && itsIndex == index
            && FcPatternGetString(*font, FC_FILE, 0, &itsFile) == FcResultMatch
            && FcStrCmp(itsFile, file) == 0)
            return *font;
    }
    return nullptr;
}

} // namespace

/// Stands before fontconfig's function of this name, also for Qt, which asks for each size and weight of a
/// font how the desktop wants it drawn. Qt names the font by its file; the library would compare the request
/// with every installed font to find that file again: with 400 fonts a quarter of a millisecond, 15 times at
/// a start. What is named is taken here, and all else is looked for as the library does. The answer is the
/// library's: nothing weighs more in its comparison than the file, and FcFontRenderPrepare applies what the
/// configuration says of a match.
FcPattern* FcFontMatch(FcConfig* config, FcPattern* pattern, FcResult* result)
{
    *result = FcResultNoMatch;
    const std::unique_ptr<FcConfig, DropConfiguration> used(FcConfigReference(config));
    if (!used)
        return nullptr;
    std::array<FcFontSet*, 2> sets {};
    int count = 0;
    for (const FcSetName name : {FcSetSystem, FcSetApplication}) {
        if (FcFontSet* fonts = FcConfigGetFonts(used.get(), name))
            sets.at(static_cast<std::size_t>(count++)) = fonts;
    }
    FcChar8* file = nullptr;
    int index = 0;
    const bool isNamed = FcPatternGetString(pattern, FC_FILE, 0, &file) == FcResultMatch
        && FcPatternGetInteger(pattern, FC_INDEX, 0, &index) == FcResultMatch;
    for (int i = 0; isNamed && i < count; ++i) {
        if (FcPattern* named = face(*sets.at(static_cast<std::size_t>(i)), file, index)) {
            *result = FcResultMatch;
            return FcFontRenderPrepare(used.get(), pattern, named);
        }
    }
    return FcFontSetMatch(used.get(), sets.data(), count, pattern, result);
}
