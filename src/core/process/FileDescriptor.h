#pragma once

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace clipwren {

/// Owns one file descriptor and closes it.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor) : m_descriptor(descriptor) { }
    FileDescriptor(FileDescriptor &&other) noexcept
        : m_descriptor(std::exchange(other.m_descriptor, -1))
    {
    }
    FileDescriptor &operator=(FileDescriptor &&other) noexcept
    {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    ~FileDescriptor() { close(); }

    int get() const { return m_descriptor; }
    bool isOpen() const { return m_descriptor >= 0; }
    void close()
    {
        if (isOpen())
            ::close(std::exchange(m_descriptor, -1));
    }

private:
    int m_descriptor = -1;
};

/// A pipe whose ends no child inherits unless it is handed one.
struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;

    /// Throws `std::system_error`.
    static Pipe open()
    {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
    }
};

} // namespace clipwren
