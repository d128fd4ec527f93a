#pragma once

#include "core/library/DownloadRecord.h"
#include "ui/downloader/DownloaderScreen.h"
#include "workflow/download/DownloaderView.h"

#include <QUuid>
#include <QWidget>

#include <optional>

class QStackedLayout;

namespace clipwren {

class DetailScreen;

/// What the detail pane shows: the set-up screen while a tool is missing, else the selected record
/// while the list has it, else the downloader.
///
/// A downloader lives as long as it is shown; leaving it stops what it does.
class DetailContainer : public QWidget {
    Q_OBJECT

public:
    /// What the context refers to must outlive the container.
    explicit DetailContainer(ApplicationContext context, QWidget *parent = nullptr);
    ~DetailContainer() override;
    DetailContainer(const DetailContainer &) = delete;
    DetailContainer &operator=(const DetailContainer &) = delete;

    std::optional<QUuid> selectedID() const { return m_selectedID; }
    /// Ends a download that runs when that leads to another screen.
    void setSelectedID(std::optional<QUuid> id);
    /// Null before the first screen is there.
    DetailScreen *screen() const { return m_screen; }
    /// Null while another screen is shown.
    DownloaderView *downloader() const { return m_downloader; }
    /// True while a download runs, which another look-up would end.
    bool isDownloading() const;

Q_SIGNALS:
    void screenChanged();
    /// A download was recorded under this id.
    void completed(QUuid id);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    enum class Kind { None, Setup, Detail, Downloader };

    std::optional<DownloadRecord> selectedRecord() const;
    void render();
    void showScreen(Kind kind, DetailScreen *screen);
    DetailScreen *makeDownloader();

    ApplicationContext m_context;
    std::optional<QUuid> m_selectedID;
    Kind m_kind = Kind::None;
    DetailScreen *m_screen = nullptr;
    DownloaderView *m_downloader = nullptr; ///< of the downloader that is shown
    QStackedLayout *m_layout;
};

} // namespace clipwren
