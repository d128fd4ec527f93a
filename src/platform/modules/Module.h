#pragma once

#include <QString>
#include <QStringList>

namespace clipwren {

/// A part of the program that is loaded when it is first needed, because the libraries behind it
/// cost start-up time and memory. Once loaded it stays until the process ends. One thread at a
/// time, but for what is said otherwise.
class Module {
public:
    /// Looks for the file `name`.so in these folders, in this order.
    explicit Module(const QString &name, QStringList folders = defaultFolders());

    /// Beside the executable, and where modules are installed and built, as seen from there.
    static QStringList defaultFolders();

    /// Empty where there is no such file. Any thread.
    QString path() const;
    /// Loads the module. Null where that cannot be done; `failure()` then has a sentence.
    QFunctionPointer resolve(const char *symbol);
    QString failure() const { return m_failure; }

private:
    QString m_fileName;
    QStringList m_folders;
    QString m_failure;
};

} // namespace clipwren
