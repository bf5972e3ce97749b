#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zelta {

/// The one crossing between the core's UTF-8 and Qt's UTF-16. Malformed UTF-8 becomes U+FFFD; half a
/// surrogate pair, which UTF-8 cannot hold, becomes "?".
inline QString toQt(std::string_view text)
{
    constexpr std::string_view mark
        = "\uFEFF"; // in front Qt takes it for a sign of the encoding, and drops it
    qsizetype marks = 0;
    for (; text.starts_with(mark); text.remove_prefix(mark.size()))
        ++marks;
    const QString rest = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return marks == 0 ? rest : QString(marks, QChar::ByteOrderMark) + rest;
}

inline std::string toUtf8(const QString& text)
{
    return text.toStdString();
}

/// What a line shows of a text that may be very long: its first characters, at most so many code units, none
/// cut in the middle.
QString leadingCharacters(const QString& text, qsizetype atMost);

/// What has to follow a text so that its own marks for the direction of writing end with it: one closing mark
/// for each that is still open (Unicode Standard Annex 9).
QString closersFor(const QString& text);

/// Text for a control that reads "&" as a mnemonic: "Saturday && Sunday" shows as "Saturday & Sunday".
inline QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace zelta
