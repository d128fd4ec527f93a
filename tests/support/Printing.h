#pragma once

#include <QString>

#include <ostream>

QT_BEGIN_NAMESPACE

/// Lets a failed comparison show texts as texts. Found by GoogleTest through their type.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

QT_END_NAMESPACE
