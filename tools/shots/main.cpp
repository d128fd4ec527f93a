#include "Shot.h"
#include "ui/components/Theme.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>

namespace {

using namespace Qt::StringLiterals;
using clipwren::Theme;
using clipwren::test::allShots;
using clipwren::test::SampleSite;
using clipwren::test::SampleWindow;
using clipwren::test::Shot;

void take(const Shot &shot, SampleSite &site, const QString &folder)
{
    for (const QSize size : {QSize(1120, 900), QSize(820, 520)}) {
        SampleWindow sample(site, shot.title, size);
        shot.prepare(sample);
        for (const auto scheme : {Theme::Scheme::Light, Theme::Scheme::Dark}) {
            Theme::current().forceScheme(scheme);
            sample.settle();
            const QString name = u"%1-%2-%3.png"_s.arg(
                shot.name, scheme == Theme::Scheme::Light ? u"light"_s : u"dark"_s,
                QString::number(size.width()));
            // What is in front of the window, such as a sheet, is painted over its picture.
            QPixmap picture = sample.window().grab();
            for (QWidget *front :
                 {QApplication::activeModalWidget(), QApplication::activePopupWidget()}) {
                if (!front)
                    continue;
                const QPoint place =
                    front->mapToGlobal(QPoint()) - sample.window().mapToGlobal(QPoint());
                QPainter(&picture).drawPixmap(place, front->grab());
            }
            picture.save(folder + u'/' + name);
            std::printf("%s\n", qUtf8Printable(name));
        }
    }
}

/// Names the pictures that two folders do not have alike, and where they differ. Returns whether
/// there are any.
bool compare(const QDir &before, const QDir &after)
{
    QStringList names = before.entryList({u"*.png"_s}) + after.entryList({u"*.png"_s});
    names.removeDuplicates();
    bool isDifferent = false;
    for (const QString &name : names) {
        const QImage old(before.filePath(name));
        const QImage current(after.filePath(name));
        if (old == current)
            continue;
        isDifferent = true;
        QRect area;
        for (int y = 0; y < old.height() && old.size() == current.size(); ++y) {
            for (int x = 0; x < old.width(); ++x) {
                if (old.pixel(x, y) != current.pixel(x, y))
                    area |= QRect(x, y, 1, 1);
            }
        }
        std::printf("%s: x %d to %d, y %d to %d\n", qUtf8Printable(name), area.left(), area.right(),
                    area.top(), area.bottom());
    }
    return isDifferent;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 4 && std::strcmp(argv[1], "--compare") == 0)
        return compare(QDir(QString::fromLocal8Bit(argv[2])), QDir(QString::fromLocal8Bit(argv[3])))
            ? 1
            : 0;
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, home.path().toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("Usage: clipwren-shots FOLDER [NAME]…\n"
                   "       clipwren-shots --compare BEFORE AFTER\n",
                   stderr);
        return 2;
    }
    QDir().mkpath(arguments[1]);
    Theme theme;
    theme.forceReducedMotion(true);
    SampleSite site;
    const QStringList wanted = arguments.mid(2);
    for (const Shot &shot : allShots()) {
        if (wanted.isEmpty() || wanted.contains(shot.name))
            take(shot, site, arguments[1]);
    }
    clipwren::BackgroundTask::waitForAll(std::chrono::seconds(20));
    return 0;
}
