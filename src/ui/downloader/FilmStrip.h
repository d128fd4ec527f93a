#pragma once

#include "core/media/TrimRange.h"
#include "platform/media/MediaPlayer.h"

#include <QImage>
#include <QList>
#include <QSize>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <chrono>
#include <memory>
#include <optional>

namespace clipwren {

/// Takes pictures of a film at several times, one after the other, with a player of its own.
///
/// Used on the user-interface thread. Destroying it ends the player.
class FilmStripLoader : public QObject {
    Q_OBJECT
public:
    /// The player has nothing loaded. It may draw a picture before it reports the end of the seek;
    /// so after `longestDrawing` without another one the newest is taken.
    explicit FilmStripLoader(
        std::unique_ptr<MediaPlayer> player,
        std::chrono::milliseconds longestDrawing = std::chrono::milliseconds(100));

    /// Starts, once. Times are seconds, taken in this order. The film is fitted into pictures of
    /// this size, in device pixels.
    void start(const QUrl &film, const QList<double> &times, QSize pixels);

Q_SIGNALS:
    /// The picture at the time of that index. Times of which there is none are left out.
    void taken(qsizetype index, const QImage &picture);
    /// All times were tried, or the film cannot be opened. The last signal.
    void finished();

private:
    void seekNext();
    void take();
    void finish();

    std::unique_ptr<MediaPlayer> m_player;
    QList<double> m_times;
    qsizetype m_index = 0;
    QTimer m_drawing; // runs while the picture of the current time is awaited
    bool m_isFinished = false;
};

/// Small pictures of a film side by side, spread over its length from left to right, with what
/// lies outside a range dimmed.
///
/// They are made in the background while the strip is shown, from coarse to fine, and freed when it
/// is hidden, with the player that makes them. Where there is none yet, a faint fill is seen.
class FilmStrip : public QWidget {
    Q_OBJECT
public:
    struct Film {
        QUrl url;
        double duration; ///< seconds, greater than 0
        std::optional<double> aspectRatio; ///< width by height, if known

        bool operator==(const Film &) const = default;
    };

    /// After a change of the width the pictures are made anew when it has rested for `settleTime`,
    /// should there be room for more or fewer of them.
    explicit FilmStrip(MediaPlayerFactory makePlayer,
                       std::chrono::milliseconds settleTime = std::chrono::milliseconds(300),
                       QWidget *parent = nullptr);
    ~FilmStrip() override;

    /// Replaces the film; none leaves the strip empty.
    void setFilm(const std::optional<Film> &film);
    void setRange(const TrimRange &range);
    /// True when no picture could be made of the film.
    bool hasFailed() const { return m_hasFailed; }

Q_SIGNALS:
    /// No picture could be made of the film.
    void failed();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    qsizetype countForWidth() const;
    QRect cell(qsizetype index) const;
    void load();
    void drop();
    void finish();

    MediaPlayerFactory m_makePlayer;
    std::chrono::milliseconds m_settleTime;
    std::optional<Film> m_film;
    TrimRange m_range{0, 0};
    QList<QImage> m_pictures; // null where there is none yet
    bool m_hasFailed = false;
    QTimer m_loading;
    std::unique_ptr<FilmStripLoader> m_loader;
};

} // namespace clipwren
