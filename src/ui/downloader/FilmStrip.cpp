#include "ui/downloader/FilmStrip.h"

#include "platform/media/VideoOutput.h"
#include "ui/components/Painting.h"
#include "ui/components/Theme.h"

#include <QHideEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <bit>
#include <cmath>
#include <utility>

namespace clipwren {

namespace {

constexpr int stripHeight = 44;
constexpr int cellWidth = 90; // about
constexpr double radius = 6;
constexpr double dimming = 0.65;
// Films beyond these are shown with bars. A film of unknown shape is taken for the tallest, so that
// nearly every one fills its cell.
constexpr double tallestRatio = 0.4;
constexpr double widestRatio = 4;

/// All indices below a number, so that each step halves the gaps: 0 4 2 6 1 3 5 of seven.
QList<qsizetype> fromCoarseToFine(qsizetype count)
{
    QList<qsizetype> order;
    const auto whole = static_cast<qsizetype>(std::bit_ceil(static_cast<std::size_t>(count)));
    for (qsizetype step = whole; step > 0; step /= 2) {
        for (qsizetype index = 0; index < count; index += step) {
            if (step == whole || index / step % 2 == 1)
                order << index;
        }
    }
    return order;
}

/// A brush that fills a place with the middle of a picture.
QBrush fillingBrush(const QImage &picture, const QRectF &place)
{
    const double scale =
        std::max(place.width() / picture.width(), place.height() / picture.height());
    const QPointF corner =
        place.center() - QPointF(picture.width(), picture.height()) * (scale / 2);
    QBrush brush(picture);
    brush.setTransform(QTransform::fromTranslate(corner.x(), corner.y()).scale(scale, scale));
    return brush;
}

} // namespace

FilmStrip::FilmStrip(MediaPlayerFactory makePlayer, std::chrono::milliseconds settleTime,
                     QWidget *parent)
    : QWidget(parent), m_makePlayer(std::move(makePlayer)), m_settleTime(settleTime)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(stripHeight);
    m_loading.setSingleShot(true);
    connect(&m_loading, &QTimer::timeout, this, &FilmStrip::load);
}

FilmStrip::~FilmStrip() = default;

void FilmStrip::setFilm(const std::optional<Film> &film)
{
    if (film == m_film)
        return;
    m_film = film;
    m_hasFailed = false;
    drop();
    if (isVisible())
        m_loading.start(0);
}

void FilmStrip::setRange(const TrimRange &range)
{
    if (std::exchange(m_range, range) != range)
        update();
}

qsizetype FilmStrip::countForWidth() const
{
    return std::max<qsizetype>(std::lround(double(width()) / cellWidth), 1);
}

QRect FilmStrip::cell(qsizetype index) const
{
    const auto edge = [this](qsizetype at) {
        return static_cast<int>(width() * at / m_pictures.size());
    };
    return {edge(index), 0, edge(index + 1) - edge(index), height()};
}

// Loading

void FilmStrip::load()
{
    const qsizetype count = countForWidth();
    if (!m_film || m_hasFailed || !m_makePlayer || count == m_pictures.size())
        return;
    m_loader.reset();
    m_pictures = QList<QImage>(count);
    update();

    const QList<qsizetype> order = fromCoarseToFine(count);
    QList<double> times;
    for (const qsizetype index : order)
        times << m_film->duration * (double(index) + 0.5) / double(count);
    const QSizeF room = QSizeF(cell(0).size()) * devicePixelRatioF();
    const double ratio =
        std::clamp(m_film->aspectRatio.value_or(tallestRatio), tallestRatio, widestRatio);
    const QSizeF pixels = QSizeF(ratio, 1).scaled(room, Qt::KeepAspectRatioByExpanding);
    m_loader = std::make_unique<FilmStripLoader>(m_makePlayer());
    connect(m_loader.get(), &FilmStripLoader::taken, this,
            [this, order](qsizetype index, const QImage &picture) {
                m_pictures[order[index]] = picture;
                update(cell(order[index]));
            });
    connect(m_loader.get(), &FilmStripLoader::finished, this, &FilmStrip::finish);
    m_loader->start(m_film->url, times, {qCeil(pixels.width()), qCeil(pixels.height())});
}

void FilmStrip::finish()
{
    // The loader is the sender: it may not be deleted yet.
    m_loader.release()->deleteLater();
    if (std::any_of(m_pictures.begin(), m_pictures.end(),
                    [](const QImage &picture) { return !picture.isNull(); }))
        return;
    m_hasFailed = true;
    Q_EMIT failed();
}

void FilmStrip::drop()
{
    m_loading.stop();
    m_loader.reset();
    m_pictures.clear();
    update();
}

void FilmStrip::showEvent(QShowEvent *)
{
    if (m_pictures.isEmpty())
        m_loading.start(0);
}

void FilmStrip::hideEvent(QHideEvent *event)
{
    // Keep the pictures of a minimised window.
    if (!event->spontaneous())
        drop();
}

void FilmStrip::resizeEvent(QResizeEvent *)
{
    if (!m_pictures.isEmpty())
        m_loading.start(m_settleTime);
}

// Painting

void FilmStrip::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QPainterPath shape;
    shape.addRoundedRect(rect(), radius, radius);
    // Intersected paths, because the edges of a clip are not anti-aliased.
    const auto fill = [&](const QRectF &place, const QBrush &brush) {
        QPainterPath part;
        part.addRect(place);
        painter.fillPath(shape & part, brush);
    };
    painter.fillPath(shape, theme.color(Theme::Color::Quaternary));
    for (qsizetype index = 0; index < m_pictures.size(); ++index) {
        if (!m_pictures[index].isNull())
            fill(cell(index), fillingBrush(m_pictures[index], cell(index)));
    }
    if (m_film && !m_pictures.isEmpty()) {
        const QColor ground = faded(theme.color(Theme::Color::Background), dimming);
        const double from = width() * (m_range.start / m_film->duration);
        const double to = width() * (m_range.end / m_film->duration);
        fill(QRectF(0, 0, from, height()), ground);
        fill(QRectF(to, 0, width() - to, height()), ground);
    }
    paintBox(painter, rect(), radius, Qt::transparent, theme.color(Theme::Color::CardBorder));
}

// FilmStripLoader

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
