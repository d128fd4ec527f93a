#pragma once

#include "core/tasks/BackgroundTask.h"

#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <optional>

class QNetworkReply;

namespace clipwren {

class Spinner;

/// A picture from the web that fills the view, a spinner while it loads, or a placeholder when
/// there is none.
///
/// Loads while it is on screen and starts again with each new address. Addresses other than http
/// and https are not opened, and a picture beyond the limits is given up without being held in
/// memory. User-interface thread only; decodes beside it.
class ThumbnailView : public QWidget {
    Q_OBJECT
public:
    struct Limits {
        qint64 bytes = qint64(20) * 1024 * 1024; ///< of the file
        qint64 pixels = 50'000'000; ///< of the picture before it is scaled down
        std::chrono::milliseconds time = std::chrono::seconds(30); ///< for the whole transfer
    };
    enum class State : std::uint8_t { Loading, Shown, Failed };

    explicit ThumbnailView(QWidget *parent = nullptr);
    explicit ThumbnailView(Limits limits, QWidget *parent = nullptr);
    ~ThumbnailView() override;
    ThumbnailView(const ThumbnailView &) = delete;
    ThumbnailView &operator=(const ThumbnailView &) = delete;

    void setUrlString(const std::optional<QString> &urlString);
    State state() const { return m_state; }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void load();
    void stopLoading();
    void receive();
    void finishTransfer();
    void decode();
    void fail();
    void setState(State state);

    Limits m_limits;
    std::optional<QString> m_urlString;
    State m_state = State::Loading;
    QImage m_image;
    QPixmap m_scaled; // the image as it was last painted
    QNetworkReply *m_reply = nullptr; // null unless a transfer runs
    QByteArray m_received;
    QTimer m_timeLimit;
    BackgroundTask m_decoding;
    Spinner *m_spinner;
};

} // namespace clipwren
