#pragma once

#include "app/window/MainWindow.h"
#include "platform/media/PlayerModule.h"
#include "support/FakeDownloader.h"
#include "support/SampleSite.h"

#include <chrono>
#include <functional>
#include <optional>

namespace clipwren::test {

/// The real window over fake tools, with a few files in its lists, to be brought into any state.
class SampleWindow {
public:
    /// `title` is that of the video that is looked up. `settleTime` is for what tells nobody when
    /// it has come: pictures, the player's first frame.
    SampleWindow(SampleSite &site, const QString &title, const QSize &size,
                 std::chrono::milliseconds settleTime);

    FakeDownloader &fake() { return m_fake; }
    MainWindow &window() { return *m_window; }
    /// What is in front of it, such as a dialog or a menu.
    QList<QWidget *> inFront() const;
    /// Absent while another screen is shown.
    DownloaderView *downloader();

    void hideTool(const QString &name);
    void lookUp();
    /// Looks up, confirms, and waits for the preview.
    void makeReady();
    void showRecord(int index);
    /// A file saved just now, on top of the list.
    void addRecord(const QString &title) { addRecord(title, 0, true, 1); }
    /// Lets everything that is on its way arrive, animations included. Throws when the condition
    /// does not come true.
    void settle(const std::function<bool()> &condition = {});

private:
    void addRecords();
    void addRecord(const QString &title, qint64 secondsAgo, bool hasFile, int downloads);

    SampleSite &m_site;
    std::chrono::milliseconds m_settleTime;
    FakeDownloader m_fake;
    PlayerModule m_players;
    std::optional<MainWindow> m_window;
};

} // namespace clipwren::test
