#pragma once

#include "core/tasks/BackgroundTask.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>
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

    struct Tool {
        QString name; ///< of the program
        std::optional<QString> path; ///< absolute; absent while the tool is not found
        /// Absent until read, and for yt-dlp when reading failed; ffmpeg's is empty then.
        std::optional<QString> version;
    };
    using Tools = std::array<Tool, 3>;
    /// All, as they are listed to the user.
    const Tools &tools() const { return m_tools; }

    std::optional<QString> ytDlpPath() const { return m_tools[YtDlp].path; }
    std::optional<QString> ffmpegPath() const { return m_tools[Ffmpeg].path; }
    std::optional<QString> ffprobePath() const { return m_tools[Ffprobe].path; }
    std::optional<QString> ytDlpVersion() const { return m_tools[YtDlp].version; }
    std::optional<QString> ffmpegVersion() const { return m_tools[Ffmpeg].version; }

    /// While a version may still come.
    bool isReadingVersions() const;

    bool allFound() const;

Q_SIGNALS:
    void changed();

private:
    enum Index : std::uint8_t { YtDlp, Ffmpeg, Ffprobe };

    void readVersion(const QString &path, const QString &argument,
                     const std::function<void(std::optional<QString> output)> &apply);

    QStringList m_searchDirectories;
    Versions m_versions;
    Tools m_tools;
    std::vector<BackgroundTask> m_versionQueries;
};

} // namespace clipwren
