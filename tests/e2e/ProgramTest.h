#pragma once

#include "support/Printing.h"
#include "support/ProgramRun.h"
#include "support/SampleSite.h"
#include "support/TemporaryHome.h"

#include <QDir>

#include <gtest/gtest.h>

namespace clipwren::test {

/// Runs the real program, without a screen and in a home of its own.
class ProgramTest : public testing::Test {
protected:
    struct Outcome {
        int exitStatus = -1;
        QString standardOutput;
        QString standardError;
    };

    static QString program() { return QStringLiteral(CLIPWREN_PROGRAM); }

    Outcome run(const QStringList &arguments) const
    {
        ProgramRun run(program(), arguments, m_home.environment());
        EXPECT_TRUE(run.waitForExit(std::chrono::seconds(150))) << "the program does not end";
        EXPECT_EQ(m_home.processes(), QStringList()) << "a tool was left running";
        return {run.exitStatus(), run.standardOutput(), run.standardError()};
    }

    TemporaryHome m_home;
};

/// The same with the sample site at hand.
class SaveTest : public ProgramTest {
protected:
    /// `page` is the name of a video of the site.
    Outcome save(const QString &page, const QStringList &options = {}) const
    {
        return run(QStringList{QStringLiteral("save")} + options + QStringList{address(page)});
    }

    QString address(const QString &page) const
    {
        return m_site.address(QStringLiteral("/watch?v=") + page);
    }

    SampleSite m_site;
};

} // namespace clipwren::test
