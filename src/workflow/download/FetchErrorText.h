#pragma once

#include <QString>

#include <exception>

namespace clipwren {

/// The sentence that the user reads about a look-up that failed.
QString friendlyFetchError(const std::exception &error);

/// The same sentence with only the decisive line of a tool's log in it.
QString withoutLog(const QString &sentence);

/// What the tool wrote during the look-up that failed; empty when the error carries nothing.
QString logOf(const std::exception &error);

} // namespace clipwren
