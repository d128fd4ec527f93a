#pragma once

#include <QString>

namespace clipwren {

/// The file that a tool is about to write.
///
/// A file that has its name already waits beside it under another name. Until `keep()` is called,
/// destroying this removes what was written and gives the earlier file its name back.
class OutputFile {
public:
    /// Throws `std::system_error` when an earlier file cannot be moved.
    explicit OutputFile(const QString &path);
    OutputFile(const OutputFile &) = delete;
    OutputFile &operator=(const OutputFile &) = delete;
    ~OutputFile();

    /// The new file is whole; the earlier one goes.
    void keep();

private:
    QString m_path;
    QString m_earlier; ///< empty when there was none
    bool m_kept = false;
};

/// `path` with the least number from 2 on before the extension that no file has yet, as in
/// "Talk 2.mov".
QString nextFreePath(const QString &path);

} // namespace clipwren
