#include "Shot.h"
#include "support/BracketTranslator.h"
#include "ui/components/Theme.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;
using clipwren::Theme;
using clipwren::test::allShots;
using clipwren::test::BracketTranslator;
using clipwren::test::SampleSite;
using clipwren::test::SampleWindow;
using clipwren::test::Shot;

void take(const Shot &shot, SampleSite &site, const QString &folder)
{
    for (const QSize size : {QSize(1120, 900), QSize(820, 520)}) {
        SampleWindow sample(site, shot.title, size, std::chrono::milliseconds(700));
        shot.prepare(sample);
        for (const auto scheme : {Theme::Scheme::Light, Theme::Scheme::Dark}) {
            Theme::current().forceScheme(scheme);
            sample.settle();
            const QString name = u"%1-%2-%3.png"_s.arg(
                shot.name, scheme == Theme::Scheme::Light ? u"light"_s : u"dark"_s,
                QString::number(size.width()));
            // What is in front of the window, such as a sheet, is painted over its picture.
            QPixmap picture = sample.window().grab();
            for (QWidget *front : sample.inFront()) {
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
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, home.path().toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    const QCommandLineOption comparing(u"compare"_s, u"Compare two folders of pictures."_s);
    const QCommandLineOption scale(u"text-scale"_s, u"Size of the texts, 1 by default."_s,
                                   u"factor"_s, u"1"_s);
    const QCommandLineOption brackets(u"brackets"_s, u"In a language of longer texts."_s);
    parser.addOptions({comparing, scale, brackets});
    parser.addPositionalArgument(u"folder"_s, u"Where the pictures go."_s);
    parser.addPositionalArgument(u"names"_s, u"Of the pictures; all by default."_s, u"[name…]"_s);
    parser.addHelpOption();
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    const double textScale = parser.value(scale).toDouble();
    if (arguments.size() < (parser.isSet(comparing) ? 2 : 1) || !(textScale > 0))
        parser.showHelp(2);
    if (parser.isSet(comparing))
        return compare(QDir(arguments[0]), QDir(arguments[1])) ? 1 : 0;

    QDir().mkpath(arguments[0]);
    Theme theme;
    theme.forceReducedMotion(true);
    theme.forceTextScale(textScale);
    BracketTranslator longer;
    if (parser.isSet(brackets))
        QApplication::installTranslator(&longer);
    SampleSite site;
    const QStringList wanted = arguments.mid(1);
    for (const Shot &shot : allShots()) {
        if (wanted.isEmpty() || wanted.contains(shot.name))
            take(shot, site, arguments[0]);
    }
    clipwren::BackgroundTask::waitForAll(std::chrono::seconds(20));
    return 0;
}
