#include "core/media/FfmpegProgress.h"
#include "core/process/ToolOutput.h"
#include "core/ytdlp/DownloadProgress.h"
#include "fuzz/Fuzz.h"

#include <QString>

#include <cmath>

using namespace clipwren;

namespace {

void takeLine(QStringView line)
{
    fuzz::require(!line.isEmpty() && !line.contains(u'\n') && !line.contains(u'\r'));
    if (const auto progress = DownloadProgress::fromLine(line)) {
        fuzz::require(std::isfinite(progress->fraction) && progress->fraction >= 0);
        fuzz::require(progress->status.size() < 300);
    }
    if (const auto path = reportedPath(line))
        fuzz::require(line.endsWith(*path));
    if (const auto fraction = ffmpegFraction(line, 60.5))
        fuzz::require(*fraction >= 0 && *fraction <= 1);
}

} // namespace

/// What the tools print while they work. The first byte says in how long pieces it is read.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const qsizetype pieceLength = data[0] + 1;
    const QByteArray output = fuzz::bytesOf(data + 1, size - 1);
    LineSplitter splitter;
    BoundedLog log(16);
    QByteArray understood;
    for (qsizetype from = 0; from < output.size(); from += pieceLength) {
        const QByteArray text = splitter.split(output.mid(from, pieceLength), takeLine);
        understood += text;
        log.append(text);
    }
    // The log is the whole text, or tells how much of it is missing.
    if (understood.size() <= 32)
        fuzz::require(log.text() == QString::fromUtf8(understood));
    else
        fuzz::require(log.text().contains(u" bytes left out …\n") && log.text().size() < 80);
    // Nothing sound is lost, wherever it is cut.
    if (QUtf8StringView(output).isValidUtf8())
        fuzz::require(understood == output);
    return 0;
}
