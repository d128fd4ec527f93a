#include "PlayerStage.h"

#include <QTest>

namespace clipwren::test {

PlayerModule &playerModule()
{
    static PlayerModule module;
    return module;
}

bool waitUntil(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 20'000);
}

void PlayerTest::SetUpTestSuite()
{
    PlayerStage stage;
    const auto player = playerModule().makePlayer();
    player->load(numberedVideo(1));
    stage.show(*player);
    EXPECT_TRUE(stage.waitFor({1, 0})) << player->failure().toStdString();
    stage.moveToNewWindow();
    EXPECT_TRUE(stage.waitFor({1, 0}));
}

void PlayerStage::show(MediaPlayer &player)
{
    delete m_surface;
    QWidget *const parent = m_otherWindow ? m_otherWindow.get() : &m_window;
    m_surface = qobject_cast<QOpenGLWidget *>(playerModule().makeSurface(player, parent));
    m_surface->setGeometry(parent->rect());
    QObject::connect(m_surface, &QOpenGLWidget::aboutToCompose, m_surface,
                     [this] { m_pictures.push_back(readFrameNumber(drawnPicture(*m_surface))); });
    m_surface->show();
    parent->show();
}

void PlayerStage::moveToNewWindow()
{
    auto window = std::make_unique<QWidget>();
    window->resize(m_window.size());
    m_surface->setParent(window.get());
    m_surface->show();
    window->show();
    m_window.hide();
    m_otherWindow = std::move(window);
}

} // namespace clipwren::test
