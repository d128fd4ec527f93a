#include "core/json/JsonObjectReader.h"
#include "core/media/FfprobeReport.h"
#include "core/media/MediaInspection.h"
#include "fuzz/Fuzz.h"

using namespace clipwren;

/// What ffprobe prints about a file.
int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    try {
        const auto report = FfprobeReport::fromJson(fuzz::bytesOf(data, size));
        const MediaInspection file = MediaInspection::fromReport(report);
        fuzz::require(file == MediaInspection::fromReport(report));
        fuzz::require(qHash(file, 0) == qHash(MediaInspection::fromReport(report), 0));
        fuzz::require(!file.dimensions() || (*file.width > 0 && *file.height > 0));
        MediaInspection::prettyCodec(file.videoCodec.value_or(QString()));
    } catch (const DecodingError &error) {
        fuzz::require(!error.errorDescription().isEmpty());
    }
    return 0;
}
