#pragma once

#include "app/window/MainWindow.h"
#include "platform/media/PlayerModule.h"
#include "support/FakeDownloader.h"
#include "support/SampleSite.h"

#include <functional>
#include <optional>

namespace clipwren::test {

/// The real window over fake tools, with a few files in its lists, to be brought into any state.
class SampleWindow {
public:
    /// `title` is that of the video that is looked up.
    SampleWindow(SampleSite &site, const QString &title, const QSize &size);

    FakeDownloader &fake() { return m_fake; }
    MainWindow &window() { return *m_window; }
    /// Absent while another screen is shown.
    DownloaderView *downloader();

    void hideTool(const QString &name);
    void lookUp();
    /// Looks up, confirms, and waits for the preview.
    void makeReady();
    void showRecord(int index);
    /// A file saved just now, on top of the list.
    void addRecord(const QString &title) { addRecord(title, 0, true, 1); }
    /// Lets everything that is on its way arrive, animations included.
    void settle(const std::function<bool()> &condition = {});

private:
    void addRecords();
    void addRecord(const QString &title, qint64 secondsAgo, bool hasFile, int downloads);

    SampleSite &m_site;
    FakeDownloader m_fake;
    PlayerModule m_players;
    std::optional<MainWindow> m_window;
};

} // namespace clipwren::test
