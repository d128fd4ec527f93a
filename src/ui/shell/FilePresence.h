#pragma once

#include <QHash>
#include <QString>

namespace clipwren {

/// Whether files are on the disk, asked once per path until told to forget. Lists ask for the
/// rows that they draw and no others.
class FilePresence {
public:
    bool exists(const QString &path) const;
    void forget() { m_known.clear(); }

private:
    mutable QHash<QString, bool> m_known;
};

} // namespace clipwren
