#pragma once

#include <QString>

#include <optional>

namespace clipwren {

struct FfprobeReport;

/// The facts about a media file that are shown. A field is absent when ffprobe did not say it or
/// said something unreadable.
struct MediaInspection {
    std::optional<qint64> sizeBytes = std::nullopt;
    std::optional<double> duration = std::nullopt; ///< seconds
    std::optional<QString> container = std::nullopt; ///< as in "mov,mp4,m4a,3gp,3g2,mj2"
    std::optional<qint64> overallBitrateKbps = std::nullopt;
    std::optional<QString> videoCodec = std::nullopt; ///< as in "h264"
    std::optional<QString> videoProfile = std::nullopt; ///< as in "High"
    std::optional<qint64> width = std::nullopt; ///< pixels
    std::optional<qint64> height = std::nullopt; ///< pixels
    std::optional<double> frameRate = std::nullopt; ///< frames per second
    std::optional<QString> pixelFormat = std::nullopt; ///< as in "yuv420p"
    std::optional<qint64> videoBitrateKbps = std::nullopt;
    std::optional<QString> audioCodec = std::nullopt; ///< as in "aac"
    std::optional<qint64> sampleRateHz = std::nullopt;
    std::optional<qint64> channels = std::nullopt;
    std::optional<QString> channelLayout = std::nullopt; ///< as in "stereo"
    std::optional<qint64> audioBitrateKbps = std::nullopt;

    /// Of several streams of one kind the last decides; what it does not say of its rates is taken
    /// from those before it.
    static MediaInspection fromReport(const FfprobeReport &report);

    /// ffprobe's codec name for people, as in "H.264".
    static QString prettyCodec(const QString &name);

    /// As in "1920 × 1080"; absent unless both are at least 1.
    std::optional<QString> dimensions() const;

    bool operator==(const MediaInspection &) const = default;
};

size_t qHash(const MediaInspection &inspection, size_t seed = 0);

} // namespace clipwren
