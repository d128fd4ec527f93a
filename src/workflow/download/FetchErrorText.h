#pragma once

#include <QString>

#include <exception>

namespace clipwren {

/// The sentence that the user reads about a failed look-up, with only the decisive line of the
/// tool's log.
QString friendlyFetchError(const std::exception &error);

} // namespace clipwren
