#pragma once

#include "core/formats/OutputFormat.h"

#include <QString>

#include <optional>

namespace clipwren {

/// The title of a download: what the user typed, or what the site says.
struct FileTitle {
    QString custom; ///< as typed, in one line
    std::optional<QString> site = std::nullopt; ///< as the site has it

    /// The site's title in one line; empty without one.
    QString original() const;
    /// The record's title; may be empty.
    QString effective() const;
    /// The title to pass to the tool; absent when the tool's own naming by the site's title will
    /// do.
    std::optional<QString> override() const;
    /// The name that the file will get, with a placeholder for the video's identifier.
    QString fileName(OutputFormat format) const;
};

} // namespace clipwren
