#include "ui/components/ThumbnailView.h"

#include "core/Logging.h"
#include "ui/components/Icon.h"
#include "ui/components/Progress.h"
#include "ui/components/Theme.h"

#include <QBuffer>
#include <QImageReader>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QPainter>
#include <QPainterPath>
#include <QShowEvent>

#include <algorithm>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr qreal cornerRadius = 8;
// More than any screen shows of a thumbnail.
constexpr QSize largestPicture(1280, 1280);
constexpr int redirectsAllowed = 5;
// What is not yet read from the network waits there.
constexpr qint64 bufferBytes = qint64(256) * 1024;

std::optional<QUrl> webAddress(const std::optional<QString> &text)
{
    if (!text)
        return std::nullopt;
    const QUrl url(*text, QUrl::StrictMode);
    const bool web = url.scheme() == u"http"_s || url.scheme() == u"https"_s;
    return url.isValid() && web && !url.host().isEmpty() ? std::optional(url) : std::nullopt;
}

/// Whatever the server's status says, it may have sent a picture.
bool cameWhole(QNetworkReply::NetworkError error)
{
    return error == QNetworkReply::NoError
        || (error >= QNetworkReply::ContentAccessDenied
            && error <= QNetworkReply::UnknownContentError)
        || (error >= QNetworkReply::InternalServerError
            && error <= QNetworkReply::UnknownServerError);
}

/// Null when it is no picture of a common kind or too large.
QImage decodePicture(QByteArray bytes, qint64 pixelLimit)
{
    // Only plain pictures: other readers of the system open files, scripts and documents.
    static const QList<QByteArray> kinds = {"jpeg", "png", "webp", "gif", "bmp"};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    if (!kinds.contains(reader.format()))
        return {};
    const QSize size = reader.size();
    if (size.isEmpty() || qint64(size.width()) * size.height() > pixelLimit)
        return {};
    if (size.width() > largestPicture.width() || size.height() > largestPicture.height())
        reader.setScaledSize(
            size.scaled(largestPicture, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return reader.read();
}

} // namespace

ThumbnailView::ThumbnailView(QWidget *parent) : ThumbnailView(Limits(), parent)
{
}

ThumbnailView::ThumbnailView(Limits limits, QWidget *parent)
    : QWidget(parent), m_limits(limits), m_spinner(new Spinner(16, this))
{
    setAccessibleName(tr("Thumbnail"));
    m_timeLimit.setSingleShot(true);
    connect(&m_timeLimit, &QTimer::timeout, this, &ThumbnailView::fail);
}

ThumbnailView::~ThumbnailView()
{
    stopLoading();
}

void ThumbnailView::setUrlString(const std::optional<QString> &urlString)
{
    if (m_urlString == urlString)
        return;
    m_urlString = urlString;
    if (isVisible())
        load();
}

void ThumbnailView::showEvent(QShowEvent *event)
{
    // Coming back from the task bar is no new showing.
    if (!event->spontaneous())
        load();
}

void ThumbnailView::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        stopLoading();
}

void ThumbnailView::load()
{
    stopLoading();
    m_image = {};
    m_scaled = {};
    const auto url = webAddress(m_urlString);
    if (!url) {
        setState(State::Failed);
        return;
    }
    setState(State::Loading);
    QNetworkRequest request(*url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(redirectsAllowed);
    m_reply = (new QNetworkAccessManager(this))->get(request);
    m_reply->setReadBufferSize(bufferBytes);
    connect(m_reply, &QNetworkReply::readyRead, this, &ThumbnailView::receive);
    connect(m_reply, &QNetworkReply::finished, this, &ThumbnailView::finishTransfer);
    m_timeLimit.start(m_limits.time);
}

void ThumbnailView::stopLoading()
{
    m_timeLimit.stop();
    m_decoding = {};
    m_received = {};
    if (!m_reply)
        return;
    m_reply->disconnect(this);
    // With its thread, its connections and the reply, which may be calling us.
    m_reply->manager()->deleteLater();
    m_reply = nullptr;
}

void ThumbnailView::receive()
{
    m_received += m_reply->readAll();
    if (m_received.size() > m_limits.bytes)
        fail();
}

void ThumbnailView::finishTransfer()
{
    receive();
    if (!m_reply)
        return;
    if (cameWhole(m_reply->error()))
        return decode();
    qCDebug(networkLog) << "No thumbnail:" << m_reply->errorString();
    fail();
}

void ThumbnailView::decode()
{
    const QByteArray bytes = m_received;
    stopLoading();
    m_decoding = BackgroundTask::start(
        [bytes, pixels = m_limits.pixels](const std::stop_token &, const BackgroundTask::Post &) {
            return decodePicture(bytes, pixels);
        },
        [this](const QImage &image) {
            m_image = image;
            setState(image.isNull() ? State::Failed : State::Shown);
        },
        [this](const std::exception_ptr &) { fail(); });
}

void ThumbnailView::fail()
{
    stopLoading();
    setState(State::Failed);
}

void ThumbnailView::setState(State state)
{
    m_state = state;
    m_spinner->setVisible(state == State::Loading);
    update();
}

void ThumbnailView::resizeEvent(QResizeEvent *)
{
    QRect place(QPoint(), m_spinner->sizeHint());
    place.moveCenter(rect().center());
    m_spinner->setGeometry(place);
}

void ThumbnailView::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    QPainterPath shape;
    shape.addRoundedRect(rect(), cornerRadius, cornerRadius);
    painter.fillPath(shape, theme.color(Theme::Color::Quaternary));
    if (m_state == State::Failed) {
        const int side = std::clamp(height() / 3, 16, 32);
        QRect place(0, 0, side, side);
        place.moveCenter(rect().center());
        Icon(u"photo").paint(painter, place, theme.color(Theme::Color::Tertiary));
    }
    if (m_image.isNull() || size().isEmpty())
        return;

    const qreal ratio = devicePixelRatioF();
    const QSize pixels =
        m_image.size().scaled((QSizeF(size()) * ratio).toSize(), Qt::KeepAspectRatioByExpanding);
    if (m_scaled.size() != pixels) {
        m_scaled = QPixmap::fromImage(
            m_image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        m_scaled.setDevicePixelRatio(ratio);
    }
    // As a brush, whose edges are smoothed; a clip's are not.
    QBrush brush(m_scaled);
    const QSizeF shown = QSizeF(pixels) / ratio;
    painter.setBrushOrigin(QPointF(width() - shown.width(), height() - shown.height()) / 2);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawPath(shape);
}

} // namespace clipwren
