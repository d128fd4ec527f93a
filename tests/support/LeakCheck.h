#pragma once

#include <QStringList>

#include <functional>
#include <gtest/gtest.h>

namespace clipwren::test {

/// Fails a test that leaves a child process or an open descriptor behind.
class LeakCheck : public testing::EmptyTestEventListener {
public:
    void OnTestStart(const testing::TestInfo &) override;
    void OnTestEnd(const testing::TestInfo &) override;

private:
    QStringList m_descriptorsBefore;
};

/// Children of this process that run or were not reaped.
int childCount();
/// Waits for what other processes and threads do. False when it did not come in ten seconds.
bool eventually(const std::function<bool()> &condition);

} // namespace clipwren::test
