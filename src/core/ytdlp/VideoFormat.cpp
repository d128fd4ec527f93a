#include "core/ytdlp/VideoFormat.h"

#include "core/OptionalHash.h"
#include "core/json/JsonObjectReader.h"
#include "core/text/BoundedText.h"

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

/// The codec's name is shown.
std::optional<QString> name(const JsonObjectReader &json, QLatin1StringView key)
{
    constexpr qsizetype longestName = 100;
    const auto text = json.text(key);
    return text ? std::optional(boundedText(*text, longestName)) : std::nullopt;
}

} // namespace

VideoFormat VideoFormat::fromJson(const JsonObjectReader &json)
{
    return {
        .format_id = name(json, "format_id"_L1),
        .vcodec = name(json, "vcodec"_L1),
        .acodec = name(json, "acodec"_L1),
        .ext = name(json, "ext"_L1),
        .height = json.integer("height"_L1),
        .width = json.integer("width"_L1),
        .fps = json.number("fps"_L1),
        .filesize = json.integer("filesize"_L1),
        .filesize_approx = json.integer("filesize_approx"_L1),
        .tbr = json.number("tbr"_L1),
        .vbr = json.number("vbr"_L1),
        .abr = json.number("abr"_L1),
    };
}

size_t qHash(const VideoFormat &format, size_t seed)
{
    return qHashMulti(seed, optionalHash(format.format_id), optionalHash(format.vcodec),
                      optionalHash(format.acodec), optionalHash(format.ext),
                      optionalHash(format.height), optionalHash(format.width),
                      optionalHash(format.fps), optionalHash(format.filesize),
                      optionalHash(format.filesize_approx), optionalHash(format.tbr),
                      optionalHash(format.vbr), optionalHash(format.abr));
}

} // namespace clipwren
