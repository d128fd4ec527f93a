#pragma once

#include <QString>

#include <array>
#include <optional>

namespace clipwren {

/// What the user wants a video saved as.
enum class OutputFormat {
    bestResolution, ///< the highest resolution that the site offers, in its own codec
    macCompatible, ///< the best H.264 stream
    proRes422, ///< re-encoded to Apple ProRes 422
    audioMP3,
};

inline constexpr std::array allOutputFormats{OutputFormat::bestResolution,
                                             OutputFormat::macCompatible, OutputFormat::proRes422,
                                             OutputFormat::audioMP3};

/// The case's name: its identifier, and what the stored preference holds.
QString rawValue(OutputFormat format);

/// The case of exactly that name.
std::optional<OutputFormat> outputFormatWithRawValue(QStringView rawValue);

/// Reads a stored preference: names of earlier versions give what took their place, any other
/// unknown text gives `bestResolution`.
OutputFormat outputFormatFrom(QStringView storedText);

} // namespace clipwren
