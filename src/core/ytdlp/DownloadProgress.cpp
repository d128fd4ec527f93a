#include "core/ytdlp/DownloadProgress.h"

#include "core/text/Numbers.h"

#include <QStringList>

#include <algorithm>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// The tool reads the word as the kind of template and leaves it out of its lines. Versions that
// print it are understood as well.
constexpr QStringView prefix = u"download:";

bool isBlank(QChar character)
{
    return character == u' ' || character == u'\t';
}

QStringView withoutOuterBlanks(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QList<QStringView> piecesOf(QStringView fields)
{
    QList<QStringView> pieces = fields.split(u'|');
    for (QStringView &piece : pieces)
        piece = withoutOuterBlanks(piece);
    return pieces;
}

/// A line without the prefix could be anything; only the three fields and nothing else will do.
bool isBareProgress(QStringView line)
{
    const QList<QStringView> pieces = line.split(u'|');
    return pieces.size() == 5 && pieces[1].isEmpty() && pieces[3].isEmpty()
        && withoutOuterBlanks(pieces[0]).endsWith(u'%');
}

std::optional<double> fractionIn(const QList<QStringView> &pieces)
{
    const auto piece = std::find_if(pieces.begin(), pieces.end(),
                                    [](QStringView text) { return text.endsWith(u'%'); });
    if (piece == pieces.end())
        return std::nullopt;
    const QString percentage = piece->toString().remove(u'%');
    const auto number = readNumber(withoutOuterBlanks(percentage));
    return number && *number >= 0 ? std::optional(*number / 100) : std::nullopt;
}

// Far more than a speed or a time takes.
constexpr qsizetype longestField = 100;

QString statusIn(const QList<QStringView> &pieces)
{
    QStringList known;
    for (const qsizetype field : {2, 4}) {
        const QStringView text = pieces.value(field);
        if (!text.isEmpty() && text != u"NA")
            known.append(text.left(longestField).toString());
    }
    return known.join(u" · "_s);
}

} // namespace

std::optional<DownloadProgress> DownloadProgress::fromLine(QStringView line)
{
    if (line.startsWith(prefix))
        line = line.sliced(prefix.size());
    else if (!isBareProgress(line))
        return std::nullopt;
    const QList<QStringView> pieces = piecesOf(line);
    const auto fraction = fractionIn(pieces);
    if (!fraction)
        return std::nullopt;
    return DownloadProgress{*fraction, statusIn(pieces)};
}

QString DownloadProgress::progressTemplate()
{
    return u"download:%(progress._percent_str)s||%(progress._speed_str)s||"
           "%(progress._eta_str)s"_s;
}

std::optional<QString> reportedPath(QStringView line)
{
    constexpr QStringView pathPrefix = u"filepath:";
    if (!line.startsWith(pathPrefix))
        return std::nullopt;
    return line.sliced(pathPrefix.size()).toString();
}

} // namespace clipwren
