#include "platform/system/MemoryPages.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace clipwren {

void providePages(const void *begin, std::size_t bytes)
{
    // Whole pages inside the memory; what is left over at its ends comes by itself. A system that
    // cannot do this says so, and nothing is lost.
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto address = reinterpret_cast<std::uintptr_t>(begin);
    const std::uintptr_t first = (address + page - 1) / page * page;
    const std::uintptr_t end = (address + bytes) / page * page;
    if (first < end)
        ::madvise(reinterpret_cast<void *>(first), end - first, MADV_POPULATE_WRITE);
}

} // namespace clipwren
