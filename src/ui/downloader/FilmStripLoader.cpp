#include "ui/downloader/FilmStripLoader.h"

#include "platform/media/VideoOutput.h"

#include <utility>

namespace clipwren {

FilmStripLoader::FilmStripLoader(std::unique_ptr<MediaPlayer> player,
                                 std::chrono::milliseconds longestDrawing)
    : m_player(std::move(player))
{
    m_drawing.setSingleShot(true);
    m_drawing.setInterval(longestDrawing);
    connect(&m_drawing, &QTimer::timeout, this, &FilmStripLoader::take);
}

void FilmStripLoader::start(const QUrl &film, const QList<double> &times, QSize pixels)
{
    m_times = times;
    VideoOutput *output = m_player->videoOutput();
    if (!output) {
        finish();
        return;
    }
    output->setSize(pixels);
    connect(output, &VideoOutput::pictureChanged, this, [this] {
        if (m_drawing.isActive())
            take();
    });
    connect(m_player.get(), &MediaPlayer::statusChanged, this, [this] {
        if (m_player->status() == MediaPlayer::Status::Failed)
            finish();
    });
    m_player->load(film);
    seekNext();
}

void FilmStripLoader::seekNext()
{
    if (m_index == m_times.size())
        finish();
    if (m_isFinished)
        return;
    m_player->seek(m_times[m_index], [this](bool isThere) {
        if (m_isFinished)
            return;
        if (isThere) {
            m_drawing.start();
            return;
        }
        ++m_index;
        seekNext();
    });
}

void FilmStripLoader::take()
{
    m_drawing.stop();
    const QImage picture = m_player->videoOutput()->picture();
    const qsizetype index = m_index++;
    if (!picture.isNull())
        Q_EMIT taken(index, picture);
    seekNext();
}

void FilmStripLoader::finish()
{
    m_drawing.stop();
    if (!std::exchange(m_isFinished, true))
        Q_EMIT finished();
}

} // namespace clipwren
