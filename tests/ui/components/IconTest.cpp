#include "ui/components/Icon.h"

#include <QDir>
#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(IconTest, everyNameHasItsDrawingAndEveryDrawingItsName)
{
    QStringList names;
    for (std::size_t index = 0; index < Icon::names.size(); ++index) {
        const Icon icon = Icon::at(index);
        names << icon.name() + u".svg"_s;
        const QImage picture = icon.pixmap(24, Qt::red, 1).toImage();
        QImage plain(picture);
        for (const QColor &color : {QColor(Qt::transparent), QColor(Qt::red)}) {
            plain.fill(color);
            EXPECT_NE(picture, plain) << icon.name().toStdString();
        }
    }
    names.sort();
    QStringList files = QDir(u":/icons"_s).entryList();
    files.sort();
    EXPECT_EQ(files, names);
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
        const QPoint corner(qRound(6.7 * ratio), qRound(8.3 * ratio));
        EXPECT_EQ(canvas.copy(QRect(corner, sharp.size())), sharp.convertToFormat(canvas.format()))
            << ratio;
    }
}

} // namespace
} // namespace clipwren
