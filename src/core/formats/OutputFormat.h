#pragma once

#include "core/media/EncodeProfile.h"

#include <QString>
#include <QStringList>

#include <array>
#include <optional>

namespace clipwren {

/// What the user wants a video saved as. Add a new format to `allOutputFormats`, too; the compiler
/// names every other place that has to handle it.
enum class OutputFormat {
    bestResolution, ///< the highest resolution that the site offers, in its own codec
    macCompatible, ///< the best H.264 stream
    proRes422, ///< re-encoded to Apple ProRes 422
    audioMP3,
};

inline constexpr std::array allOutputFormats{OutputFormat::bestResolution,
                                             OutputFormat::macCompatible, OutputFormat::proRes422,
                                             OutputFormat::audioMP3};

/// The properties of one format.
struct OutputFormatTraits {
    QString rawValue; ///< the case's name: its identifier, and what the stored preference holds
    QString extension; ///< of the saved file, without the dot
    QStringList downloadArguments; ///< by which yt-dlp chooses and merges streams
    bool isAudioOnly = false;
    std::optional<EncodeProfile> conversion = std::nullopt; ///< of the download, cut or not
    const char *conversionHeading = ""; ///< what is shown meanwhile, to be translated
};

const OutputFormatTraits &traits(OutputFormat format);

inline QString rawValue(OutputFormat format)
{
    return traits(format).rawValue;
}

/// The case of exactly that name.
std::optional<OutputFormat> outputFormatWithRawValue(QStringView rawValue);

/// Reads a stored preference: names of earlier versions give what took their place, any other
/// unknown text gives `bestResolution`.
OutputFormat outputFormatFrom(QStringView storedText);

} // namespace clipwren
