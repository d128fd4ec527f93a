#pragma once

namespace clipwren {

/// Owns one file descriptor and closes it.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int descriptor);
    FileDescriptor(FileDescriptor &&other) noexcept;
    FileDescriptor &operator=(FileDescriptor &&other) noexcept;
    ~FileDescriptor();

    int get() const { return m_descriptor; }
    bool isOpen() const { return m_descriptor >= 0; }
    void close();

private:
    int m_descriptor = -1;
};

/// A pipe whose ends no child inherits unless it is handed one.
struct Pipe {
    FileDescriptor readEnd;
    FileDescriptor writeEnd;

    /// Throws `std::system_error`.
    static Pipe open();
};

} // namespace clipwren
