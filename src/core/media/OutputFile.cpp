#include "core/media/OutputFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace clipwren {
namespace {

/// Also true of a link that leads nowhere, through which a tool would write somewhere else.
bool isTaken(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() || file.isSymLink();
}

/// Folders and devices are left alone: the tool says itself what it cannot write to.
bool isReplaceable(const QString &path)
{
    const QFileInfo file(path);
    return file.isFile() || file.isSymLink();
}

/// As rename(2): takes the place of a file that has the name.
bool rename(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace

OutputFile::OutputFile(const QString &path) : m_path(path)
{
    if (!isReplaceable(path))
        return;
    // A name that tells what it is, should we not live to give it back.
    const qsizetype nameStart = path.lastIndexOf(u'/') + 1;
    const QString aside = QString(path).insert(nameStart, QStringLiteral("Earlier "));
    m_earlier = isTaken(aside) ? nextFreePath(aside) : aside;
    if (!rename(path, m_earlier))
        throw std::system_error(errno, std::generic_category(), path.toStdString());
}

OutputFile::~OutputFile()
{
    if (m_kept)
        return;
    if (!m_earlier.isEmpty())
        rename(m_earlier, m_path);
    else if (isReplaceable(m_path))
        QFile::remove(m_path);
}

void OutputFile::keep()
{
    // A tool that claims success without a file does not cost the earlier one.
    if (!QFileInfo::exists(m_path))
        return;
    m_kept = true;
    if (!m_earlier.isEmpty())
        QFile::remove(m_earlier);
}

QString nextFreePath(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    const qsizetype stemEnd = dot > path.lastIndexOf(u'/') + 1 ? dot : path.size();
    for (int number = 2;; ++number) {
        const QString candidate =
            path.first(stemEnd) + u' ' + QString::number(number) + path.sliced(stemEnd);
        if (!isTaken(candidate))
            return candidate;
    }
}

} // namespace clipwren
