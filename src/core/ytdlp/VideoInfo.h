#pragma once

#include "core/ytdlp/VideoFormat.h"

#include <QList>

namespace clipwren {

/// What the tool says about one video. Fields are named as its keys; any of them may be absent.
/// Cheap to copy. Of titles and names the beginning is kept, of no more than `longestTitle`; an
/// address of more than 100,000 characters is absent.
struct VideoInfo {
    std::optional<QString> title = std::nullopt;
    std::optional<double> duration = std::nullopt; ///< seconds
    std::optional<QString> thumbnail = std::nullopt; ///< address of the image
    std::optional<QString> uploader = std::nullopt;
    std::optional<QString> webpage_url = std::nullopt; ///< canonical address of the video's page
    std::optional<QList<VideoFormat>> formats = std::nullopt; ///< in the tool's order

    /// Throws `DecodingError`, which names the place, when the bytes are no JSON object or a field
    /// has another type.
    static VideoInfo fromJson(const QByteArray &utf8);
};

} // namespace clipwren
