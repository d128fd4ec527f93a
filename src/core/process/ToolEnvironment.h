#pragma once

#include "core/tasks/BackgroundTask.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace clipwren {

/// Finds the three tools and reads the versions of two of them.
///
/// Lives on the user-interface thread. `changed()` is emitted whenever a field was set.
class ToolEnvironment : public QObject {
    Q_OBJECT

public:
    /// Directories that are searched, first match first. Not the process's own search path.
    static QStringList defaultSearchDirectories();

    /// Whether the versions are wanted: each costs a run of its tool.
    enum class Versions { Read, Skip };

    /// Searches at once.
    explicit ToolEnvironment(const QStringList &searchDirectories = defaultSearchDirectories(),
                             Versions versions = Versions::Read);

    /// Searches for the tools before it returns, then reads their versions in the background.
    void refresh();
    /// Reads the versions in the background, from now on after each search, too.
    void readVersions();

    /// Absolute paths; absent while the tool is not found.
    std::optional<QString> ytDlpPath() const { return m_ytDlpPath; }
    std::optional<QString> ffmpegPath() const { return m_ffmpegPath; }
    std::optional<QString> ffprobePath() const { return m_ffprobePath; }
    /// Absent until read, and for yt-dlp when reading failed; ffmpeg's is empty then.
    std::optional<QString> ytDlpVersion() const { return m_ytDlpVersion; }
    std::optional<QString> ffmpegVersion() const { return m_ffmpegVersion; }

    /// While a version may still come.
    bool isReadingVersions() const;

    bool allFound() const { return m_ytDlpPath && m_ffmpegPath && m_ffprobePath; }

Q_SIGNALS:
    void changed();

private:
    void readVersion(const QString &path, const QString &argument,
                     const std::function<void(std::optional<QString> output)> &apply);

    QStringList m_searchDirectories;
    Versions m_versions;
    std::optional<QString> m_ytDlpPath;
    std::optional<QString> m_ffmpegPath;
    std::optional<QString> m_ffprobePath;
    std::optional<QString> m_ytDlpVersion;
    std::optional<QString> m_ffmpegVersion;
    std::vector<BackgroundTask> m_versionQueries;
};

} // namespace clipwren
