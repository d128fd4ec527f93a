#include "core/process/FileDescriptor.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace clipwren {

FileDescriptor::FileDescriptor(int descriptor) : m_descriptor(descriptor)
{
}

FileDescriptor::FileDescriptor(FileDescriptor &&other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1))
{
}

FileDescriptor &FileDescriptor::operator=(FileDescriptor &&other) noexcept
{
    if (this != &other) {
        close();
        m_descriptor = std::exchange(other.m_descriptor, -1);
    }
    return *this;
}

FileDescriptor::~FileDescriptor()
{
    close();
}

void FileDescriptor::close()
{
    if (isOpen())
        ::close(std::exchange(m_descriptor, -1));
}

Pipe Pipe::open()
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    return {FileDescriptor(ends[0]), FileDescriptor(ends[1])};
}

} // namespace clipwren
