#pragma once

#include "core/json/JsonObjectReader.h"

#include <QDateTime>
#include <QUuid>

#include <optional>

namespace clipwren {

/// What the library's files hold in fields: identifiers, times, and values that may be absent.

/// An identifier's upper-case text without braces; lower case is read too, nothing else.
/// Throws `DecodingError`.
QUuid requiredId(const JsonObjectReader &reader, QLatin1StringView key);
QString idText(const QUuid &id);

/// A time as in "2026-03-01T14:05:09Z"; reads real calendar dates in exactly this form.
/// Throws `DecodingError`.
QDateTime requiredTimestamp(const JsonObjectReader &reader, QLatin1StringView key);
/// The time is one that `storableTimestamp` gave.
QString timestampText(const QDateTime &time);
/// The time now in UTC, cut to the whole second, so that it reads back from a file as it was.
QDateTime currentTimestamp();
/// The same instant in UTC and whole seconds. A time that `timestampText` cannot write (invalid,
/// or outside the years 1 to 9999) becomes the current one.
QDateTime storableTimestamp(const QDateTime &time);

/// The number, or absent when JSON has no way to write it.
std::optional<double> storableNumber(std::optional<double> number);

/// Leaves the key out when the value is absent.
void insertPresent(QJsonObject &object, QLatin1StringView key, const std::optional<QString> &text);
void insertPresent(QJsonObject &object, QLatin1StringView key, std::optional<double> number);

} // namespace clipwren
