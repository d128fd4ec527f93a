#include "core/ytdlp/DownloadProgress.h"

#include <gtest/gtest.h>

namespace clipwren {
namespace {

TEST(DownloadProgress, readsBothFormsOfALine)
{
    struct Case {
        const char *line;
        std::optional<double> fraction;
        const char *status = "";
    };
    const Case cases[] = {
        {"download:  42.3%||1.20MiB/s||00:10", 0.423, "1.20MiB/s · 00:10"},
        {"  42.3%||   1.20MiB/s||00:10", 0.423, "1.20MiB/s · 00:10"},
        {"100%||NA||NA", 1.0},
        {"download:100%||\tNA ||00:00", 1.0, "00:00"},
        {"download:5%", 0.05},
        {"download:5%||", 0.05},
        {"download:5%||1MiB/s", 0.05, "1MiB/s"},
        {"download:120%||a||b||c", 1.2, "a · b"},
        {"download:x||50%||7", 0.5, "50% · 7"},
        {"download:5%%||a||b", 0.05, "a · b"},
        {"download:-1%||a||b", std::nullopt},
        {"download:nan%||a||b", std::nullopt},
        {"download:4,5%||a||b", std::nullopt},
        {"download: %||a||b", std::nullopt},
        {"download:NA||NA||NA", std::nullopt},
        {" download:5%||a||b", std::nullopt},
        // Without the word, only the three fields and nothing else.
        {"5%", std::nullopt},
        {"5%||1MiB/s", std::nullopt},
        {"5%||a||b||c", std::nullopt},
        {"5%||a|b|c", std::nullopt},
        {"a||50%||b", std::nullopt},
        {"NA||NA||NA", std::nullopt},
        {"[download] Destination: 50%||a||b", std::nullopt},
        {"[download]  42.3% of 10MiB", std::nullopt},
    };
    for (const Case &c : cases) {
        const auto progress = DownloadProgress::fromLine(QString::fromUtf8(c.line));
        ASSERT_EQ(progress.has_value(), c.fraction.has_value()) << c.line;
        if (progress) {
            EXPECT_DOUBLE_EQ(progress->fraction, *c.fraction) << c.line;
            EXPECT_EQ(progress->status.toStdString(), c.status) << c.line;
        }
    }
}

} // namespace
} // namespace clipwren
