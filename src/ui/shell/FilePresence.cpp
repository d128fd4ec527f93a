#include "ui/shell/FilePresence.h"

#include <QFileInfo>

namespace clipwren {

bool FilePresence::exists(const QString &path) const
{
    auto known = m_known.constFind(path);
    if (known == m_known.constEnd())
        known = m_known.insert(path, QFileInfo::exists(path));
    return *known;
}

} // namespace clipwren
