#include "support/FakeTool.h"

#include <QFile>

#include <stdexcept>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

QString readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

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
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write " + name.toStdString());
    file.write(content.toUtf8());
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
    QStringList lines = readFile(path(name) + u".args"_s).split(u'\n');
    lines.removeLast();
    return lines;
}

int FakeTools::runCount(const QString &name) const
{
    return static_cast<int>(readFile(path(name) + u".runs"_s).count(u'\n'));
}

} // namespace clipwren::test
