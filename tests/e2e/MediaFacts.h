#pragma once

#include <QString>

namespace clipwren::test {

/// What ffprobe says of a media file.
struct MediaFacts {
    QString container; ///< the first of its names
    QString videoCodec; ///< empty without a picture
    QString audioCodec; ///< empty without sound
    int height = 0;
    double durationSeconds = 0;

    /// Throws std::runtime_error when the file is no media file.
    static MediaFacts of(const QString &path);
};

/// How like two frames are, in decibels: the higher, the more. Frames count from 0.
double frameLikeness(const QString &path, int frame, const QString &otherPath, int otherFrame);

} // namespace clipwren::test
