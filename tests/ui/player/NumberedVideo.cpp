#include "NumberedVideo.h"

#include <ostream>

namespace clipwren::test {
namespace {

constexpr int blocks = 16;
constexpr int frameBits = 12;
constexpr double blockWidth = 1.0 / blocks;
// Centres of the two rows, in parts of the height.
constexpr double invertedRow = 16 / 180.0;
constexpr double plainRow = 48 / 180.0;

int brightness(const QImage &picture, double x, double y)
{
    return qGray(picture.pixel(static_cast<int>(x * picture.width()),
                               static_cast<int>(y * picture.height())));
}

} // namespace

QUrl numberedVideo(int stream)
{
    return QUrl::fromLocalFile(
        QString::fromUtf8(CLIPWREN_TEST_MEDIA "/numbered%1.mp4").arg(stream));
}

std::optional<FrameNumber> readFrameNumber(const QImage &picture)
{
    if (picture.isNull())
        return {};
    int bits = 0;
    for (int block = 0; block < blocks; ++block) {
        const double x = (block + 0.5) * blockWidth;
        const int plain = brightness(picture, x, plainRow);
        const int inverted = brightness(picture, x, invertedRow);
        if (std::abs(plain - inverted) < 100)
            return {};
        if (plain > inverted)
            bits |= 1 << block;
    }
    return FrameNumber{bits >> frameBits, bits & ((1 << frameBits) - 1)};
}

void PrintTo(const FrameNumber &number, std::ostream *out)
{
    *out << "frame " << number.frame << " of stream " << number.stream;
}

} // namespace clipwren::test
