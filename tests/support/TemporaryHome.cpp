#include "support/TemporaryHome.h"

#include <QDir>
#include <QFile>

#include <stdexcept>

namespace clipwren::test {

TemporaryHome::TemporaryHome()
{
    const QDir home(m_directory.path());
    QFile folders(home.filePath(QStringLiteral("config/user-dirs.dirs")));
    if (!m_directory.isValid() || !home.mkpath(QStringLiteral("config"))
        || !home.mkpath(QStringLiteral("Vidéos")) || !folders.open(QIODevice::WriteOnly))
        throw std::runtime_error("no temporary home");
    folders.write("XDG_VIDEOS_DIR=\"$HOME/Vidéos\"\n");
}

QString TemporaryHome::path() const
{
    return QDir(m_directory.path()).canonicalPath();
}

QString TemporaryHome::downloadsFolder() const
{
    return path() + QStringLiteral("/Vidéos/Clipwren");
}

QStringList TemporaryHome::savedFiles() const
{
    return QDir(downloadsFolder())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QProcessEnvironment TemporaryHome::environment() const
{
    const QProcessEnvironment ours = QProcessEnvironment::systemEnvironment();
    QProcessEnvironment result;
    // Only what runs the tools and the sanitizers: no screen, no proxy, no settings.
    for (const char *name : {"PATH", "ASAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        const QString key = QLatin1String(name);
        if (ours.contains(key))
            result.insert(key, ours.value(key));
    }
    result.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    result.insert(QStringLiteral("HOME"), path());
    for (const char *kind : {"CONFIG", "DATA", "CACHE", "STATE"}) {
        result.insert(QStringLiteral("XDG_%1_HOME").arg(QLatin1String(kind)),
                      path() + u'/' + QString::fromLatin1(kind).toLower());
    }
    return result;
}

QStringList TemporaryHome::processes() const
{
    QStringList result;
    for (const QString &name : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
        QFile file(QStringLiteral("/proc/%1/cmdline").arg(name));
        if (!name[0].isDigit() || !file.open(QIODevice::ReadOnly))
            continue;
        const QString commandLine = QString::fromUtf8(file.readAll().replace('\0', ' '));
        if (commandLine.contains(path()))
            result.append(commandLine);
    }
    return result;
}

} // namespace clipwren::test
