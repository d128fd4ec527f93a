#include "core/ytdlp/VideoInfo.h"

#include "core/json/JsonObjectReader.h"
#include "core/text/BoundedText.h"

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// Bounded, and half of a surrogate pair becomes "?": regular expressions refuse a text with one.
std::optional<QString> shownText(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    return boundedText(QString::fromUtf8(text->toUtf8()), longestTitle);
}

/// A truncated address would lead somewhere else, so a long one is dropped.
std::optional<QString> addressIfBounded(const std::optional<QString> &text)
{
    constexpr qsizetype longestAddress = 100'000;
    return text && text->size() <= longestAddress ? text : std::nullopt;
}

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
        .title = shownText(json.text("title"_L1)),
        .duration = json.number("duration"_L1),
        .thumbnail = addressIfBounded(json.text("thumbnail"_L1)),
        .uploader = shownText(json.text("uploader"_L1)),
        .webpage_url = addressIfBounded(json.text("webpage_url"_L1)),
        .formats = readFormats(json),
    };
}

} // namespace clipwren
