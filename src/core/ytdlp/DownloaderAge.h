#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace clipwren {

/// The day that a version of yt-dlp names, as "2023.03.04" and "2024.08.06.232832" do; nothing for
/// other texts.
std::optional<QDate> releaseDate(const QString &version);

/// "12 days old", "5 months old" or "over three years old"; nothing for a version without a date or
/// with one after `today`.
std::optional<QString> ageText(const QString &version, const QDate &today);

/// Two sentences for a failure when the yt-dlp at `path` is older than 90 days: how old it is, and
/// how to update it. Sites change, and an outdated yt-dlp is the most common cause of failures.
std::optional<QString> outdatedHint(const QString &path, const QString &version,
                                    const QDate &today);

} // namespace clipwren
