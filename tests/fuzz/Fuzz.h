#pragma once

#include <QByteArray>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

/// What libFuzzer calls with each input, and `Replay.cpp` with each file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace clipwren::fuzz {

inline QByteArray bytesOf(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// Ends the program, in every kind of build.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace clipwren::fuzz
