#pragma once

#include "core/json/JsonObjectReader.h"

#include <QDateTime>
#include <QUuid>

#include <optional>

namespace clipwren {

/// An identifier's upper-case text without braces; lower case is read too, nothing else.
/// Throws `DecodingError`.
QUuid requiredId(const JsonObjectReader &reader, QLatin1StringView key);
QString idText(const QUuid &id);

/// Throws `DecodingError` unless the text has the form of `timestampText`.
QDateTime requiredTimestamp(const JsonObjectReader &reader, QLatin1StringView key);

/// The number, or absent when JSON has no way to write it.
std::optional<double> storableNumber(std::optional<double> number);

/// Leaves the key out when the value is absent.
void insertPresent(QJsonObject &object, QLatin1StringView key, const std::optional<QString> &text);
void insertPresent(QJsonObject &object, QLatin1StringView key, std::optional<double> number);

} // namespace clipwren
