#pragma once

#include "ui/components/Card.h"

class QVBoxLayout;

namespace clipwren {

class Button;
class DownloaderView;
class Label;
class AnimatedHeight;
class ThumbnailView;

/// Says that a video is being looked up, and what the tool does for it.
class FetchingCard : public Card {
    Q_OBJECT
public:
    explicit FetchingCard(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    DownloaderView &m_view;
    Label *m_status;
    AnimatedHeight *m_statusArea;
};

/// Asks whether the video that was found is the one that was meant.
class ConfirmationCard : public Card {
    Q_OBJECT
public:
    explicit ConfirmationCard(DownloaderView &view, QWidget *parent = nullptr);

    void render();
    /// What Return presses while the card is shown.
    Button *continueButton() const { return m_continue; }

private:
    QVBoxLayout *makeFacts();

    DownloaderView &m_view;
    ThumbnailView *m_thumbnail;
    Label *m_title;
    QWidget *m_uploaderRow;
    Label *m_uploader;
    QWidget *m_durationRow;
    Label *m_duration;
    Button *m_continue;
};

/// The video that was confirmed, in a row.
class VideoSummary : public Card {
    Q_OBJECT
public:
    explicit VideoSummary(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    DownloaderView &m_view;
    ThumbnailView *m_thumbnail;
    Label *m_title;
    Label *m_duration;
};

} // namespace clipwren
