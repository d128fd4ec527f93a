#pragma once

#include "ui/components/DetailScreen.h"
#include "workflow/download/Phase.h"

#include <QPointer>
#include <QString>
#include <QTimer>

#include <optional>

class QLayout;
class QScrollArea;
class QShortcut;
class QVBoxLayout;

namespace clipwren {

class AddressField;
class Banner;
class ConfirmationCard;
class Desktop;
class DownloaderView;
class FetchingCard;
class FormatSection;
class AnimatedHeight;
class LogViewer;
class ProgressSection;
class TitleField;
class TrimSection;
class VideoSummary;

/// Shows one download from the address to the saved file, as a column of cards that change with
/// its phase.
///
/// When it is first shown, it looks up the address that waits for a downloader.
class DownloaderScreen : public DetailScreen {
    Q_OBJECT
public:
    /// What is given outlives the screen. `downloadFolder` is absolute.
    DownloaderScreen(DownloaderView &view, Desktop &desktop, const QString &downloadFolder,
                     QWidget *parent = nullptr);
    ~DownloaderScreen() override;
    DownloaderScreen(const DownloaderScreen &) = delete;
    DownloaderScreen &operator=(const DownloaderScreen &) = delete;

    QString barTitle() const override { return tr("New Download"); }
    /// With how far a download is.
    QString windowTitleText() const override;
    QList<Button *> barButtons() const override;

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeColumn();
    QLayout *makeHeader();
    void makeCards();
    QWidget *makeDownloadRow();
    QWidget *makeError();
    void makeShortcuts();

    void scheduleRender();
    void render();
    void renderCards();
    void renderError();
    void renderLogs();
    void placeFocus(bool hadFocus);
    void announcePhase(bool hadFocus);
    /// What a screen reader says of the cards of a phase.
    QString headingOf(Phase phase) const;
    void revealFolder();
    void followTrim();
    void scrollToTrim();

    DownloaderView &m_view;
    Desktop &m_desktop;
    QString m_downloadFolder;
    QPointer<Button> m_folderButton;
    QTimer m_renderTimer; ///< joins the changes of one turn of the event loop
    Phase m_phase = Phase::input; // as last rendered
    QString m_windowTitle; // likewise
    std::optional<QString> m_fetchError; // likewise
    bool m_acceptsRequests = false;

    QScrollArea *m_scroll;
    QWidget *m_column;
    AddressField *m_address;
    AnimatedHeight *m_cards;
    QVBoxLayout *m_cardRows;
    QVBoxLayout *m_errorPlace;
    // Made with the first phase that shows one of them, so that the window opens sooner.
    FetchingCard *m_fetching = nullptr;
    ConfirmationCard *m_confirmation = nullptr;
    VideoSummary *m_summary = nullptr;
    TitleField *m_title = nullptr;
    FormatSection *m_format = nullptr;
    TrimSection *m_trim = nullptr;
    QWidget *m_download = nullptr;
    ProgressSection *m_progress = nullptr;
    QWidget *m_success = nullptr;
    QWidget *m_errorRow = nullptr;
    Banner *m_error = nullptr;
    Button *m_errorLogs = nullptr;
    QShortcut *m_pasteShortcut;
    QList<QShortcut *> m_downloadShortcuts;
    QPointer<LogViewer> m_logs;
};

} // namespace clipwren
