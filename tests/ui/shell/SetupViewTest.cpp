#include "ui/shell/SetupView.h"

#include "ui/shell/ShellFixture.h"

#include <QFile>
#include <QLineEdit>
#include <QVBoxLayout>

namespace clipwren::test {
namespace {

class SetupViewTest : public ShellFixture {
protected:
    SetupViewTest() { remove(QStringLiteral("yt-dlp")); }

    void remove(const QString &tool)
    {
        QFile::remove(tools.path(tool));
        environment.refresh();
    }

    SetupView view{environment, desktop};
};

TEST_F(SetupViewTest, showsEachToolsPathOrThatItIsMissing)
{
    EXPECT_TRUE(shows(view, QStringLiteral("Not installed")));
    EXPECT_TRUE(shows(view, tools.path(QStringLiteral("ffmpeg"))));
    EXPECT_TRUE(shows(view, tools.path(QStringLiteral("ffprobe"))));
    tools.add(QStringLiteral("yt-dlp"), {});
    buttonIn(view, QStringLiteral("Re-check"))->click();
    EXPECT_TRUE(shows(view, tools.path(QStringLiteral("yt-dlp"))));
    EXPECT_FALSE(shows(view, QStringLiteral("Not installed")));
}

TEST_F(SetupViewTest, showsVersionsOnceTheyAreRead)
{
    tools.add(QStringLiteral("ffmpeg"), QStringLiteral("echo 'ffmpeg version 7.0.1 Copyright'"));
    ToolEnvironment read({tools.directory()});
    const SetupView withVersions(read, desktop);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shows(withVersions, QStringLiteral("7.0.1")); }));
}

TEST_F(SetupViewTest, copiesTheInstallCommand)
{
    buttonIn(view, QStringLiteral("Copy command"))->click();
    EXPECT_EQ(desktop.clipboard, QStringLiteral("brew install yt-dlp ffmpeg"));
}

TEST_F(SetupViewTest, checksAgainByKeyWhereverTheFocusIs)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *field = new QLineEdit;
    layout->addWidget(field);
    layout->addWidget(&view);
    showWindow(window);
    field->setFocus();
    tools.add(QStringLiteral("yt-dlp"), {});
    QTest::keyClick(field, Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(environment.allFound());

    remove(QStringLiteral("ffprobe"));
    tools.add(QStringLiteral("ffprobe"), {});
    view.hide();
    QTest::keyClick(field, Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(environment.allFound()) << "not while another screen is shown";
    view.setParent(nullptr);
}

TEST_F(SetupViewTest, fitsIntoTheSmallestPane)
{
    view.resize(460, 468);
    view.show();
    const Button *recheck = buttonIn(view, QStringLiteral("Re-check"));
    EXPECT_GE(recheck->mapTo(&view, QPoint()).x(), 0);
    const QPoint end = recheck->mapTo(&view, QPoint(recheck->width(), recheck->height()));
    EXPECT_LE(end.x(), 460);
    EXPECT_LE(end.y(), 468) << "below the fold";
    EXPECT_GE(
        buttonIn(view, QStringLiteral("Copy command"))->visibleRegion().boundingRect().width(), 22);
}

} // namespace
} // namespace clipwren::test
