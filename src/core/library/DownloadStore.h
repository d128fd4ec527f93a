#pragma once

#include "core/library/DownloadRecord.h"
#include "core/library/JsonArrayFile.h"
#include "core/library/LibraryFolder.h"

#include <QList>
#include <QObject>

#include <optional>

namespace clipwren {

/// The list of saved files, newest first, kept in "downloads.json".
///
/// Lives on the user-interface thread. Every operation saves before it returns; a save that fails
/// leaves the change in memory and says why in `saveError`. The media files themselves are never
/// touched.
class DownloadStore : public QObject {
    Q_OBJECT

public:
    /// Loads the list. A missing or bad file gives an empty one and is not changed. An empty
    /// `folder` keeps the list in memory only.
    explicit DownloadStore(const QString &folder = defaultLibraryFolder(),
                           QObject *parent = nullptr);

    const QList<DownloadRecord> &records() const { return m_records; }

    /// Puts the record at the front. Its times are cut to whole seconds, and a number that is not
    /// finite becomes absent, so that the list is what the file gives back.
    void add(DownloadRecord record);
    /// Puts back a record that was removed, before the one of that id or at the end.
    void restore(const DownloadRecord &record, const QUuid &next);
    /// Replaces the record of the same id in its place. Does nothing when there is none.
    void update(DownloadRecord record);
    /// Removes every record of that id.
    void remove(const DownloadRecord &record);
    void clear();

    /// Why the file is not what the list is; nothing when it is.
    std::optional<QString> saveError() const { return m_saveError; }
    /// Saves if the last save failed.
    void saveAgain();

    /// The folder "Clipwren" in the user's folder for videos. Does not create it.
    static QString defaultDownloadDirectory();

Q_SIGNALS:
    void changed();

private:
    void save();

    JsonArrayFile m_file;
    std::optional<QString> m_saveError;
    QList<DownloadRecord> m_records;
};

} // namespace clipwren
