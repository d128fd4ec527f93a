#pragma once

#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/process/ToolEnvironment.h"
#include "support/FakeTool.h"
#include "support/RecordingDesktop.h"
#include "support/ScriptedPlayer.h"
#include "workflow/download/DownloaderView.h"

#include <QTemporaryDir>

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// All that a downloader needs, over fake tools and temporary folders.
class FakeDownloader {
public:
    FakeDownloader();

    /// What the look-up does: `script` runs for "-J". The default prints the file "$0.json".
    void onLookup(const QString &script) { tools.write(u"yt-dlp.lookup"_s, script); }
    /// What the preview look-up does. The default prints an address.
    void onPreviewLookup(const QString &script) { tools.write(u"yt-dlp.preview"_s, script); }
    /// What a download does. The default writes the file "Title [id].EXT" where it is told to,
    /// unless it is there, prints some progress and the path. `$file` is that path.
    void onDownload(const QString &script) { tools.write(u"yt-dlp.download"_s, script); }
    /// What ffmpeg does; `$output` is its last argument, which the default writes.
    void onConvert(const QString &script);
    /// What ffprobe finds in every file. The length is the video's by default.
    void onProbe(const QString &codec, int height, const QString &container = u"mov,mp4,m4a"_s,
                 double seconds = 60.5);

    static QString defaultDownload();

    ApplicationContext context();
    QString downloadFolder() const { return m_folder.filePath(u"Movies/Clipwren"_s); }
    QString libraryFolder() const { return m_folder.filePath(u"library"_s); }

    FakeTools tools;
    QDate today{2024, 8, 16}; ///< ten days after the downloader's version
    QStringList playerLog;
    ScriptedPlayer *lastPlayer = nullptr; ///< valid while the view has it
    RecordingDesktop desktop;
    MemoryPreferences preferences;
    PendingFetchBox pendingFetch;

private:
    QTemporaryDir m_folder;

public:
    DownloadStore store{libraryFolder()};
    HistoryStore history{libraryFolder()};
    std::optional<ToolEnvironment> toolEnvironment;
};

/// Lets the event loop run until the view is in that phase.
bool reaches(DownloaderView &view, Phase phase);

} // namespace clipwren::test
