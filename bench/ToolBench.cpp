// Compares what the core adds with the bare operations under it. The pairs run in turn, so that a
// busy machine slows both sides alike; the medians count.

#include "core/process/ProcessRunner.h"
#include "core/ytdlp/VideoInfo.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char **environ;

namespace {

using namespace clipwren;
using namespace Qt::StringLiterals;
using Clock = std::chrono::steady_clock;

double millisecondsOf(const std::function<void()> &function)
{
    const auto start = Clock::now();
    function();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void compare(const char *name, double bound, int rounds, const std::function<void()> &ours,
             const std::function<void()> &bare)
{
    std::vector<double> oursTimes;
    std::vector<double> bareTimes;
    for (int round = 0; round < rounds; ++round) {
        oursTimes.push_back(millisecondsOf(ours));
        bareTimes.push_back(millisecondsOf(bare));
    }
    const double ratio = median(oursTimes) / median(bareTimes);
    std::printf("%-24s %.2f (bound %.2f)  %.3f ms against %.3f ms\n", name, ratio, bound,
                median(oursTimes), median(bareTimes));
}

/// Starts a program with its output in a pipe, reads the pipe to its end, and counts the lines.
qint64 countLinesBare(std::vector<const char *> arguments)
{
    arguments.push_back(nullptr);
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return -1;
    posix_spawn_file_actions_t actions{};
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    pid_t process = 0;
    ::posix_spawn(&process, arguments[0], &actions, nullptr,
                  const_cast<char *const *>(arguments.data()), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(ends[1]);

    qint64 lines = 0;
    std::vector<char> buffer(64 * 1024);
    for (ssize_t count = 0; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;)
        lines += std::count(buffer.begin(), buffer.begin() + count, '\n');
    ::close(ends[0]);
    ::waitpid(process, nullptr, 0);
    return lines;
}

QByteArray largeMetadata()
{
    QJsonArray formats;
    for (int index = 0; index < 2'000; ++index) {
        formats.append(QJsonObject{
            {u"format_id"_s, QString::number(index)},
            {u"vcodec"_s, u"avc1.64001F"_s},
            {u"acodec"_s, u"none"_s},
            {u"ext"_s, u"mp4"_s},
            {u"height"_s, 1080},
            {u"width"_s, 1920},
            {u"fps"_s, 29.97},
            {u"filesize"_s, 123456789 + index},
            {u"filesize_approx"_s, QJsonValue::Null},
            {u"tbr"_s, 2345.5},
            {u"vbr"_s, 2200.25},
            {u"abr"_s, 0},
            {u"url"_s, QString(u"https://media.example/"_s + QString(1'000, u'x'))},
            {u"http_headers"_s, QJsonObject{{u"User-Agent"_s, QString(150, u'a')}}},
        });
    }
    const QJsonObject video{{u"title"_s, u"A long list"_s}, {u"formats"_s, formats}};
    return QJsonDocument(video).toJson(QJsonDocument::Compact);
}

} // namespace

int main()
{
    const QByteArray metadata = largeMetadata();
    std::printf("metadata: %.1f MB\n", static_cast<double>(metadata.size()) / 1e6);
    compare(
        "decode metadata", 2.0, 25, [&] { VideoInfo::fromJson(metadata); },
        [&] { QJsonDocument::fromJson(metadata); });

    compare(
        "start a program", 1.5, 300,
        [] {
            ProcessRunner::runCapturing({u"/bin/true"_s, {}});
        },
        [] { countLinesBare({"/bin/true"}); });

    qint64 lines = 0;
    compare(
        "stream a million lines", 1.5, 9,
        [&] {
            ProcessRunner::runStreaming({u"/usr/bin/seq"_s, {u"1000000"_s}},
                                        [&](QStringView) { ++lines; });
        },
        [] {
            countLinesBare({"/usr/bin/seq", "1000000"});
        });
    if (lines < 9'000'000)
        std::printf("lines were lost: %lld\n", static_cast<long long>(lines));
    return 0;
}
