#include "core/text/DecisiveLine.h"

#include "core/text/BoundedText.h"

#include <algorithm>
#include <array>
#include <initializer_list>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// ffmpeg's last line, which yt-dlp repeats as its own error.
constexpr QLatin1StringView closingWords = "Conversion failed!"_L1;

// Errors of the system stand far above the last line, before the encoder's statistics.
constexpr std::array refusals{
    "No space left on device"_L1, "Disk quota exceeded"_L1,       "Input/output error"_L1,
    "Permission denied"_L1,       "Read-only file system"_L1,     "File too large"_L1,
    "Cannot allocate memory"_L1,  "No such file or directory"_L1,
};

constexpr std::array signsOfFailure{
    "error"_L1,  "fail"_L1,    "invalid"_L1, "could not"_L1,   "cannot"_L1,
    "unable"_L1, "unknown"_L1, "no such"_L1, "unsupported"_L1, "not found"_L1,
};

template <typename Signs> bool containsAny(QStringView line, const Signs &signs)
{
    return std::any_of(signs.begin(), signs.end(), [&](QLatin1StringView sign) {
        return line.contains(sign, Qt::CaseInsensitive);
    });
}

} // namespace

QString decisiveLine(QStringView log)
{
    constexpr qsizetype maximumLength = 1000;
    enum Rank { none, last, failure, refusal, error };
    QStringView best;
    Rank bestRank = none;
    for (const QStringView text : log.tokenize(u'\n')) {
        const QStringView line = text.trimmed();
        if (line.isEmpty())
            continue;
        const Rank rank = line.endsWith(closingWords) ? none
            : line.startsWith("ERROR:"_L1)            ? error
            : containsAny(line, refusals)             ? refusal
            : containsAny(line, signsOfFailure)       ? failure
                                                      : last;
        if (rank >= bestRank) {
            best = line;
            bestRank = rank;
        }
    }
    return boundedText(best.toString(), maximumLength);
}

} // namespace clipwren
