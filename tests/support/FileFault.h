#pragma once

#include <string>

namespace clipwren::test {

/// While it lives, one call that reaches the file system fails: the one of that number, counted
/// from 1. So a test can let each of them fail, one after the other. Only one lives at a time.
///
/// Linked in, `FileFault.cpp` stands before the system's calls, those that Qt makes included.
class FileFault {
public:
    /// `error` as in errno. Counts this thread's calls, or with a folder those of every thread that
    /// go there.
    FileFault(int number, int error, std::string folder = {});
    ~FileFault();
    FileFault(const FileFault &) = delete;
    FileFault &operator=(const FileFault &) = delete;

    /// False when there were fewer calls.
    static bool happened();
};

} // namespace clipwren::test
