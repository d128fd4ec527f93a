#include "platform/text/DateTimeText.h"

#include "platform/text/IcuText.h"

#include <clocale>
#include <memory>
#include <unicode/dtptngen.h>
#include <unicode/simpleformatter.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>
#include <utility>

namespace clipwren {
namespace {

icu::UnicodeString patternOf(const std::unique_ptr<icu::DateFormat> &format)
{
    icu::UnicodeString pattern;
    if (const auto *simple = dynamic_cast<const icu::SimpleDateFormat *>(format.get()))
        simple->toPattern(pattern);
    return pattern;
}

/// The locale's own words between date and time, as in "at".
icu::UnicodeString dateTimePattern(const icu::Locale &locale, UErrorCode &status)
{
    using Format = std::unique_ptr<icu::DateFormat>;
    const auto date =
        patternOf(Format(icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, locale)));
    const auto time =
        patternOf(Format(icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale)));
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status))
        return {};
    const auto &glue = generator->getDateTimeFormat(UDAT_LONG, status);
    icu::UnicodeString pattern;
    // Its quotes are those of a date pattern, so they must stay.
    icu::SimpleFormatter(icu::UnicodeString(glue).findAndReplace(u"'", u"''"), 2, 2, status)
        .format(time, date, pattern, status);
    return pattern;
}

} // namespace

QLocale localeNamed(const QString &name)
{
    // QLocale passes over what follows the "@".
    static constexpr std::pair<QStringView, QLocale::Script> scripts[] = {
        {u"@latin", QLocale::LatinScript},
        {u"@cyrillic", QLocale::CyrillicScript},
        {u"@devanagari", QLocale::DevanagariScript},
    };
    const QLocale locale(name);
    for (const auto &[modifier, script] : scripts) {
        if (name.endsWith(modifier))
            return {locale.language(), script, locale.territory()};
    }
    return locale;
}

QLocale dateLocale()
{
    const QLocale locale = localeNamed(QString::fromLatin1(std::setlocale(LC_TIME, nullptr)));
    return locale.language() == QLocale::C ? QLocale() : locale;
}

QString dateTimeText(const QDateTime &time, const QLocale &locale)
{
    if (!time.isValid())
        return {};
    const icu::Locale icu = icuLocale(locale);
    UErrorCode status = U_ZERO_ERROR;
    icu::SimpleDateFormat format(dateTimePattern(icu, status), icu, status);
    icu::UnicodeString text;
    if (U_FAILURE(status))
        return {};
    // ICU knows fewer kinds of time zone, and the days of other texts are Qt's.
    const QDateTime local = time.toLocalTime();
    const QDateTime asIfThere(local.date(), local.time(), Qt::UTC);
    format.setTimeZone(*icu::TimeZone::getGMT());
    format.format(static_cast<UDate>(asIfThere.toMSecsSinceEpoch()), text);
    return toQString(text);
}

} // namespace clipwren
