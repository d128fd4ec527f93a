#pragma once

#include <QWidget>

namespace clipwren {

class Banner;
class DownloadStore;
class HistoryStore;

/// Says that a list could not be saved, and why, until a later save works. Hidden while all is
/// saved.
class UnsavedBanner : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive this.
    UnsavedBanner(DownloadStore &store, HistoryStore &history, QWidget *parent = nullptr);

    /// Saves what could not be saved, if anything.
    void tryAgain();

Q_SIGNALS:
    void aboutToHide();

private:
    void render();

    DownloadStore &m_store;
    HistoryStore &m_history;
    Banner *m_banner;
};

} // namespace clipwren
