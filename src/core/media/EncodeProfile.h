#pragma once

#include <QStringList>

namespace clipwren {

/// ffmpeg's codec arguments and the container for a conversion.
struct EncodeProfile {
    QStringList videoArgs;
    QStringList audioArgs;
    QString ext; ///< of the new file, without the dot

    /// H.264 and AAC in MP4, which plays everywhere.
    static EncodeProfile h264Mp4();
    /// ProRes 422 HQ and uncompressed sound in QuickTime, for editing.
    static EncodeProfile proRes422();
};

} // namespace clipwren
