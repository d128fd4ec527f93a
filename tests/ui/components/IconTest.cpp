#include "ui/components/Icon.h"

#include <QDir>
#include <QImage>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(IconTest, everyNameHasItsDrawingAndEveryDrawingItsName)
{
    QStringList names;
    for (std::size_t index = 0; index < Icon::names.size(); ++index) {
        const Icon icon = Icon::at(index);
        names << icon.name() + QStringLiteral(".svg");
        const QImage picture = icon.pixmap(24, Qt::red, 1).toImage();
        QImage plain(picture);
        for (const QColor &color : {QColor(Qt::transparent), QColor(Qt::red)}) {
            plain.fill(color);
            EXPECT_NE(picture, plain) << icon.name().toStdString();
        }
    }
    names.sort();
    QStringList files = QDir(QStringLiteral(":/icons")).entryList();
    files.sort();
    EXPECT_EQ(files, names);
}

} // namespace
} // namespace clipwren
