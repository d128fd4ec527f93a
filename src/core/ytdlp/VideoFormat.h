#pragma once

#include <QString>

#include <optional>

namespace clipwren {

class JsonObjectReader;

/// One format of a video that the site offers. Fields are named as the tool's keys; of a text, the
/// first 100 characters are kept.
struct VideoFormat {
    std::optional<QString> format_id = std::nullopt;
    std::optional<QString> vcodec = std::nullopt; ///< "none" for a format without video
    std::optional<QString> acodec = std::nullopt; ///< "none" for a format without audio
    std::optional<QString> ext = std::nullopt; ///< of the container, without the dot
    std::optional<qint64> height = std::nullopt; ///< pixels
    std::optional<qint64> width = std::nullopt; ///< pixels
    std::optional<double> fps = std::nullopt;
    std::optional<qint64> filesize = std::nullopt; ///< bytes, as the site states them
    std::optional<qint64> filesize_approx = std::nullopt; ///< bytes, as the tool estimates them
    std::optional<double> tbr = std::nullopt; ///< kbit/s in total
    std::optional<double> vbr = std::nullopt; ///< kbit/s of the video
    std::optional<double> abr = std::nullopt; ///< kbit/s of the audio

    /// Throws `DecodingError` when a field has another type.
    static VideoFormat fromJson(const JsonObjectReader &json);

    bool operator==(const VideoFormat &) const = default;
};

size_t qHash(const VideoFormat &format, size_t seed = 0);

} // namespace clipwren
