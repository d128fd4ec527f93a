#include "support/FakeTool.h"

#include <QFile>

#include <stdexcept>

namespace clipwren::test {
namespace {

void writeFile(const QString &path, const QString &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot write " + path.toStdString());
    file.write(content.toUtf8());
}

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

QString FakeTools::add(const QString &name, const QString &body) const
{
    const QString script = path(name);
    writeFile(script,
              QStringLiteral("#!/bin/sh\n"
                             "for argument in \"$@\"; do printf '%s\\n' \"$argument\"; done"
                             " > \"$0.args.$$\"\n"
                             "mv \"$0.args.$$\" \"$0.args\"\n"
                             "echo run >> \"$0.runs\"\n")
                  + body + u'\n');
    QFile::setPermissions(script, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return script;
}

QStringList FakeTools::arguments(const QString &name) const
{
    QStringList lines = readFile(path(name) + QStringLiteral(".args")).split(u'\n');
    lines.removeLast();
    return lines;
}

int FakeTools::runCount(const QString &name) const
{
    return static_cast<int>(readFile(path(name) + QStringLiteral(".runs")).count(u'\n'));
}

} // namespace clipwren::test
