#pragma once

#include "core/Error.h"
#include "core/formats/OutputFormat.h"
#include "core/media/TrimRange.h"

#include <QStringList>

#include <optional>

namespace clipwren {

/// What `clipwren save` was asked for.
struct SaveArguments {
    QString address;
    std::optional<OutputFormat> format; ///< absent: the preference
    std::optional<TrimRange> trim; ///< the end is after the start
    std::optional<QString> title;

    static QString usage();
    /// Reads what follows the word `save`. Throws `UsageError`.
    static SaveArguments parse(const QStringList &arguments);
};

/// The command line says something that cannot be done.
class UsageError : public Error {
public:
    using Error::Error;
};

} // namespace clipwren
