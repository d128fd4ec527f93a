#include "app/save/SaveArguments.h"

#include "core/text/Duration.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

OutputFormat parseFormat(const QString &name)
{
    if (const auto format = outputFormatWithRawValue(name))
        return *format;
    QStringList names;
    for (const OutputFormat format : allOutputFormats)
        names.append(rawValue(format));
    throw UsageError(
        QCoreApplication::translate("SaveArguments", "“%1” is no format. Choose one of %2.")
            .arg(name, names.join(u", "_s)));
}

TrimRange parseRange(const QString &text)
{
    const qsizetype dash = text.indexOf(u'-');
    const auto start = parseTime(QStringView(text).left(std::max<qsizetype>(dash, 0)));
    const auto end = parseTime(QStringView(text).mid(dash + 1));
    if (dash < 0 || !start || !end) {
        throw UsageError(
            QCoreApplication::translate(
                "SaveArguments",
                "“%1” is no time range. Write START-END, as in 12.5-42 or 1:05-1:02:30.")
                .arg(text));
    }
    if (*end <= *start)
        throw UsageError(QCoreApplication::translate("SaveArguments",
                                                     "The time range “%1” ends before it starts.")
                             .arg(text));
    // The downloader leaves so short a range alone and saves the whole video.
    const TrimRange range{*start, *end};
    if (!range.isLongEnough())
        throw UsageError(
            QCoreApplication::translate("SaveArguments", "The time range “%1” is too short to cut.")
                .arg(text));
    return range;
}

} // namespace

QString SaveArguments::usage()
{
    QStringList formats;
    for (const OutputFormat format : allOutputFormats)
        formats.append(rawValue(format));
    const QString last = formats.takeLast();
    return QCoreApplication::translate(
               "SaveArguments",
               "Usage: clipwren save [--format FORMAT] [--trim START-END] [--title TEXT] ADDRESS\n"
               "\n"
               "  --format FORMAT   %1 or %2\n"
               "  --trim START-END  keep this range only; times as 12.5 or [h:]mm:ss[.s]\n"
               "  --title TEXT      the file's title instead of the video's\n")
        .arg(formats.join(u", "), last);
}

SaveArguments SaveArguments::parse(const QStringList &arguments)
{
    const QCommandLineOption format(u"format"_s, {}, u"format"_s);
    const QCommandLineOption trim(u"trim"_s, {}, u"range"_s);
    const QCommandLineOption title(u"title"_s, {}, u"text"_s);
    QCommandLineParser parser;
    parser.addOptions({format, trim, title});
    // The parser skips the first argument, where a program's name stands.
    if (!parser.parse(QStringList{u"save"_s} + arguments))
        throw UsageError(parser.errorText());

    const QStringList addresses = parser.positionalArguments();
    if (addresses.size() != 1)
        throw UsageError(
            addresses.isEmpty()
                ? QCoreApplication::translate("SaveArguments", "An address is missing.")
                : QCoreApplication::translate("SaveArguments", "One address at a time, please."));
    SaveArguments result;
    result.address = addresses.first();
    // The look-up passes over a blank address without a word.
    if (result.address.trimmed().isEmpty())
        throw UsageError(QCoreApplication::translate("SaveArguments", "The address is empty."));
    if (parser.isSet(format))
        result.format = parseFormat(parser.value(format));
    if (parser.isSet(trim))
        result.trim = parseRange(parser.value(trim));
    if (parser.isSet(title))
        result.title = parser.value(title);
    return result;
}

} // namespace clipwren
