#include "core/formats/OutputFormat.h"

namespace clipwren {

QString rawValue(OutputFormat format)
{
    switch (format) {
    case OutputFormat::bestResolution:
        return QStringLiteral("bestResolution");
    case OutputFormat::macCompatible:
        return QStringLiteral("macCompatible");
    case OutputFormat::proRes422:
        return QStringLiteral("proRes422");
    case OutputFormat::audioMP3:
        return QStringLiteral("audioMP3");
    }
    Q_UNREACHABLE();
}

std::optional<OutputFormat> outputFormatWithRawValue(QStringView text)
{
    for (const OutputFormat format : allOutputFormats) {
        if (text == rawValue(format))
            return format;
    }
    return std::nullopt;
}

OutputFormat outputFormatFrom(QStringView storedText)
{
    // "maxQuality" preferred H.264 in its time, so it does not mean the best resolution.
    if (storedText == u"maxQuality" || storedText == u"h264Mp4")
        return OutputFormat::macCompatible;
    if (storedText == u"bestQuality")
        return OutputFormat::bestResolution;
    return outputFormatWithRawValue(storedText).value_or(OutputFormat::bestResolution);
}

} // namespace clipwren
