#pragma once

#include "platform/media/MediaPlayer.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QSize>
#include <QTimer>

#include <chrono>
#include <memory>

namespace clipwren {

/// Takes pictures of a film at several times, one after the other, with a player of its own.
///
/// Used on the user-interface thread. Destroying it ends the player.
class FilmStripLoader : public QObject {
    Q_OBJECT
public:
    /// The player has nothing loaded. It may have drawn a picture before it tells that it is there;
    /// after `longestDrawing` the newest one is taken for it.
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
    QTimer m_drawing; // runs while the picture of the present time is waited for
    bool m_isFinished = false;
};

} // namespace clipwren
