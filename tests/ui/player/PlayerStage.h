#pragma once

#include "NumberedVideo.h"
#include "platform/media/MediaPlayer.h"
#include "platform/media/PlayerModule.h"
#include "platform/media/VideoOutput.h"

#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>
#include <vector>

namespace clipwren::test {

/// One module for all tests of the process.
inline PlayerModule &playerModule()
{
    static PlayerModule module;
    return module;
}

/// Runs the event loop until the condition holds. False after the time limit.
template <typename Condition> bool waitUntil(const Condition &condition)
{
    return QTest::qWaitFor(condition, 20'000);
}

/// Takes the pictures of one player and notes the number of each; absent where it was blank.
class PlayerStage {
public:
    /// Shows the player's pictures from now on.
    void show(MediaPlayer &player)
    {
        close();
        m_output = player.videoOutput();
        ASSERT_TRUE(m_output);
        QObject::connect(m_output, &VideoOutput::pictureChanged, &m_context,
                         [this] { m_pictures.push_back(readFrameNumber(m_output->picture())); });
        m_output->setSize(m_size);
    }
    void close()
    {
        if (!m_output)
            return;
        m_output->disconnect(&m_context);
        m_output->setSize({});
        m_output = nullptr;
    }
    /// Any size of 16 to 9.
    void resize(QSize size)
    {
        m_size = size;
        if (m_output)
            m_output->setSize(size);
    }

    const std::vector<std::optional<FrameNumber>> &pictures() const { return m_pictures; }
    std::optional<FrameNumber> latest() const
    {
        return m_pictures.empty() ? std::nullopt : m_pictures.back();
    }
    void forgetPictures() { m_pictures.clear(); }
    /// Waits until the frame is shown.
    bool waitFor(const FrameNumber &number)
    {
        return waitUntil([&] { return latest() == number; });
    }

private:
    QObject m_context; // of the connection
    QPointer<VideoOutput> m_output;
    QSize m_size{320, 180};
    std::vector<std::optional<FrameNumber>> m_pictures;
};

/// For all tests that play.
struct PlayerTest : testing::Test {
    /// Opens what mpv and the display keep for good, so that it does not look like a leak.
    static void SetUpTestSuite()
    {
        PlayerStage stage;
        const auto player = playerModule().makePlayer();
        player->load(numberedVideo(1));
        stage.show(*player);
        EXPECT_TRUE(stage.waitFor({1, 0})) << player->failure().toStdString();
    }
    /// Waits for the players to end, which they do in the background.
    ~PlayerTest() override
    {
        EXPECT_TRUE(playerModule().waitForEndedPlayers(std::chrono::seconds(20)));
    }
};

} // namespace clipwren::test
