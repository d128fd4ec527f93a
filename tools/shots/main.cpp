#include "SampleWindow.h"
#include "ui/components/Theme.h"
#include "ui/shell/SidebarView.h"

#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QTemporaryDir>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;
using clipwren::Theme;
using clipwren::test::SampleSite;
using clipwren::test::SampleWindow;

const QString usualTitle = u"Building a tide clock from scratch"_s;

/// One picture: its name, the title of the looked-up video, and how to bring the window there.
struct Shot {
    QString name;
    QString title;
    std::function<void(SampleWindow &)> prepare;
};

const QString waitForever = u"exec sleep 600"_s;

QList<Shot> allShots()
{
    const auto ready = [](SampleWindow &sample) { sample.makeReady(); };
    return {
        {u"setup"_s, usualTitle, [](SampleWindow &s) { s.hideTool(u"yt-dlp"_s); }},
        {u"input"_s, usualTitle, [](SampleWindow &) {}},
        {u"fetching"_s, usualTitle,
         [](SampleWindow &s) {
             s.fake().onLookup(u"echo '[site] abc: Downloading webpage' >&2; "_s + waitForever);
             s.lookUp();
             s.settle();
         }},
        {u"fetch-failed"_s, usualTitle,
         [](SampleWindow &s) {
             s.fake().onLookup(u"echo 'ERROR: [site] abc: Video unavailable' >&2; exit 1"_s);
             s.lookUp();
             s.settle([&] { return s.downloader()->fetchError().has_value(); });
         }},
        {u"logs"_s, usualTitle,
         [](SampleWindow &s) {
             s.fake().onLookup(u"seq -f '[debug] line %g of the log' 80 >&2; exit 1"_s);
             s.lookUp();
             s.settle([&] { return s.downloader()->fetchError().has_value(); });
             s.downloader()->setShowLogs(true);
             s.settle();
         }},
        {u"confirming"_s, usualTitle,
         [](SampleWindow &s) {
             s.lookUp();
             s.settle([&] { return s.downloader()->phase() == clipwren::Phase::confirming; });
         }},
        {u"ready"_s, usualTitle, ready},
        {u"ready-trim"_s, usualTitle,
         [](SampleWindow &s) {
             s.makeReady();
             s.downloader()->setOutputFormatRaw(u"macCompatible"_s);
             s.downloader()->setTrimEnabled(true);
             s.downloader()->setTrimRange(3.1, 7.9);
             s.downloader()->preview().seek(3.1);
             s.settle();
         }},
        {u"downloading"_s, usualTitle,
         [](SampleWindow &s) {
             s.fake().onDownload(u"echo ' 42.0%|| 1.20MiB/s||00:10'; "_s + waitForever);
             s.makeReady();
             s.downloader()->start();
             s.settle([&] { return s.downloader()->downloadProgress() > 0; });
         }},
        {u"download-failed"_s, usualTitle,
         [](SampleWindow &s) {
             s.fake().onDownload(u"echo 'ERROR: unable to download video data' >&2; exit 1"_s);
             s.makeReady();
             s.downloader()->start();
             s.settle([&] { return s.downloader()->errorMessage().has_value(); });
         }},
        {u"done"_s, usualTitle,
         [](SampleWindow &s) {
             s.makeReady();
             // Without the shell's switch to the new record the success card stays.
             s.window().content().detail().disconnect(&s.window().content());
             s.downloader()->start();
             s.settle([&] { return s.downloader()->phase() == clipwren::Phase::done; });
         }},
        {u"detail"_s, usualTitle, [](SampleWindow &s) { s.showRecord(0); }},
        {u"detail-missing"_s, usualTitle, [](SampleWindow &s) { s.showRecord(2); }},
        {u"history"_s, usualTitle,
         [](SampleWindow &s) {
             s.window().content().sidebar().setTab(clipwren::SidebarView::Tab::history);
             s.settle();
         }},
        {u"long-title"_s,
         u"A very long title that goes on and on, about the patient building of a clock that tells "
         "the tides of a harbour in the north, with every wheel cut by hand and every mistake kept"_s,
         ready},
        {u"right-to-left"_s, u"بناء ساعة المد والجزر من الصفر في ورشة الميناء"_s, ready},
    };
}

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
            if (QWidget *sheet = QApplication::activeModalWidget()) {
                const QPoint place =
                    sheet->mapToGlobal(QPoint()) - sample.window().mapToGlobal(QPoint());
                QPainter(&picture).drawPixmap(place, sheet->grab());
            }
            picture.save(folder + u'/' + name);
            std::printf("%s\n", qUtf8Printable(name));
        }
    }
}

} // namespace

int main(int argc, char *argv[])
{
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, home.path().toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("Usage: clipwren-shots FOLDER [NAME]…\n", stderr);
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
