#pragma once

#include <QStringView>

#include <optional>

namespace clipwren {

/// What a line of ffmpeg's progress report says of the whole, 0 to 1; nothing for other lines.
/// `totalSeconds` is 0 where it is not known.
std::optional<double> ffmpegFraction(QStringView line, double totalSeconds);

} // namespace clipwren
