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
    /// What the record is called; may be empty.
    QString effective() const;
    /// What the tool is told, where it is not to name the file by what the site says.
    std::optional<QString> override() const;
    /// The name that the file will get, with a placeholder for the video's identifier.
    QString fileName(OutputFormat format) const;
};

} // namespace clipwren
