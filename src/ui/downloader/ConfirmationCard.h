#pragma once

#include "ui/components/Card.h"

class QVBoxLayout;

namespace clipwren {

class Button;
class DownloaderView;
class ElidedLabel;
class Label;
class ThumbnailView;
class WrappedLabel;

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
    WrappedLabel *m_title;
    QWidget *m_uploaderRow;
    ElidedLabel *m_uploader;
    QWidget *m_durationRow;
    Label *m_duration;
    Button *m_continue;
};

} // namespace clipwren
