#pragma once

#include "core/library/HistoryEntry.h"
#include "core/library/JsonArrayFile.h"
#include "core/library/LibraryFolder.h"

#include <QList>
#include <QObject>

#include <optional>

namespace clipwren {

/// Every video that was ever downloaded, latest download first, kept in "history.json".
///
/// Lives on the user-interface thread. Every operation saves before it returns; a save that fails
/// leaves the change in memory and says why in `saveError`.
class HistoryStore : public QObject {
    Q_OBJECT

public:
    /// Loads the list. A missing or bad file gives an empty one and is not changed. An empty
    /// `folder` keeps the list in memory only.
    explicit HistoryStore(const QString &folder = defaultLibraryFolder(),
                          QObject *parent = nullptr);

    const QList<HistoryEntry> &entries() const { return m_entries; }

    /// Counts one finished download and moves the video to the front, or adds it there.
    ///
    /// An empty title and absent values keep what is known of the video; a new entry without a
    /// title is called by its address. A duration (in seconds) that is not finite is absent.
    void recordDownload(const QString &url, const QString &title,
                        const std::optional<QString> &thumbnailURL,
                        std::optional<double> durationSeconds);
    /// Removes every entry of that id.
    void remove(const HistoryEntry &entry);
    void clear();

    /// Why the file is not what the list is; nothing when it is.
    std::optional<QString> saveError() const { return m_saveError; }
    /// Saves if the last save failed.
    void saveAgain();

Q_SIGNALS:
    void changed();

private:
    static QString canonicalize(const QString &url);
    void save();

    JsonArrayFile m_file;
    std::optional<QString> m_saveError;
    QList<HistoryEntry> m_entries;
};

} // namespace clipwren
