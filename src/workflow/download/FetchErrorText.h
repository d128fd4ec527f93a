#pragma once

#include <QString>

#include <exception>

namespace clipwren {

/// The sentence that the user reads about a look-up that failed, with only the decisive line of
/// what the tool wrote.
QString friendlyFetchError(const std::exception &error);

} // namespace clipwren
