#pragma once

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace clipwren::test {

/// A folder of small scripts that stand in for the tools.
///
/// Each script writes its arguments, one a line, to a file before it plays its part.
class FakeTools {
public:
    FakeTools();

    QString directory() const { return m_directory.path(); }
    QString path(const QString &name) const;

    /// Writes a file into the folder.
    void write(const QString &name, const QString &content) const;
    /// Writes an executable sh script. `body` sees the arguments as "$@".
    QString add(const QString &name, const QString &body) const;

    /// The argument vector of the tool's latest run; empty before the first.
    QStringList arguments(const QString &name) const;
    /// How often the tool was run.
    int runCount(const QString &name) const;

private:
    QTemporaryDir m_directory;
};

} // namespace clipwren::test
