#include "support/FakeTool.h"

#include "support/Files.h"

namespace clipwren::test {

using namespace Qt::StringLiterals;

FakeTools::FakeTools()
{
    if (!m_directory.isValid())
        throw std::runtime_error("no temporary folder");
}

QString FakeTools::path(const QString &name) const
{
    return m_directory.filePath(name);
}

void FakeTools::write(const QString &name, const QString &content) const
{
    writeFile(path(name), content.toUtf8());
}

QString FakeTools::add(const QString &name, const QString &body) const
{
    // Only commands of the shell's own: a child of a tool that is stopped could write here after
    // the folder is gone.
    write(name,
          u"#!/bin/sh\nprintf '%s\\n' \"$@\" > \"$0.args\"\necho run >> \"$0.runs\"\n"_s + body
              + u'\n');
    QFile::setPermissions(path(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path(name);
}

QStringList FakeTools::arguments(const QString &name) const
{
    QStringList lines = QString::fromUtf8(readFile(path(name + u".args"_s))).split(u'\n');
    lines.removeLast();
    return lines;
}

int FakeTools::runCount(const QString &name) const
{
    return static_cast<int>(readFile(path(name + u".runs"_s)).count('\n'));
}

} // namespace clipwren::test
