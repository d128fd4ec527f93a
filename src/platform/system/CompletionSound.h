#pragma once

#include <QString>

#include <memory>

struct ca_context;
class QTemporaryFile;

namespace clipwren {

/// The short sound that says that a download is complete. Silent where the desktop has no sound.
class CompletionSound {
public:
    CompletionSound();
    ~CompletionSound();

    /// Returns at once; the sound server plays.
    void play();

private:
    // Both are made for the first sound.
    std::shared_ptr<ca_context> m_context;
    std::unique_ptr<QTemporaryFile> m_file;
};

} // namespace clipwren
