#pragma once

#include <QImage>
#include <QUrl>

#include <optional>

namespace clipwren::test {

/// The frames of a test video say which they are: 16 blocks along the top, black for 0 and white
/// for 1, lowest bit first; above them the same inverted, so that a plain picture is no number.
/// 25 frames a second, 200 frames, a tone.
struct FrameNumber {
    int stream = 0;
    int frame = 0;

    bool operator==(const FrameNumber &) const = default;
};

constexpr double framesPerSecond = 25;
constexpr int frameCount = 200;

/// Streams 1 and 2.
QUrl numberedVideo(int stream);

/// Absent when the picture shows none of the test videos. The video must fill the picture.
std::optional<FrameNumber> readFrameNumber(const QImage &picture);

/// For messages of failed expectations.
void PrintTo(const FrameNumber &number, std::ostream *out);

} // namespace clipwren::test
