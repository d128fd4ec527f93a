#pragma once

#include <QStringView>

#include <optional>

namespace clipwren {

/// The fraction of the whole, 0 to 1, that a line of ffmpeg's progress report states; absent for
/// other lines. `totalSeconds` is 0 when unknown.
std::optional<double> ffmpegFraction(QStringView line, double totalSeconds);

} // namespace clipwren
