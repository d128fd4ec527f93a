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
}

PlayerTest::~PlayerTest()
{
    EXPECT_TRUE(playerModule().waitForEndedPlayers(std::chrono::seconds(20)));
}

void PlayerStage::show(MediaPlayer &player)
{
    close();
    m_output = player.videoOutput();
    ASSERT_TRUE(m_output);
    QObject::connect(m_output, &VideoOutput::pictureChanged, &m_context,
                     [this] { m_pictures.push_back(readFrameNumber(m_output->picture())); });
    m_output->setSize(m_size);
}

void PlayerStage::close()
{
    if (!m_output)
        return;
    m_output->disconnect(&m_context);
    m_output->setSize({});
    m_output = nullptr;
}

void PlayerStage::resize(QSize size)
{
    m_size = size;
    if (m_output)
        m_output->setSize(size);
}

} // namespace clipwren::test
