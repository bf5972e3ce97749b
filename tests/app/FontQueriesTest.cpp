#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

struct Drop
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* fonts) const { FcFontSetDestroy(fonts); }
    void operator()(FcObjectSet* objects) const { FcObjectSetDestroy(objects); }
};
using Pattern = std::unique_ptr<FcPattern, Drop>;
using Fonts = std::unique_ptr<FcFontSet, Drop>;
using Objects = std::unique_ptr<FcObjectSet, Drop>;

/// Every installed font, with what a request for it is made of.
Fonts installedFonts()
{
    const Pattern any(FcPatternCreate());
    const Objects objects(FcObjectSetBuild(FC_FAMILY, FC_FILE, FC_INDEX, nullptr));
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

std::string asText(FcPattern* pattern)
{
    const std::unique_ptr<FcChar8, decltype(&FcStrFree)> text(FcNameUnparse(pattern), &FcStrFree);
    return reinterpret_cast<const char*>(text.get());
}

/// How a font is to be drawn.
std::string drawing(const FcPattern* match)
{
    Pattern kept(FcPatternCreate());
    for (const char* object : {FC_FILE, FC_ANTIALIAS, FC_HINTING, FC_HINT_STYLE, FC_AUTOHINT, FC_RGBA,
                               FC_LCD_FILTER, FC_EMBEDDED_BITMAP, FC_PIXEL_SIZE}) {
        FcValue value;
        if (FcPatternGet(match, object, 0, &value) == FcResultMatch)
            FcPatternAdd(kept.get(), object, value, FcTrue);
    }
    return asText(kept.get());
}

/// The content of the file of an installed font.
QByteArray installedFile()
{
    const Fonts installed = installedFonts();
    for (int i = 0; i < installed->nfont; ++i) {
        FcChar8* path = nullptr;
        FcPatternGetString(installed->fonts[i], FC_FILE, 0, &path);
        QFile file(QFile::decodeName(reinterpret_cast<const char*>(path)));
        if (file.open(QIODevice::ReadOnly) && file.peek(4) == "OTTO")
            return file.readAll();
    }
    return {};
}

/// What Qt reads of each font.
Objects objectsOfQt()
{
    return Objects(FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_WEIGHT, FC_SLANT, FC_SPACING, FC_FILE, FC_INDEX,
                                    FC_LANG, FC_CHARSET, FC_FOUNDRY, FC_SCALABLE, FC_PIXEL_SIZE, FC_WIDTH,
                                    FC_FAMILYLANG, FC_VARIABLE, nullptr));
}

/// The fonts with these objects only, as texts in order.
std::vector<std::string> asTexts(const FcFontSet& fonts, const FcObjectSet& objects)
{
    std::vector<std::string> texts;
    for (int i = 0; i < fonts.nfont; ++i)
        texts.push_back(asText(Pattern(FcPatternFilter(fonts.fonts[i], &objects)).get()));
    std::ranges::sort(texts);
    return texts;
}

/// What the library lists.
Fonts libraryList(FcPattern* wanted, FcObjectSet* objects)
{
    std::array sets {FcConfigGetFonts(nullptr, FcSetSystem), FcConfigGetFonts(nullptr, FcSetApplication)};
    return Fonts(FcFontSetList(nullptr, sets.data(), sets.back() ? 2 : 1, wanted, objects));
}

void addTo(QByteArray& table, quint16 number)
{
    number = qToBigEndian(number);
    table.append(reinterpret_cast<const char*>(&number), sizeof number);
}

