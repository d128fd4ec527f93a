#include "ui/components/Theme.h"

#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace {

/// A theme for all tests, without motion that they would have to wait for.
class ThemeEnvironment : public testing::Environment {
public:
    void SetUp() override
    {
        m_theme = std::make_unique<clipwren::Theme>();
        m_theme->forceReducedMotion(true);
        // Opens what Qt keeps open from the first active window on.
        QWidget window;
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void TearDown() override { m_theme.reset(); }

private:
    std::unique_ptr<clipwren::Theme> m_theme;
};

[[maybe_unused]] const auto *const environment =
    testing::AddGlobalTestEnvironment(new ThemeEnvironment);

} // namespace
