#include "core/process/ToolEnvironment.h"

#include "support/FakeTool.h"

#include <QCoreApplication>
#include <QFile>

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using test::FakeTools;

/// Two search directories, the first one searched first.
struct Directories {
    FakeTools first;
    FakeTools second;
    QStringList list() const { return {first.directory(), second.directory()}; }
};

TEST(ToolEnvironment, takesTheFirstDirectoryThatHasAnExecutable)
{
    Directories directories;
    const QString quick = u"echo 1"_s;
    const QString expectedYtDlp = directories.first.add(u"yt-dlp"_s, quick);
    directories.second.add(u"yt-dlp"_s, quick);
    QFile::setPermissions(directories.first.add(u"ffmpeg"_s, quick), QFile::ReadOwner);
    const QString expectedFfmpeg = directories.second.add(u"ffmpeg"_s, quick);

    ToolEnvironment tools(directories.list());
    EXPECT_EQ(tools.ytDlpPath(), expectedYtDlp);
    // Root may execute nothing without an execute bit either.
    EXPECT_EQ(tools.ffmpegPath(), expectedFfmpeg);
    EXPECT_FALSE(tools.ffprobePath());
    EXPECT_FALSE(tools.allFound());

    directories.first.add(u"ffprobe"_s, quick);
    QFile::remove(expectedYtDlp);
    tools.refresh();
    EXPECT_EQ(tools.ytDlpPath(), directories.second.path(u"yt-dlp"_s));
    EXPECT_TRUE(tools.allFound());
}

TEST(ToolEnvironment, readsTheVersions)
{
    const std::tuple<QString, std::optional<QString>, QString, QString> cases[] = {
        {u"echo 2024.08.06"_s, u"2024.08.06"_s,
         u"printf 'ffmpeg version 7.0.1 Copyright (c)\\nbuilt with gcc\\n'"_s, u"7.0.1"_s},
        {u"exit 1"_s, std::nullopt, u"exit 1"_s, {}},
        {u"printf ' x \\n'"_s, u"x"_s, u"echo 'ffmpeg version n6.1-git'"_s, u"n6.1-git"_s},
    };
    for (const auto &[ytDlp, ytDlpVersion, ffmpeg, ffmpegVersion] : cases) {
        Directories directories;
        directories.first.add(u"yt-dlp"_s, ytDlp);
        directories.first.add(u"ffmpeg"_s, ffmpeg);
        ToolEnvironment tools(directories.list());
        EXPECT_TRUE(BackgroundTask::waitForAll(std::chrono::seconds(10)));
        QCoreApplication::processEvents();
        EXPECT_EQ(tools.ffmpegVersion(), ffmpegVersion);
        EXPECT_EQ(tools.ytDlpVersion(), ytDlpVersion);
        EXPECT_EQ(directories.first.arguments(u"yt-dlp"_s), QStringList{u"--version"_s});
        EXPECT_EQ(directories.first.arguments(u"ffmpeg"_s), QStringList{u"-version"_s});
    }
}

TEST(ToolEnvironment, endsAHangingVersionQueryWithItself)
{
    Directories directories;
    directories.first.add(u"yt-dlp"_s, u"exec sleep 60"_s);
    ToolEnvironment tools(directories.list());
    EXPECT_FALSE(tools.ytDlpVersion());
}

} // namespace
} // namespace clipwren