/// A font like this one, but called "English" in English and "日本" in Japanese: its table of names is
/// replaced.
QByteArray renamed(QByteArray font)
{
    struct Name
    {
        quint16 language;
        const char16_t* text;
        quint16 length; // bytes
    };
    constexpr std::array<Name, 2> names {{{0x409, u"English", 14}, {0x411, u"日本", 4}}};
    QByteArray table;
    QByteArray texts;
    for (const std::size_t number : {std::size_t(0), names.size(), 6 + 12 * names.size()})
        addTo(table, static_cast<quint16>(number));
    for (const Name& name : names) {
        for (const quint16 number : {quint16(3), quint16(1), name.language, quint16(1), name.length})
            addTo(table, number);
        addTo(table, static_cast<quint16>(texts.size()));
        for (int i = 0; i < name.length / 2; ++i)
            addTo(texts, name.text[i]);
    }
    table += texts;
    const qsizetype entry
        = font.indexOf("name", 12); // in the directory of tables: tag, checksum, offset, length
    qToBigEndian(static_cast<quint32>(font.size()), font.data() + entry + 8);
    qToBigEndian(static_cast<quint32>(table.size()), font.data() + entry + 12);
    return font + table;
}

} // namespace

TEST(FontQueries, ListsEachFaceAsTheLibraryDoes)
{
    const Pattern any(FcPatternCreate());
    const Objects objects = objectsOfQt();
    const Fonts listed(FcFontList(nullptr, any.get(), objects.get()));
    ASSERT_GT(listed->nfont, 0);
    EXPECT_EQ(asTexts(*listed, *objects), asTexts(*libraryList(any.get(), objects.get()), *objects));
}

TEST(FontQueries, ListsFamiliesAndWantedFontsAsTheLibraryDoes)
{
    const Pattern any(FcPatternCreate());
    const Objects families(FcObjectSetBuild(FC_FAMILY, FC_STYLE, nullptr));
    const Fonts listed(FcFontList(nullptr, any.get(), families.get()));
    EXPECT_EQ(asTexts(*listed, *families), asTexts(*libraryList(any.get(), families.get()), *families));

    const Objects all(FcObjectSetBuild(FC_FULLNAME, nullptr));
    EXPECT_EQ(asTexts(*Fonts(FcFontList(nullptr, any.get(), nullptr)), *all),
              asTexts(*libraryList(any.get(), nullptr), *all));

    const Pattern bold(FcPatternBuild(nullptr, FC_WEIGHT, FcTypeInteger, FC_WEIGHT_BOLD, nullptr));
    const Objects objects = objectsOfQt();
    const Fonts wanted(FcFontList(nullptr, bold.get(), objects.get()));
    EXPECT_EQ(asTexts(*wanted, *objects), asTexts(*libraryList(bold.get(), objects.get()), *objects));
}

TEST(FontQueries, PutsTheNameInTheUsersLanguageFirst)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process of its own: the language is asked for once
    const QByteArray before = qgetenv("FC_LANG");
    const auto restore = qScopeGuard([&] { qputenv("FC_LANG", before); });
    qputenv("FC_LANG", "ja");
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("two-names.otf")));
    const QByteArray original = installedFile();
    ASSERT_FALSE(original.isEmpty());
    const QByteArray font = renamed(original);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(font) == font.size());
    file.close();
    const QByteArray path = QFile::encodeName(file.fileName());

    const auto japaneseIsFirst = [&path] {
        bool isFirst = false;
        {
            const Pattern any(FcPatternCreate());
            const Objects objects = objectsOfQt();
            FcConfigAppFontAddFile(nullptr, reinterpret_cast<const FcChar8*>(path.constData()));
            const std::vector<std::string> texts
                = asTexts(*Fonts(FcFontList(nullptr, any.get(), objects.get())), *objects);
            const auto isTheCopy = [](const std::string& text) { return text.starts_with("日本,English:"); };
            isFirst = std::ranges::count_if(texts, isTheCopy) == 1
                && texts == asTexts(*libraryList(any.get(), objects.get()), *objects);
        }
        FcFini(); // or what the library holds counts as leaked
        return isFirst;
    };
    EXPECT_EXIT(std::exit(japaneseIsFirst() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(FontQueries, DrawsEachInstalledFontAsTheLibrarySays)
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

TEST(FontQueries, LooksForAFontThatIsNotNamedByItsFile)
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
