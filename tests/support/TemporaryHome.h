#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace clipwren::test {

/// A home of its own for a program under test, with no screen and no settings of ours in reach.
class TemporaryHome {
public:
    TemporaryHome();

    /// Absolute, without symbolic links, and found in no other process's arguments.
    QString path() const;
    /// Where the program saves: the user's videos folder has a name of the user's language.
    QString downloadsFolder() const;
    /// The names in that folder, hidden and unfinished files too.
    QStringList savedFiles() const;
    QProcessEnvironment environment() const;
    /// The command lines, arguments parted by blanks, of running processes that name this home.
    QStringList processes() const;

private:
    QTemporaryDir m_directory;
};

} // namespace clipwren::test
