#pragma once

#include <QStringView>

#include <optional>

namespace clipwren {

/// Numbers as the tools print them: a point before the fraction whatever the user's locale, and
/// nothing around them. The whole text is the number or there is none: "N/A", " 1", "1,5", "0x10",
/// "inf" and "nan" are no numbers. A sign may stand in front.
std::optional<double> readNumber(QStringView text);
/// Base 10, 64 bits.
std::optional<qint64> readInteger(QStringView text);

} // namespace clipwren
