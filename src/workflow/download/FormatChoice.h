#pragma once

#include "core/formats/FormatOption.h"
#include "core/ytdlp/VideoInfo.h"

#include <QString>

#include <optional>

namespace clipwren {

class Preferences;

/// The output format that the user chose, kept for all videos.
class FormatChoice {
public:
    /// `preferences` outlive this. `given` holds instead of the stored format, which it leaves
    /// alone, until another one is chosen.
    FormatChoice(Preferences &preferences, std::optional<OutputFormat> given)
        : m_preferences(preferences), m_given(given)
    {
    }

    /// Of the given format, else the stored one, whatever it is.
    QString rawValue() const;
    void setRawValue(const QString &rawValue);
    /// The stored format where the video offers it, else the first that it offers.
    FormatOption selected(const std::optional<VideoInfo> &info) const;

private:
    Preferences &m_preferences;
    std::optional<OutputFormat> m_given;
};

} // namespace clipwren
