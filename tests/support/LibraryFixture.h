#pragma once

#include "core/library/DownloadRecord.h"
#include "support/Files.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace clipwren::test {

/// A temporary folder for the library's files.
class LibraryFixture : public testing::Test {
protected:
    QString folder() const { return m_directory.path(); }
    QString path(const QString &name) const { return m_directory.filePath(name); }
    void writeFile(const QString &name, const QByteArray &content) const
    {
        test::writeFile(path(name), content);
    }
    QByteArray readFile(const QString &name) const { return test::readFile(path(name)); }

private:
    QTemporaryDir m_directory;
};

/// A record with all its optional fields.
DownloadRecord fullRecord(const QString &title);
/// A record without any of them.
DownloadRecord bareRecord(const QString &title);

} // namespace clipwren::test
