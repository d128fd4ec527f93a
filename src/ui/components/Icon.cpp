#include "ui/components/Icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

QPixmap drawTinted(const QString &name, int pixels, const QColor &color)
{
    QImage drawing(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    drawing.fill(Qt::transparent);
    QPainter painter(&drawing);
    QSvgRenderer(u":/icons/%1.svg"_s.arg(name)).render(&painter);
    painter.end();

    // The files are drawn in black; white strokes over it cut a hole, so that what lies behind
    // the symbol shows through it in every scheme.
    QImage tinted(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < pixels; ++y) {
        const auto *from = reinterpret_cast<const QRgb *>(drawing.constScanLine(y));
        auto *to = reinterpret_cast<QRgb *>(tinted.scanLine(y));
        for (int x = 0; x < pixels; ++x) {
            const int coverage = qAlpha(from[x]) - qRed(from[x]);
            to[x] = qPremultiply(
                qRgba(color.red(), color.green(), color.blue(), coverage * color.alpha() / 255));
        }
    }
    return QPixmap::fromImage(tinted);
}

QPixmap tinted(const QString &name, int pixels, const QColor &color)
{
    const QString key = u"icon/%1/%2/%3"_s.arg(name).arg(pixels).arg(color.rgba(), 8, 16);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = drawTinted(name, pixels, color);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

/// Draws a symbol at whatever size and ratio a style asks for.
class SymbolEngine : public QIconEngine {
public:
    SymbolEngine(Icon icon, const Icon::MenuColors &colors) : m_icon(icon), m_colors(colors) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        m_icon.paint(*painter, rect, colorFor(mode));
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State) override
    {
        return m_icon.pixmap(std::min(size.width(), size.height()), colorFor(mode), 1);
    }
    QIconEngine *clone() const override { return new SymbolEngine(*this); }

private:
    QColor colorFor(QIcon::Mode mode) const
    {
        if (mode == QIcon::Disabled)
            return m_colors.disabled;
        return mode == QIcon::Selected ? m_colors.selected : m_colors.normal;
    }

    Icon m_icon;
    Icon::MenuColors m_colors;
};

} // namespace

QString Icon::name() const
{
    return isNull() ? QString() : QString::fromUtf16(names[static_cast<std::size_t>(m_index)]);
}

QPixmap Icon::pixmap(int size, const QColor &color, qreal devicePixelRatio) const
{
    if (isNull() || size <= 0)
        return {};
    QPixmap pixmap = tinted(name(), static_cast<int>(std::lround(size * devicePixelRatio)), color);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

void Icon::paint(QPainter &painter, const QRectF &rect, const QColor &color) const
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const qreal side = std::min(rect.width(), rect.height());
    const int pixels = static_cast<int>(std::lround(side * ratio));
    if (isNull() || pixels <= 0)
        return;
    QPixmap pixmap = tinted(name(), pixels, color);
    pixmap.setDevicePixelRatio(ratio);
    // On whole device pixels, or the picture would be smoothed once more.
    const QTransform toDevice = painter.deviceTransform();
    const QPointF corner = rect.center() - QPointF(pixels, pixels) / (2 * ratio);
    painter.drawPixmap(toDevice.inverted().map(QPointF(toDevice.map(corner).toPoint())), pixmap);
}

QIcon Icon::toQIcon(const MenuColors &colors) const
{
    return isNull() ? QIcon() : QIcon(new SymbolEngine(*this, colors));
}

IconView::IconView(Icon icon, int size, Theme::Color color, QWidget *parent)
    : QWidget(parent), m_icon(icon), m_size(size), m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconView::setIcon(Icon icon)
{
    m_icon = icon;
    update();
}

void IconView::setColor(Theme::Color color)
{
    m_color = color;
    update();
}

void IconView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    m_icon.paint(painter, rect(), Theme::current().color(m_color));
}

} // namespace clipwren
