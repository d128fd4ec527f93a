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
class Selection;

/// What the detail pane shows: the set-up screen while a tool is missing, else the selected record
/// while the list has it, else the downloader.
///
/// A downloader lives as long as it is shown; leaving it stops what it does. So selecting a record
/// ends a download that runs.
class DetailContainer : public QWidget {
    Q_OBJECT

public:
    /// What the context refers to and the selection must outlive the container.
    DetailContainer(ApplicationContext context, const Selection &selection,
                    QWidget *parent = nullptr);
    ~DetailContainer() override;
    DetailContainer(const DetailContainer &) = delete;
    DetailContainer &operator=(const DetailContainer &) = delete;

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
    void followSelection();
    void render();
    void showScreen(Kind kind, DetailScreen *screen);
    DetailScreen *makeDownloader();

    ApplicationContext m_context;
    const Selection &m_selection;
    Kind m_kind = Kind::None;
    DetailScreen *m_screen = nullptr;
    DownloaderView *m_downloader = nullptr; ///< of the downloader that is shown
    QStackedLayout *m_layout;
};

} // namespace clipwren
