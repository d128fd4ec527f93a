#pragma once

#include "ui/components/Card.h"

namespace clipwren {

class DownloaderView;
class ElidedLabel;
class Glide;

/// Says that a video is being looked up, and what the tool does for it.
class FetchingCard : public Card {
    Q_OBJECT
public:
    explicit FetchingCard(DownloaderView &view, QWidget *parent = nullptr);

    void render();

private:
    DownloaderView &m_view;
    ElidedLabel *m_status;
    Glide *m_statusGlide;
};

} // namespace clipwren
