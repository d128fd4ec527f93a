#pragma once

#include <cstddef>

namespace clipwren {

/// Has the system provide the pages of memory that is about to be written at one go. Otherwise it
/// stops at each of them, which makes the first writing several times as long.
void providePages(const void *begin, std::size_t bytes);

} // namespace clipwren
