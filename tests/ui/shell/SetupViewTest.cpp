#include "ui/shell/SetupView.h"

#include "ui/shell/ShellFixture.h"

#include <QFile>
#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

class SetupViewTest : public ShellFixture {
protected:
    SetupViewTest() { remove(u"yt-dlp"_s); }

    void remove(const QString &tool)
    {
        QFile::remove(tools.path(tool));
        environment.refresh();
    }

    SetupView view{environment, desktop};
};

TEST_F(SetupViewTest, checksAgainByKeyWhereverTheFocusIs)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *field = new QLineEdit;
    layout->addWidget(field);
    layout->addWidget(&view);
    showWindow(window);
    field->setFocus();
    tools.add(u"yt-dlp"_s, {});
    const QSignalSpy checks(&environment, &ToolEnvironment::changed);
    QTest::keyPress(field, Qt::Key_R, Qt::ControlModifier);
    EXPECT_TRUE(environment.allFound());
    for (int time = 0; time < 3; ++time)
        QTest::simulateEvent(field, true, Qt::Key_R, Qt::ControlModifier, {}, true);
    EXPECT_EQ(checks.size(), 1) << "held down";
    QTest::keyRelease(field, Qt::Key_R, Qt::ControlModifier);

    remove(u"ffprobe"_s);
    tools.add(u"ffprobe"_s, {});
    view.hide();
    QTest::keyClick(field, Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(environment.allFound()) << "not while another screen is shown";
    view.setParent(nullptr);
}

TEST_F(SetupViewTest, showsWhatIsMissingInTheSmallestPane)
{
    view.resize(460, 468);
    view.show();
    Button *recheck = buttonIn(view, u"Re-check"_s);
    EXPECT_GE(recheck->mapTo(&view, QPoint()).x(), 0);
    const QPoint end = recheck->mapTo(&view, QPoint(recheck->width(), recheck->height()));
    EXPECT_LE(end.x(), 460);
    EXPECT_LE(end.y(), 468) << "below the fold";
    EXPECT_TRUE(shows(view, u"Not installed"_s));
    EXPECT_TRUE(shows(view, tools.path(u"ffmpeg"_s)));
    tools.add(u"yt-dlp"_s, {});
    recheck->click();
    EXPECT_TRUE(shows(view, tools.path(u"yt-dlp"_s)));
    EXPECT_FALSE(shows(view, u"Not installed"_s));
    Button *copy = buttonIn(view, u"Copy command"_s);
    EXPECT_GE(copy->visibleRegion().boundingRect().width(), 22);
    copy->click();
    EXPECT_EQ(desktop.clipboard, u"brew install yt-dlp ffmpeg");
}

} // namespace
} // namespace clipwren::test
