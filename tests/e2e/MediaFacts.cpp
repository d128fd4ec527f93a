#include "e2e/MediaFacts.h"

#include "support/ProgramRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <stdexcept>

namespace clipwren::test {
namespace {

using namespace Qt::StringLiterals;

QString outputOf(const QString &program, const QStringList &arguments)
{
    ProgramRun run(program, arguments, QProcessEnvironment::systemEnvironment());
    if (!run.waitForExit(std::chrono::seconds(60)) || run.exitStatus() != 0)
        throw std::runtime_error(program.toStdString()
                                 + " failed: " + run.standardError().toStdString());
    return run.standardOutput();
}

} // namespace

MediaFacts MediaFacts::of(const QString &path)
{
    const QString report = outputOf(u"ffprobe"_s,
                                    {u"-v"_s, u"error"_s, u"-print_format"_s, u"json"_s,
                                     u"-show_format"_s, u"-show_streams"_s, path});
    const QJsonObject root = QJsonDocument::fromJson(report.toUtf8()).object();
    const QJsonObject format = root[u"format"].toObject();
    MediaFacts facts;
    facts.container = format[u"format_name"].toString().section(u',', 0, 0);
    facts.durationSeconds = format[u"duration"].toString().toDouble();
    for (const QJsonValue value : root[u"streams"].toArray()) {
        const QJsonObject stream = value.toObject();
        const QString codec = stream[u"codec_name"].toString();
        if (stream[u"codec_type"].toString() == u"audio") {
            facts.audioCodec = codec;
        } else if (stream[u"codec_type"].toString() == u"video") {
            facts.videoCodec = codec;
            facts.height = stream[u"height"].toInt();
        }
    }
    return facts;
}

double frameLikeness(const QString &path, int frame, const QString &otherPath, int otherFrame)
{
    const auto only = [](int number) {
        return u"trim=start_frame=%1:end_frame=%2,setpts=0"_s.arg(number).arg(number + 1);
    };
    const QString filter =
        u"[0:v]%1[a];[1:v]%2[b];[a][b]psnr=stats_file=-"_s.arg(only(frame), only(otherFrame));
    const QString statistics = outputOf(u"ffmpeg"_s,
                                        {u"-v"_s, u"error"_s, u"-i"_s, path, u"-i"_s, otherPath,
                                         u"-filter_complex"_s, filter, u"-f"_s, u"null"_s, u"-"_s});
    static const QRegularExpression average(u"psnr_avg:(\\S+)"_s);
    const QRegularExpressionMatch match = average.match(statistics);
    if (!match.hasMatch())
        throw std::runtime_error("no such frame");
    return match.captured(1).toDouble();
}

} // namespace clipwren::test
