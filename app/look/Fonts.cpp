#include "app/look/Theme.h"

#include <QApplication>
#include <QStringList>
#include <array>
#include <cstddef>

namespace zelta::Theme {

namespace {

struct Face
{
    FontRole role;
    int pixels;
    QFont::Weight weight;
    double letterSpacing = 0; // pixels
};

/// In the order of `FontRole`, so that a role is its own index.
constexpr std::array<Face, 23> faces {{
    {FontRole::headline, 27, QFont::DemiBold, -0.3},
    {FontRole::title, 20, QFont::DemiBold, -0.2},
    {FontRole::field, 18, QFont::Medium},
    {FontRole::value, 17, QFont::DemiBold},
    {FontRole::body, 15, QFont::Normal},
    {FontRole::bodyBold, 15, QFont::DemiBold},
    {FontRole::sectionLabel, 12, QFont::Bold},
    {FontRole::caption, 12, QFont::Normal},
    {FontRole::captionMedium, 12, QFont::Medium},
    {FontRole::captionBold, 12, QFont::DemiBold},
    {FontRole::calculatorNumber, 40, QFont::DemiBold, -0.8},
    {FontRole::keyDigit, 20, QFont::Medium},
    {FontRole::keyOperator, 22, QFont::DemiBold},
    {FontRole::keyEquals, 24, QFont::Medium},
    {FontRole::keyUtility, 18, QFont::Medium},
    {FontRole::dayNumber, 16, QFont::Medium},
    {FontRole::dayNumberToday, 16, QFont::Bold},
    {FontRole::sidebarHeader, 17, QFont::Bold},
    {FontRole::rowTitle, 14, QFont::DemiBold},
    {FontRole::control, 13, QFont::Medium},
    {FontRole::menu, 13, QFont::Normal},
    {FontRole::note, 11, QFont::Normal},
    {FontRole::chip, 11, QFont::DemiBold},
}};

constexpr bool facesFollowRoles()
{
    for (std::size_t i = 0; i < faces.size(); ++i) {
        if (static_cast<std::size_t>(faces.at(i).role) != i)
            return false;
    }
    return faces.size() == static_cast<std::size_t>(FontRole::chip) + 1;
}
static_assert(facesFollowRoles());

/// A desktop that was never asked which font to use answers with one of these.
bool isPlaceholder(const QString& family)
{
    static constexpr std::array<QStringView, 4> names {u"Sans", u"Sans Serif", u"sans-serif", u""};
    for (const QStringView name : names) {
        if (family.compare(name, Qt::CaseInsensitive) == 0)
            return true;
    }
    return false;
}

} // namespace

QFont baseFont(const QFont& desktopFont)
{
    QStringList families = desktopFont.families();
    if (families.isEmpty() || isPlaceholder(families.first()))
        families = {QStringLiteral("Inter"), QStringLiteral("Noto Sans")};
    families << QStringLiteral("Noto Sans Arabic") << QStringLiteral("Noto Sans Hebrew");
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(faces.at(static_cast<std::size_t>(FontRole::body)).pixels);
    return font;
}

QFont font(FontRole role)
{
    const Face& face = faces.at(static_cast<std::size_t>(role));
    QFont font = QApplication::font();
    font.setPixelSize(face.pixels);
    font.setWeight(face.weight);
    if (face.letterSpacing != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, face.letterSpacing);
    return font;
}

} // namespace zelta::Theme
