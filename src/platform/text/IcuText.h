#pragma once

#include <QLocale>
#include <QString>

#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace clipwren {

/// ICU's locale of the same language and country. ICU has no words for the "C" locale.
inline icu::Locale icuLocale(const QLocale &locale)
{
    return locale.language() == QLocale::C ? icu::Locale::getEnglish()
                                           : icu::Locale(locale.name().toLatin1().constData());
}

inline QString toQString(const icu::UnicodeString &text)
{
    return QString::fromUtf16(text.getBuffer(), text.length());
}

} // namespace clipwren
