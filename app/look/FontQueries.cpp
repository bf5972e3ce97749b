#include <fontconfig/fontconfig.h>

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

/// Two of fontconfig's functions, as Qt calls them at a start: the linker takes these for the library's own.
/// They give what the library gives for the same request, without looking through all installed fonts for
/// each.

namespace {

struct Drop
{
    void operator()(FcConfig* configuration) const { FcConfigDestroy(configuration); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
};
using Configuration = std::unique_ptr<FcConfig, Drop>;
using Fonts = std::unique_ptr<FcFontSet, Drop>;

/// The installed fonts of a configuration, which owns them, and those that the program brought along.
class Installed
{
public:
    explicit Installed(FcConfig* configuration)
    {
        for (const FcSetName name : {FcSetSystem, FcSetApplication}) {
            if (FcFontSet* fonts = FcConfigGetFonts(configuration, name))
                m_sets.at(m_count++) = fonts;
        }
    }
    std::span<FcFontSet*> sets() { return std::span(m_sets).first(m_count); }
    [[nodiscard]] int count() const { return static_cast<int>(m_count); }

private:
    std::array<FcFontSet*, 2> m_sets {};
    std::size_t m_count = 0;
};

std::span<FcPattern*> patterns(const FcFontSet& fonts)
{
    return {fonts.fonts, static_cast<std::size_t>(fonts.nfont)};
}

/// The font with this face of this file; null where it is not among them.
FcPattern* face(const FcFontSet& fonts, const FcChar8* file, int index)
{
    for (FcPattern* font : patterns(fonts)) {
        FcChar8* itsFile = nullptr;
        int itsIndex = 0;
        if (FcPatternGetInteger(font, FC_INDEX, 0, &itsIndex) == FcResultMatch && itsIndex == index
            && FcPatternGetString(font, FC_FILE, 0, &itsFile) == FcResultMatch
            && FcStrCmp(itsFile, file) == 0)
            return font;
    }
    return nullptr;
}

/// A list that tells the faces of all files apart; others are made of fonts that are alike in what is asked
/// for.
bool listsFaces(const FcPattern* wanted, const FcObjectSet* objects)
{
    if (!objects) // which means all
        return false;
    bool file = false;
    bool index = false;
    for (const char* object : std::span(objects->objects, static_cast<std::size_t>(objects->nobject))) {
        file = file || std::string_view(object) == FC_FILE;
        index = index || std::string_view(object) == FC_INDEX;
    }
    return file && index && FcPatternObjectCount(wanted) == 0;
}

/// Whether all names of this kind are in one language; a list puts that of the user's language first.
bool inOneLanguage(const FcPattern* font, const char* language)
{
    FcChar8* first = nullptr;
    if (FcPatternGetString(font, language, 0, &first) != FcResultMatch)
        return true;
    FcChar8* other = nullptr;
    for (int i = 1; FcPatternGetString(font, language, i, &other) == FcResultMatch; ++i) {
        if (FcStrCmp(first, other) != 0)
            return false;
    }
    return true;
}

} // namespace

/// The fonts that are wanted, with at least the objects that are asked for. Qt lists all of them by file and
/// face before the first text. The library would copy each and compare the copies; no two of those are alike,
/// so the fonts themselves are given, but for those whose names the list has to order.
FcFontSet* FcFontList(FcConfig* config, FcPattern* pattern, FcObjectSet* objects)
{
    if (!config && !FcInitBringUptoDate())
        return nullptr;
    const Configuration used(FcConfigReference(config));
    if (!used)
        return nullptr;
    Installed installed(used.get());
    if (!listsFaces(pattern, objects))
        return FcFontSetList(used.get(), installed.sets().data(), installed.count(), pattern, objects);
    Fonts listed(FcFontSetCreate());
    const Fonts named(FcFontSetCreate());
    for (const FcFontSet* fonts : installed.sets()) {
        for (FcPattern* font : patterns(*fonts)) {
            const bool isPlain = inOneLanguage(font, FC_FAMILYLANG) && inOneLanguage(font, FC_STYLELANG)
                && inOneLanguage(font, FC_FULLNAMELANG);
            FcPatternReference(font);
            FcFontSetAdd(isPlain ? listed.get() : named.get(), font);
        }
    }
    FcFontSet* sorted = named.get();
    const Fonts ordered(FcFontSetList(used.get(), &sorted, 1, pattern, objects));
    for (FcPattern* font : patterns(*ordered)) {
        FcPatternReference(font);
        FcFontSetAdd(listed.get(), font);
    }
    return listed.release();
}

/// The font for a request, made ready to be drawn as the configuration says. Qt asks for each size and weight
/// of a font how the desktop wants it drawn, and names the font by its file; the library would compare the
/// request with every installed font to find that file again: with 400 fonts a quarter of a millisecond, 15
/// times at a start. What is named is taken here, and all else is looked for as the library does. Nothing
/// weighs more in the library's comparison than the file, and FcFontRenderPrepare applies what the
/// configuration says of a match.
FcPattern* FcFontMatch(FcConfig* config, FcPattern* pattern, FcResult* result)
{
    *result = FcResultNoMatch;
    const Configuration used(FcConfigReference(config));
    if (!used)
        return nullptr;
    Installed installed(used.get());
    FcChar8* file = nullptr;
    int index = 0;
    if (FcPatternGetString(pattern, FC_FILE, 0, &file) == FcResultMatch
        && FcPatternGetInteger(pattern, FC_INDEX, 0, &index) == FcResultMatch) {
        for (const FcFontSet* fonts : installed.sets()) {
            if (FcPattern* named = face(*fonts, file, index)) {
                *result = FcResultMatch;
                return FcFontRenderPrepare(used.get(), pattern, named);
            }
        }
    }
    return FcFontSetMatch(used.get(), installed.sets().data(), installed.count(), pattern, result);
}
