#include "workflow/download/FetchErrorText.h"

#include "core/process/ProcessRunner.h"

#include <QCoreApplication>

#include <array>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

struct Sentence {
    std::array<QLatin1StringView, 2> signs; ///< any of these in the error's description
    QString text;
};

} // namespace

QString friendlyFetchError(const std::exception &error)
{
    if (dynamic_cast<const ProcessRunner::TimeoutError *>(&error)) {
        return QCoreApplication::translate(
            "FetchErrorText",
            "Timed out after 60 s. YouTube may be rate-limiting — wait a minute and try again.");
    }
    const Sentence sentences[] = {
        {{{"Sign in to confirm"_L1, "not a bot"_L1}},
         QCoreApplication::translate("FetchErrorText",
                                     "YouTube wants browser cookies for this video. Try another "
                                     "video, or sign in via Safari first.")},
        {{{"Private video"_L1, "members-only"_L1}},
         QCoreApplication::translate("FetchErrorText", "This video is private or members-only.")},
        {{{"Video unavailable"_L1, "region"_L1}},
         QCoreApplication::translate("FetchErrorText",
                                     "Video unavailable (may be region-locked or removed).")},
    };
    const QString description = errorDescription(error);
    for (const Sentence &sentence : sentences) {
        for (const QLatin1StringView sign : sentence.signs) {
            if (description.contains(sign))
                return sentence.text;
        }
    }
    return QCoreApplication::translate("FetchErrorText", "Couldn't fetch video info: %1")
        .arg(errorSummary(error));
}

} // namespace clipwren
