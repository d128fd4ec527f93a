#pragma once

#include "core/formats/OutputFormat.h"

#include <QStringList>

#include <optional>

namespace clipwren {

/// yt-dlp's options for one download. Arguments as of `YtDlpService::download`.
QStringList downloadOptions(const QString &outputDirectory, OutputFormat format,
                            const std::optional<QString> &customFilename,
                            const QString &ffmpegPath);

// As in "%(title).200B". File systems limit names to 255 bytes, and the tool's partial files have
// longer names than the final file.
inline constexpr qsizetype maximumStemBytes = 200;

/// The part before " [id]" of the file name for a title that is not empty.
QString fileStem(const QString &customFilename);

/// The same of a file that the tool names by the site's title, of one line. May be longer than a
/// file system allows: the tool replaces some characters by wide ones after it has truncated.
QString siteFileStem(const QString &title);

/// The longest prefix of at most that many UTF-8 bytes, cut between graphemes.
QString firstBytes(const QString &text, qsizetype maximum);

} // namespace clipwren
