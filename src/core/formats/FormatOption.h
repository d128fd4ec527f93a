#pragma once

#include "core/formats/OutputFormat.h"

#include <QList>

namespace clipwren {

struct VideoFormat;
struct VideoInfo;

/// Where a file plays.
enum class CompatLevel {
    macNative, ///< H.264: QuickTime and every common editor
    macModern, ///< HEVC: current desktop systems, perhaps not older tools
    needsThirdParty, ///< any other video codec: only players such as VLC or IINA
    proRes, ///< the editing format
    audioOnly,
};

/// One output format as offered for a video.
struct FormatOption {
    OutputFormat kind;
    QString title; ///< as in "Best resolution — 2160p VP9"
    QString subtitle; ///< one sentence that explains the choice
    CompatLevel compat;
    std::optional<qint64> approximateBytes; ///< of the whole video; at least 1

    /// Three or four options, each of another kind, in the order to show them.
    static QList<FormatOption> options(const std::optional<VideoInfo> &info);

    /// Unique within one list.
    QString id() const { return rawValue(kind); }

    bool operator==(const FormatOption &) const = default;
};

/// False where the codec is "none" or not named.
bool carriesVideo(const VideoFormat &format);

/// Of a codec's name as the site or ffprobe writes it; an empty one needs another player. Takes
/// more prefixes for H.264 than `prettyCodecName`.
CompatLevel compatLevel(const QString &codec);

/// "H.264" for "avc1.64001F" or "h264"; in upper case what is not known.
QString prettyCodecName(const QString &codec);

size_t qHash(const FormatOption &option, size_t seed = 0);

} // namespace clipwren
