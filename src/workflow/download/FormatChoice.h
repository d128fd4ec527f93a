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
    /// `preferences` outlive this.
    explicit FormatChoice(Preferences &preferences) : m_preferences(preferences) { }

    /// The stored raw value, whatever it is.
    QString rawValue() const;
    void setRawValue(const QString &rawValue);
    /// The stored format where the video offers it, else the first that it offers.
    FormatOption selected(const std::optional<VideoInfo> &info) const;

private:
    Preferences &m_preferences;
};

} // namespace clipwren
