#include "core/media/FfprobeReport.h"

#include "core/json/JsonObjectReader.h"

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

FfprobeReport::Stream readStream(const JsonObjectReader &json)
{
    return {
        .codec_type = json.text("codec_type"_L1),
        .codec_name = json.text("codec_name"_L1),
        .profile = json.text("profile"_L1),
        .width = json.integer("width"_L1),
        .height = json.integer("height"_L1),
        .pix_fmt = json.text("pix_fmt"_L1),
        .r_frame_rate = json.text("r_frame_rate"_L1),
        .bit_rate = json.text("bit_rate"_L1),
        .sample_rate = json.text("sample_rate"_L1),
        .channels = json.integer("channels"_L1),
        .channel_layout = json.text("channel_layout"_L1),
    };
}

FfprobeReport::Format readFormat(const JsonObjectReader &json)
{
    return {
        .format_name = json.text("format_name"_L1),
        .format_long_name = json.text("format_long_name"_L1),
        .duration = json.text("duration"_L1),
        .size = json.text("size"_L1),
        .bit_rate = json.text("bit_rate"_L1),
    };
}

} // namespace

FfprobeReport FfprobeReport::fromJson(const QByteArray &utf8)
{
    const auto json = JsonObjectReader::fromDocument(utf8);
    FfprobeReport report;
    if (const auto streams = json.objects("streams"_L1)) {
        report.streams.emplace();
        for (const JsonObjectReader &stream : *streams)
            report.streams->append(readStream(stream));
    }
    if (const auto format = json.object("format"_L1))
        report.format = readFormat(*format);
    return report;
}

} // namespace clipwren
