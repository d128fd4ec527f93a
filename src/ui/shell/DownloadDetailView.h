#pragma once

#include "core/library/DownloadRecord.h"
#include "core/media/MediaInspection.h"
#include "core/tasks/BackgroundTask.h"
#include "platform/media/MediaPlayer.h"
#include "ui/components/DetailScreen.h"

#include <QPointer>

class QVBoxLayout;

namespace clipwren {

class Desktop;
class Label;
class InformationBox;
class Pill;
class ScrollPane;
class SafeVideoPlayer;
class ToolEnvironment;

/// One saved file: a player, what ffprobe finds in it, and where it lies.
///
/// Inspects the file each time the view comes on screen and whenever the path changes; an
/// inspection that is overtaken is stopped and never shown.
class DownloadDetailView : public DetailScreen {
    Q_OBJECT

public:
    /// `tools` and `desktop` must outlive the view. The factory is asked when there is a file to
    /// play for the first time.
    DownloadDetailView(const DownloadRecord &record, const ToolEnvironment &tools, Desktop &desktop,
                       MediaPlayerFactory makePlayer, QWidget *parent = nullptr);
    ~DownloadDetailView() override;
    DownloadDetailView(const DownloadDetailView &) = delete;
    DownloadDetailView &operator=(const DownloadDetailView &) = delete;

    /// Shows another record, or the same one as it is now, in the same place.
    void setRecord(const DownloadRecord &record);

    QString barTitle() const override { return m_record.title; }
    /// "Reveal" and "Open".
    QList<Button *> barButtons() const override { return {m_reveal, m_open}; }

protected:
    bool event(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *makeColumn();
    QWidget *missingPlaceholder();
    QLayout *makeInformationHeading();
    QLayout *makeLocation();
    void runInspection();
    void checkFile();
    void render();
    void renderPlayer();

    DownloadRecord m_record;
    const ToolEnvironment &m_tools;
    Desktop &m_desktop;
    MediaPlayerFactory m_makePlayer;

    bool m_fileExists = false;
    BackgroundTask m_inspecting;
    std::optional<MediaInspection> m_inspection;
    QString m_inspectError; // empty when there is none

    // The bar above the pane takes these two.
    QPointer<Button> m_reveal;
    QPointer<Button> m_open;
    ScrollPane *m_pane;
    Label *m_title;
    Label *m_address;
    QVBoxLayout *m_media; // holds the player or the placeholder
    SafeVideoPlayer *m_player = nullptr;
    QWidget *m_missing;
    Pill *m_pill;
    InformationBox *m_facts;
    Label *m_folder;
    Button *m_revealFolder;
    Label *m_error;
};

} // namespace clipwren
