#pragma once

#include "core/formats/OutputFormat.h"

#include <QStringList>

#include <optional>

namespace clipwren {

/// The tool's whole argument vector for one download. Arguments as of `YtDlpService::download`.
QStringList downloadArguments(const QString &url, const QString &outputDirectory,
                              OutputFormat format, const std::optional<QString> &customFilename,
                              const QString &ffmpegPath);

// What "%(title).200B" leaves of a title. File systems take names of 255 bytes, and the tool's
// partial files have longer ones than the file.
inline constexpr qsizetype maximumStemBytes = 200;

/// What stands before " [id]" in the name of a file that gets this title, which is not empty.
QString fileStem(const QString &customFilename);

/// The same of a file that the tool names by the site's title, of one line. May be longer than a
/// file system takes: the tool puts wide characters in the place of some after it has cut.
QString siteFileStem(const QString &title);

/// As much of the text as has at most that many bytes, cut between characters as people see them.
QString firstBytes(const QString &text, qsizetype maximum);

} // namespace clipwren
