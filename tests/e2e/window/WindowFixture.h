#pragma once

#include "app/window/MainWindow.h"
#include "core/library/DownloadStore.h"
#include "core/library/HistoryStore.h"
#include "core/process/ToolEnvironment.h"
#include "platform/media/PlayerModule.h"
#include "support/FakeDownloader.h"
#include "support/RecordingDesktop.h"
#include "support/SampleSite.h"
#include "ui/shell/HistoryList.h"
#include "ui/shell/LibraryListView.h"
#include "ui/shell/RecentList.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>
#include <optional>

class QWidget;

namespace clipwren::test {

using namespace Qt::StringLiterals;

/// The real window over the real tools, with lists and folders of its own, worked as a user does:
/// by the names that are seen or read aloud.
class WindowFixture : public testing::Test {
protected:
    ~WindowFixture() override;

    /// Shows a film once: what the player opens for good must not look like a test's leak.
    static void SetUpTestSuite();

    /// Opens the window over tools found in these folders.
    void open(const QStringList &toolFolders = ToolEnvironment::defaultSearchDirectories());
    MainWindow &window() { return *m_window; }

    /// Waits for a widget of that name. Fails the test when it does not come.
    QWidget *await(const QString &name);
    /// Waits until a text that can be read in the window has that part.
    bool awaitText(const QString &part) const;
    void click(const QString &name);

    /// Opens it over fake tools, up to a download, which takes as long as its script.
    void startDownload(const QString &script);
    DownloadRecord addRecord(const QString &title);
    LibraryListView &recents() { return window().content().sidebar().recentList().view(); }
    LibraryListView &historyRows() { return window().content().sidebar().historyList().view(); }
    static void chooseForLastRow(LibraryListView &list, const QString &item);

    SampleSite site;
    FakeDownloader fake;
    QTemporaryDir m_folder;
    DownloadStore store{m_folder.filePath(u"library"_s)};
    HistoryStore history{m_folder.filePath(u"library"_s)};
    std::optional<ToolEnvironment> tools;
    PendingFetchBox pendingFetch;
    RecordingDesktop desktop;
    MemoryPreferences preferences;
    PlayerModule players;

private:
    std::unique_ptr<MainWindow> m_window;
};

} // namespace clipwren::test
