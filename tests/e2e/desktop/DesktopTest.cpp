#include "core/library/DownloadStore.h"
#include "support/LibraryFixture.h"
#include "ui/player/NumberedVideo.h"

#include <QDir>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

/// A window of another program that takes files.
class DropTarget : public QWidget {
public:
    DropTarget() : QWidget(nullptr, Qt::X11BypassWindowManagerHint)
    {
        setAcceptDrops(true);
        setGeometry(1250, 850, 100, 100);
        show();
    }

    QList<QUrl> dropped;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override { event->acceptProposedAction(); }
    void dropEvent(QDropEvent *event) override
    {
        dropped << event->mimeData()->urls();
        event->acceptProposedAction();
    }
};

/// The real program on a desktop with a window manager, worked by pointer and keys. Each way is
/// gone twice, or as often as the environment variable CLIPWREN_ROUNDS says.
class DesktopTest : public testing::Test {
protected:
    DesktopTest()
    {
        DownloadStore store(m_home.filePath(u"data/Clipwren"_s));
        for (const int stream : {2, 1}) {
            DownloadRecord record = bareRecord(u"Film %1"_s.arg(stream));
            record.filePath = numberedVideo(stream).toLocalFile();
            store.add(record);
        }
        // It does not manage windows that open while it starts, though its properties are set.
        const QString managed = m_home.filePath(u"managed"_s);
        m_windowManager.start(u"openbox"_s,
                              {u"--sm-disable"_s, u"--startup"_s, u"touch '%1'"_s.arg(managed)});
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(managed); }, 20'000));
    }
    ~DesktopTest() override
    {
        for (QProcess *process : {&m_program, &m_windowManager}) {
            process->kill();
            process->waitForFinished();
        }
    }

    static int rounds()
    {
        const int given = qEnvironmentVariableIntValue("CLIPWREN_ROUNDS");
        return given > 0 ? given : 2;
    }

    void open(const QString &variable = {}, const QString &value = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_DATA_HOME"_s, m_home.filePath(u"data"_s));
        environment.insert(u"XDG_CONFIG_HOME"_s, m_home.filePath(u"config"_s));
        environment.insert(u"XDG_RUNTIME_DIR"_s, m_home.path());
        if (!variable.isEmpty())
            environment.insert(variable, value);
        m_program.setProcessEnvironment(environment);
        m_program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_program.start(QStringLiteral(CLIPWREN_PROGRAM), QStringList());
        ASSERT_TRUE(m_program.waitForStarted());
        ASSERT_TRUE(QTest::qWaitFor(
            [this] {
                m_window = visibleWindows();
                return !m_window.isEmpty();
            },
            20'000));
        // Its first frame.
        ASSERT_TRUE(QTest::qWaitFor(
            [this] {
                return pixel({144, 198}) != QColor(Qt::black);
            },
            20'000));
    }
    void openFilm(int row = 0)
    {
        click({144, 198 + 44 * row});
        ASSERT_TRUE(showsFilm());
    }
    int exitStatus()
    {
        EXPECT_TRUE(m_program.waitForFinished(10'000)) << "the program does not end";
        return m_program.exitStatus() == QProcess::NormalExit ? m_program.exitCode() : -1;
    }
    bool isRunning() { return !m_program.waitForFinished(300); }

    static QString run(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished(20'000)) << arguments.join(u' ').toStdString();
        return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
    }
    static QString xdotool(const QStringList &arguments) { return run(u"xdotool"_s, arguments); }
    static QString visibleWindows()
    {
        return xdotool({u"search"_s, u"--onlyvisible"_s, u"--class"_s, u"^clipwren$"_s});
    }
    static void press(const QString &key) { xdotool({u"key"_s, key}); }
    /// Of the window's content on the screen.
    QRect geometry() const
    {
        const QString information = run(u"xwininfo"_s, {u"-id"_s, m_window});
        const auto value = [&](const QString &name) {
            const QRegularExpression line(name + u":\\s*(-?\\d+)"_s);
            return line.match(information).captured(1).toInt();
        };
        return {value(u"Absolute upper-left X"_s), value(u"Absolute upper-left Y"_s),
                value(u"Width"_s), value(u"Height"_s)};
    }
    void click(QPoint place) const
    {
        const QPoint onScreen = geometry().topLeft() + place;
        xdotool({u"mousemove"_s, QString::number(onScreen.x()), QString::number(onScreen.y()),
                 u"click"_s, u"1"_s});
    }
    /// Which maximises, and restores.
    void doubleClickTitleBar() const
    {
        const QRect content = geometry();
        xdotool({u"mousemove"_s, QString::number(content.center().x()),
                 QString::number(content.top() - 8), u"click"_s, u"--repeat"_s, u"2"_s,
                 u"--delay"_s, u"60"_s, u"1"_s});
    }
    bool becomesAsWideAs(int width) const
    {
        return QTest::qWaitFor([&] { return std::abs(geometry().width() - width) < 8; }, 10'000);
    }
    static QColor screenPixel(QPoint place)
    {
        return QGuiApplication::primaryScreen()
            ->grabWindow(0, place.x(), place.y(), 1, 1)
            .toImage()
            .pixelColor(0, 0);
    }
    QColor pixel(QPoint place) const { return screenPixel(geometry().topLeft() + place); }
    static bool isFilm(const QColor &color)
    {
        return std::abs(color.lightness() - 130) < 10 && color.saturation() < 10;
    }
    /// The lower part of the films is grey, as nothing else is. Beside the sidebar of 280 pixels,
    /// the player is in the middle.
    bool showsFilm() const
    {
        return QTest::qWaitFor(
            [this] {
                return isFilm(pixel({(geometry().width() + 280) / 2, 300}));
            },
            5'000);
    }
    static bool showsFilmInFullScreen()
    {
        return QTest::qWaitFor(
            [] {
                const QRect screen = QGuiApplication::primaryScreen()->geometry();
                return isFilm(screenPixel(screen.center()))
                    && isFilm(screenPixel({screen.center().x(), screen.bottom() - 150}));
            },
            5'000);
    }
    /// Drags what is at a place of the window onto a widget of this program.
    void drag(QPoint place, const QWidget &target) const
    {
        const auto moveTo = [](QPoint onScreen) {
            xdotool({u"mousemove"_s, QString::number(onScreen.x()), QString::number(onScreen.y())});
            // Both programs have to answer.
            QTest::qWait(100);
        };
        const QPoint from = geometry().topLeft() + place;
        const QPoint to = target.mapToGlobal(target.rect().center());
        moveTo(from);
        xdotool({u"mousedown"_s, u"1"_s});
        for (const double way : {0.1, 0.5, 1.0})
            moveTo(from + (to - from) * way);
        moveTo(to + QPoint(1, 1));
        xdotool({u"mouseup"_s, u"1"_s});
    }
    void playFilm() { click({(geometry().width() + 280) / 2 - 227, 434}); }

    QTemporaryDir m_home;
    QProcess m_windowManager;
    QProcess m_program;
    QString m_window;
};

TEST_F(DesktopTest, closesWithoutACrashOnceAFilmWasShown)
{
    for (int round = 0; round < rounds(); ++round) {
        for (const QString &way : {u"alt+F4"_s, u"ctrl+q"_s, u"SIGTERM"_s}) {
            SCOPED_TRACE(way.toStdString());
            ASSERT_NO_FATAL_FAILURE(open());
            ASSERT_NO_FATAL_FAILURE(openFilm());
            if (round % 2 == 0)
                playFilm();
            if (way == u"SIGTERM")
                m_program.terminate();
            else
                press(way);
            EXPECT_EQ(exitStatus(), 0);
        }
    }
}

TEST_F(DesktopTest, showsThePictureInEveryStateOfTheSameWindow)
{
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(openFilm());
    for (int round = 0; round < rounds(); ++round) {
        SCOPED_TRACE(round);
        openFilm(round % 2);
        playFilm();
        doubleClickTitleBar();
        EXPECT_TRUE(becomesAsWideAs(QGuiApplication::primaryScreen()->size().width()));
        EXPECT_TRUE(showsFilm()) << "maximised";
        click({geometry().width() / 2 + 140, 240});
        press(u"f"_s);
        EXPECT_TRUE(showsFilmInFullScreen());
        press(u"Escape"_s);
        EXPECT_TRUE(showsFilm()) << "back from full screen";
        doubleClickTitleBar();
        EXPECT_TRUE(becomesAsWideAs(1120));
        EXPECT_TRUE(showsFilm()) << "restored";
        xdotool({u"windowsize"_s, u"--sync"_s, m_window, u"820"_s, u"520"_s});
        EXPECT_TRUE(showsFilm()) << "smallest";
        xdotool({u"windowsize"_s, u"--sync"_s, m_window, u"1120"_s, u"900"_s});
        EXPECT_TRUE(showsFilm()) << "as at first";
        EXPECT_EQ(visibleWindows(), m_window) << "another native window";
    }
    EXPECT_TRUE(isRunning());
}

TEST_F(DesktopTest, filesCanBeDraggedIntoAnotherProgram)
{
    ASSERT_NO_FATAL_FAILURE(open());
    const DropTarget target;
    const QList<QUrl> film{numberedVideo(1)};
    drag({144, 198}, target);
    EXPECT_TRUE(QTest::qWaitFor([&] { return target.dropped == film; }));
    ASSERT_NO_FATAL_FAILURE(openFilm());
    drag({(geometry().width() + 280) / 2, 300}, target);
    EXPECT_TRUE(QTest::qWaitFor([&] { return target.dropped == film + film; }));
    EXPECT_TRUE(QFile::exists(film.first().toLocalFile()));
}

TEST_F(DesktopTest, playsWithoutOpenGL)
{
    ASSERT_NO_FATAL_FAILURE(open(u"QT_XCB_GL_INTEGRATION"_s, u"none"_s));
    ASSERT_NO_FATAL_FAILURE(openFilm());
    playFilm();
    EXPECT_TRUE(isRunning());
}

} // namespace
} // namespace clipwren::test
