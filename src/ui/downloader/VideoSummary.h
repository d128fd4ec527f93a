#pragma once

#include "ui/components/Card.h"

namespace clipwren {

class DownloaderView;
class Label;
class ThumbnailView;
class WrappedLabel;

/// The video that was confirmed, in a row.
class VideoSummary : public Card {
    Q_OBJECT
public:
    explicit VideoSummary(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    DownloaderView &m_view;
    ThumbnailView *m_thumbnail;
    WrappedLabel *m_title;
    Label *m_duration;
};

} // namespace clipwren
