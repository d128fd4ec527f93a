#include "core/ytdlp/DownloadProgress.h"

#include "support/Printing.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

TEST(DownloadProgress, readsBothFormsOfALine)
{
    const std::tuple<const char *, double, QString> cases[] = {
        {"download:  42.3%||1.20MiB/s||00:10", 0.423, u"1.20MiB/s · 00:10"_s},
        {"  42.3%||   1.20MiB/s||00:10", 0.423, u"1.20MiB/s · 00:10"_s},
        {"100%||NA||NA", 1.0, {}},
        {"download:100%||\tNA ||00:00", 1.0, u"00:00"_s},
        {"download:5%", 0.05, {}},
        {"download:5%||", 0.05, {}},
        {"download:5%||1MiB/s", 0.05, u"1MiB/s"_s},
        {"download:120%||a||b||c", 1.2, u"a · b"_s},
        {"download:x||50%||7", 0.5, u"50% · 7"_s},
        {"download:5%%||a||b", 0.05, u"a · b"_s},
    };
    for (const auto &[line, fraction, status] : cases) {
        const auto progress = DownloadProgress::fromLine(QString::fromUtf8(line));
        ASSERT_TRUE(progress) << line;
        EXPECT_DOUBLE_EQ(progress->fraction, fraction) << line;
        EXPECT_EQ(progress->status, status) << line;
    }
    const QString endless(50'000, u'x');
    EXPECT_LT(DownloadProgress::fromLine(u"5%||%1||%1"_s.arg(endless))->status.size(), 500);
    // Without the word it takes three fields and nothing else.
    for (const char *line : {"download:-1%||a||b", "download:nan%||a||b", "download:4,5%||a||b",
                             "download: %||a||b", "download:NA||NA||NA", " download:5%||a||b", "5%",
                             "5%||1MiB/s", "5%||a||b||c", "5%||a|b|c", "a||50%||b", "NA||NA||NA",
                             "[download] Destination: 50%||a||b", "[download]  42.3% of 10MiB"})
        EXPECT_FALSE(DownloadProgress::fromLine(QString::fromUtf8(line))) << line;
}

} // namespace
} // namespace clipwren
