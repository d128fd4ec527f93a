#pragma once

#include <QLocale>
#include <QString>

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace clipwren {

/// ICU's locale of the same language, script and country. ICU has no words for the "C" locale.
inline icu::Locale icuLocale(const QLocale &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    return locale.language() == QLocale::C
        ? icu::Locale::getEnglish()
        : icu::Locale::forLanguageTag(locale.bcp47Name().toStdString(), status);
}

inline QString toQString(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace clipwren
