#pragma once

#include "core/formats/OutputFormat.h"

#include <QStringList>

#include <optional>

namespace clipwren {

/// The tool's whole argument vector for one download. Arguments as of `YtDlpService::download`.
QStringList downloadArguments(const QString &url, const QString &outputDirectory,
                              OutputFormat format, const std::optional<QString> &customFilename,
                              const QString &ffmpegPath);

} // namespace clipwren
