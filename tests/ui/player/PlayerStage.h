#pragma once

#include "NumberedVideo.h"
#include "platform/media/MediaPlayer.h"
#include "platform/media/PlayerModule.h"
#include "platform/media/VideoOutput.h"

#include <QPointer>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

namespace clipwren::test {

/// One module for all tests of the process.
PlayerModule &playerModule();

/// Runs the event loop until the condition holds. False after the time limit of 20 s.
bool waitUntil(const std::function<bool()> &condition);

/// For all tests that play. Opens what mpv and the display keep for good, so that it does not look
/// like a leak.
struct PlayerTest : testing::Test {
    static void SetUpTestSuite();
    /// Waits for the players to end, which they do in the background.
    ~PlayerTest() override;
};

/// Takes the pictures of one player and notes the number of each.
class PlayerStage {
public:
    /// Shows the player's pictures from now on.
    void show(MediaPlayer &player);
    /// Shows nothing any more.
    void close();
    bool isOpen() const { return m_output; }
    /// Any size of 16 to 9.
    void resize(QSize size);

    /// Absent where the picture was blank.
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

} // namespace clipwren::test
