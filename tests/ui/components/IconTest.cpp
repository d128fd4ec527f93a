#include "ui/components/Icon.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace clipwren;

namespace {

int drawnPixels(const QImage &image)
{
    int drawn = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            drawn += image.pixelColor(x, y).alpha() > 0;
    }
    return drawn;
}

} // namespace

TEST(IconTest, everyNameHasItsDrawingAndEveryDrawingItsName)
{
    QStringList names;
    for (std::size_t index = 0; index < Icon::names.size(); ++index) {
        const Icon icon = Icon::at(index);
        names << icon.name() + QStringLiteral(".svg");
        const int drawn = drawnPixels(icon.pixmap(24, Qt::red, 1).toImage());
        EXPECT_GT(drawn, 20) << icon.name().toStdString();
        EXPECT_LT(drawn, 24 * 24) << icon.name().toStdString();
    }
    names.sort();
    QStringList files = QDir(QStringLiteral(":/icons")).entryList();
    files.sort();
    EXPECT_EQ(files, names);
}

TEST(IconTest, whatLiesBehindShowsThroughTheCut)
{
    const QImage check = Icon(u"plus.circle.fill").pixmap(24, Qt::red, 1).toImage();
    EXPECT_EQ(check.pixelColor(12, 12).alpha(), 0);
    EXPECT_EQ(check.pixelColor(6, 9), QColor(Qt::red));
}

TEST(IconTest, isPaintedOnWholeDevicePixelsAtAnyRatio)
{
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        const Icon icon(u"folder");
        const QImage sharp = icon.pixmap(16, Qt::black, ratio).toImage();
        QImage canvas(120, 120, QImage::Format_ARGB32_Premultiplied);
        canvas.setDevicePixelRatio(ratio);
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        painter.translate(2.3, 3.1);
        icon.paint(painter, QRectF(4.4, 5.2, 16, 16), Qt::black);
        painter.end();
        canvas.setDevicePixelRatio(1);
        const QPoint corner(qRound(6.7 * ratio), qRound(8.3 * ratio));
        QImage painted = canvas.copy(QRect(corner, sharp.size()));
        QImage expected = sharp.convertToFormat(painted.format());
        expected.setDevicePixelRatio(1);
        EXPECT_EQ(painted, expected) << ratio;
    }
}
