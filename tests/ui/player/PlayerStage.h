#pragma once

#include "NumberedVideo.h"
#include "platform/media/MediaPlayer.h"
#include "ui/player/PlayerModule.h"

#include <QOpenGLWidget>
#include <QPointer>
#include <QVBoxLayout>
#include <QWidget>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace clipwren::test {

/// One module for all tests of the process.
PlayerModule &playerModule();

/// Runs the event loop until the condition holds. False after the time limit of 20 s.
bool waitUntil(const std::function<bool()> &condition);

/// For all tests that play. Opens what OpenGL, mpv and the display keep for good, so that it does
/// not look like a leak.
struct PlayerTest : testing::Test {
    static void SetUpTestSuite();
};

/// A window with one surface, which notes the number of every picture that it puts on screen.
class PlayerStage {
public:
    PlayerStage() { m_window.resize(320, 180); }

    /// Shows the player's pictures from now on.
    void show(MediaPlayer &player);
    void removeSurface() { delete m_surface; }
    QOpenGLWidget *surface() const { return m_surface; }
    /// Moves the surface to another window, which replaces this one.
    void moveToNewWindow();

    /// Absent where the picture was blank.
    const std::vector<std::optional<FrameNumber>> &pictures() const { return m_pictures; }
    std::optional<FrameNumber> latest() const
    {
        return m_pictures.empty() ? std::nullopt : m_pictures.back();
    }
    void forgetPictures() { m_pictures.clear(); }
    /// Waits until the frame is on screen.
    bool waitFor(const FrameNumber &number)
    {
        return waitUntil([&] { return latest() == number; });
    }

private:
    QWidget m_window;
    std::unique_ptr<QWidget> m_otherWindow;
    QPointer<QOpenGLWidget> m_surface;
    std::vector<std::optional<FrameNumber>> m_pictures;
};

} // namespace clipwren::test
