#include "app/save/ProgressReport.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <pty.h>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;
using File = std::unique_ptr<FILE, int (*)(FILE *)>;

TEST(ProgressReport, writesALineAtEachQuarterToALog)
{
    const File file(std::tmpfile(), &std::fclose);
    {
        ProgressReport report(file.get());
        for (const double fraction : {0.0, 0.1, 0.26, 0.27, 1.5, 0.0})
            report.progress(u"Loading"_s, {fraction, fraction > 1 ? u"1 MB/s"_s : QString()});
        report.progress(u"Cutting"_s, {-1, {}});
        report.status({});
        report.status(u"a\x1b[2Jb\nc\u202E"_s);
    }
    std::rewind(file.get());
    std::array<char, 200> text{};
    const auto size = std::fread(text.data(), 1, text.size(), file.get());
    EXPECT_EQ(std::string(text.data(), size),
              "Loading 0%\nLoading 26%\nLoading 100%  1 MB/s\nCutting 0%\na [2Jb c\n");
}

TEST(ProgressReport, renewsOneLineOfATerminal)
{
    int terminal = -1;
    int ours = -1;
    const winsize size{24, 12, 0, 0};
    ASSERT_EQ(::openpty(&terminal, &ours, nullptr, nullptr, &size), 0);
    const File file(::fdopen(ours, "w"), &std::fclose);
    {
        ProgressReport report(file.get());
        report.progress(u"Loading"_s, {0.5, u"beyond the width"_s});
        report.line(u"Done"_s);
        report.status(u"More"_s);
    }
    std::array<char, 200> text{};
    const ssize_t count = ::read(terminal, text.data(), text.size());
    ::close(terminal);
    const std::string renew = "\r\x1b[K";
    EXPECT_EQ(std::string(text.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))),
              renew + "Loading 50%" + renew + "Done\r\n" + renew + "More" + renew);
}

} // namespace
} // namespace clipwren
