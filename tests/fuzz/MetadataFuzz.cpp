#include "core/formats/FormatOption.h"
#include "core/text/Duration.h"
#include "core/ytdlp/YtDlpService.h"
#include "fuzz/Fuzz.h"

using namespace clipwren;

/// What yt-dlp prints about a video, and all that is shown of it before a download.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    try {
        const VideoInfo info = VideoInfo::fromJson(fuzz::bytesOf(data, size));
        fuzz::require(!FormatOption::options(info).isEmpty());
        const QString stem = YtDlpService::sanitizeFilename(info.title.value_or(QString()));
        fuzz::require(!stem.isEmpty() && !stem.startsWith(u'.') && !stem.contains(u'/'));
        fuzz::require(!formatDuration(info.duration.value_or(0)).isEmpty());
    } catch (const DecodingError &error) {
        fuzz::require(!error.errorDescription().isEmpty());
    }
    return 0;
}
