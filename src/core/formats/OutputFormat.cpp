#include "core/formats/OutputFormat.h"

#include <QCoreApplication>

namespace clipwren {

using namespace Qt::StringLiterals;

const OutputFormatTraits &traits(OutputFormat format)
{
    static const QStringList mergedAsMp4{u"--merge-output-format"_s, u"mp4"_s};
    static const QStringList soundAsAac{u"--postprocessor-args"_s, u"ffmpeg:-c:a aac -b:a 192k"_s};
    static const OutputFormatTraits bestResolution{
        .rawValue = u"bestResolution"_s,
        .extension = u"mp4"_s,
        .downloadArguments =
            QStringList{u"-f"_s, u"bv*+ba[ext=m4a]/bv*+ba/b"_s} + mergedAsMp4 + soundAsAac,
    };
    static const OutputFormatTraits macCompatible{
        .rawValue = u"macCompatible"_s,
        .extension = u"mp4"_s,
        .downloadArguments = QStringList{u"-f"_s,
                                         u"bv*[vcodec^=avc1]+ba[ext=m4a]/b[ext=mp4]/"
                                         "bv*[vcodec^=avc1]+ba/b[vcodec^=avc1]"_s}
            + mergedAsMp4 + soundAsAac,
    };
    static const OutputFormatTraits proRes422{
        .rawValue = u"proRes422"_s,
        .extension = u"mov"_s,
        .downloadArguments = QStringList{u"-f"_s, u"bv*+ba/b"_s} + mergedAsMp4,
        .conversion = EncodeProfile::proRes422(),
        .conversionHeading =
            QT_TRANSLATE_NOOP("clipwren::DownloadPipeline", "Encoding to Apple ProRes 422"),
    };
    static const OutputFormatTraits audioMP3{
        .rawValue = u"audioMP3"_s,
        .extension = u"mp3"_s,
        .downloadArguments = {u"-f"_s, u"ba/b"_s, u"--extract-audio"_s, u"--audio-format"_s,
                              u"mp3"_s, u"--audio-quality"_s, u"0"_s},
        .isAudioOnly = true,
    };
    switch (format) {
    case OutputFormat::bestResolution:
        return bestResolution;
    case OutputFormat::macCompatible:
        return macCompatible;
    case OutputFormat::proRes422:
        return proRes422;
    case OutputFormat::audioMP3:
        return audioMP3;
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
