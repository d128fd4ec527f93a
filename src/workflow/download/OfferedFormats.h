#pragma once

#include "core/formats/FormatOption.h"
#include "core/media/MediaInspection.h"
#include "core/ytdlp/VideoInfo.h"

#include <QList>

#include <optional>

namespace clipwren {

/// The formats to choose from, each as the download will give it.
///
/// `FormatOption::options` describes the first of several formats of the greatest height, but the
/// tool downloads the last. Where they differ, what is downloaded is shown: H.264 where it is
/// offered at that height, otherwise the last.
QList<FormatOption> offeredFormats(const std::optional<VideoInfo> &info);

/// The format whose arguments make the tool save what `offeredFormats` shows for `format`.
OutputFormat requestedFormat(OutputFormat format, const std::optional<VideoInfo> &info);

/// Whether the picture of a file is what `offeredFormats` shows for `format`: at least of that
/// height, and in a codec of that class.
bool matchesFormat(OutputFormat format, const MediaInspection &file,
                   const std::optional<VideoInfo> &info);

} // namespace clipwren
