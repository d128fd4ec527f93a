#include "core/ytdlp/VideoInfo.h"

#include "core/json/JsonObjectReader.h"

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

std::optional<QList<VideoFormat>> readFormats(const JsonObjectReader &json)
{
    const auto elements = json.objects("formats"_L1);
    if (!elements)
        return std::nullopt;
    QList<VideoFormat> formats;
    formats.reserve(static_cast<qsizetype>(elements->size()));
    for (const JsonObjectReader &element : *elements)
        formats.append(VideoFormat::fromJson(element));
    return formats;
}

} // namespace

VideoInfo VideoInfo::fromJson(const QByteArray &utf8)
{
    const auto json = JsonObjectReader::fromDocument(utf8);
    return {
        .title = json.text("title"_L1),
        .duration = json.number("duration"_L1),
        .thumbnail = json.text("thumbnail"_L1),
        .uploader = json.text("uploader"_L1),
        .webpage_url = json.text("webpage_url"_L1),
        .formats = readFormats(json),
    };
}

} // namespace clipwren
