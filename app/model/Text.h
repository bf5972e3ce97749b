#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace zelta {

/// The one crossing between the core's UTF-8 and Qt's UTF-16. Malformed UTF-8 becomes U+FFFD; half a
/// surrogate pair, which UTF-8 cannot hold, becomes "?".
inline QString toQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string toUtf8(const QString& text)
{
    return text.toStdString();
}

/// Text for a control that reads "&" as a mnemonic: "Saturday && Sunday" shows as "Saturday & Sunday".
inline QString withoutMnemonic(QString text)
{
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace zelta
