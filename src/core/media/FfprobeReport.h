#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace clipwren {

/// What ffprobe says about a file. Fields are named as its keys; any of them may be absent. It
/// writes many numbers as text, and "N/A" for what it does not know.
struct FfprobeReport {
    struct Format {
        std::optional<QString> format_name = std::nullopt; ///< as in "matroska,webm"
        std::optional<QString> format_long_name = std::nullopt;
        std::optional<QString> duration = std::nullopt; ///< seconds
        std::optional<QString> size = std::nullopt; ///< bytes
        std::optional<QString> bit_rate = std::nullopt; ///< bits per second
    };

    struct Stream {
        std::optional<QString> codec_type = std::nullopt; ///< "video", "audio" or another
        std::optional<QString> codec_name = std::nullopt;
        std::optional<QString> profile = std::nullopt;
        std::optional<qint64> width = std::nullopt; ///< pixels
        std::optional<qint64> height = std::nullopt; ///< pixels
        std::optional<QString> pix_fmt = std::nullopt;
        std::optional<QString> r_frame_rate = std::nullopt; ///< a fraction, as in "30000/1001"
        std::optional<QString> bit_rate = std::nullopt; ///< bits per second
        std::optional<QString> sample_rate = std::nullopt; ///< hertz
        std::optional<qint64> channels = std::nullopt;
        std::optional<QString> channel_layout = std::nullopt;
    };

    std::optional<QList<Stream>> streams = std::nullopt; ///< in file order
    std::optional<Format> format = std::nullopt; ///< the container

    /// Throws `DecodingError`, which names the place, when the bytes are no JSON object or a field
    /// has another type.
    static FfprobeReport fromJson(const QByteArray &utf8);
};

} // namespace clipwren
