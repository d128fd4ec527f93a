#include "core/formats/FormatOption.h"
#include "core/json/JsonObjectReader.h"
#include "core/text/Duration.h"
#include "core/ytdlp/DownloadArguments.h"
#include "core/ytdlp/VideoInfo.h"
#include "fuzz/Fuzz.h"

using namespace clipwren;

/// What yt-dlp prints about a video, and all that is shown of it before a download.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    try {
        const VideoInfo info = VideoInfo::fromJson(fuzz::bytesOf(data, size));
        fuzz::require(!FormatOption::options(info).isEmpty());
        const QString title = info.title.value_or(QString());
        for (const QString &stem : {fileStem(title), siteFileStem(title)})
            fuzz::require(!stem.isEmpty() && !stem.contains(u'/') && !stem.contains(u'\n'));
        fuzz::require(!fileStem(title).startsWith(u'.'));
        fuzz::require(fileStem(title).toUtf8().size() <= maximumStemBytes);
        fuzz::require(!formatDuration(info.duration.value_or(0)).isEmpty());
    } catch (const DecodingError &error) {
        fuzz::require(!error.errorDescription().isEmpty());
    }
    return 0;
}
