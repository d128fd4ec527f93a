#include "core/json/JsonObjectReader.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonParseError>

#include <cmath>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

QJsonDocument parse(const QByteArray &utf8)
{
    QJsonParseError error{};
    QJsonDocument document = QJsonDocument::fromJson(utf8, &error);
    if (error.error != QJsonParseError::NoError) {
        throw DecodingError(QCoreApplication::translate("Error", "Malformed JSON at byte %1: %2")
                                .arg(error.offset)
                                .arg(error.errorString()));
    }
    return document;
}

QString elementPath(const QString &arrayPath, qsizetype index)
{
    return u"%1[%2]"_s.arg(arrayPath).arg(index);
}

[[noreturn]] void throwWrongType(const QString &path, const QString &expected)
{
    throw DecodingError(
        QCoreApplication::translate("Error", "%1: expected %2").arg(path, expected));
}

} // namespace

JsonObjectReader::JsonObjectReader(QJsonObject object, QString path, qsizetype index)
    : m_object(std::move(object)), m_path(std::move(path)), m_index(index)
{
}

JsonObjectReader JsonObjectReader::fromDocument(const QByteArray &utf8)
{
    const QJsonDocument document = parse(utf8);
    if (!document.isObject())
        throw DecodingError(
            QCoreApplication::translate("Error", "The document is not a JSON object"));
    return {document.object(), QString()};
}

std::optional<QString> JsonObjectReader::text(QLatin1StringView key) const
{
    const auto value = present(key);
    if (!value)
        return std::nullopt;
    if (!value->isString())
        fail(key, QCoreApplication::translate("Error", "text"));
    return value->toString();
}

std::optional<bool> JsonObjectReader::boolean(QLatin1StringView key) const
{
    const auto value = present(key);
    if (!value)
        return std::nullopt;
    if (!value->isBool())
        fail(key, QCoreApplication::translate("Error", "true or false"));
    return value->toBool();
}

std::optional<double> JsonObjectReader::number(QLatin1StringView key) const
{
    const auto value = present(key);
    if (!value)
        return std::nullopt;
    if (!value->isDouble())
        fail(key, QCoreApplication::translate("Error", "a number"));
    return value->toDouble();
}

std::optional<qint64> JsonObjectReader::integer(QLatin1StringView key) const
{
    const auto value = present(key);
    if (!value)
        return std::nullopt;
    // toInteger() falls back to its argument when the number has no exact 64-bit form, so two
    // different fallbacks tell such a number from a real one.
    if (!value->isDouble() || value->toInteger(0) != value->toInteger(1))
        fail(key, QCoreApplication::translate("Error", "a whole number"));
    return value->toInteger();
}

std::optional<JsonObjectReader> JsonObjectReader::object(QLatin1StringView key) const
{
    const auto value = present(key);
    if (!value)
        return std::nullopt;
    if (!value->isObject())
        fail(key, QCoreApplication::translate("Error", "an object"));
    return JsonObjectReader(value->toObject(), pathOf(key));
}

std::optional<std::vector<JsonObjectReader>> JsonObjectReader::objects(QLatin1StringView key) const
{
    const auto value = present(key);
    if (!value)
        return std::nullopt;
    if (!value->isArray())
        fail(key, QCoreApplication::translate("Error", "an array"));
    return readersOf(value->toArray(), pathOf(key));
}

QString JsonObjectReader::requiredText(QLatin1StringView key) const
{
    auto value = text(key);
    if (!value)
        fail(key, QCoreApplication::translate("Error", "text"));
    return *std::move(value);
}

qint64 JsonObjectReader::requiredInteger(QLatin1StringView key) const
{
    const auto value = integer(key);
    if (!value)
        fail(key, QCoreApplication::translate("Error", "a whole number"));
    return *value;
}

void JsonObjectReader::fail(QLatin1StringView key, const QString &expected) const
{
    throwWrongType(pathOf(key), expected);
}

std::vector<JsonObjectReader> JsonObjectReader::readersOf(const QJsonArray &array,
                                                          const QString &path)
{
    std::vector<JsonObjectReader> readers;
    readers.reserve(static_cast<size_t>(array.size()));
    for (qsizetype index = 0; index < array.size(); ++index) {
        const QJsonValue element = array.at(index);
        if (!element.isObject())
            throwWrongType(elementPath(path, index),
                           QCoreApplication::translate("Error", "an object"));
        readers.push_back({element.toObject(), path, index});
    }
    return readers;
}

std::optional<QJsonValue> JsonObjectReader::present(QLatin1StringView key) const
{
    QJsonValue value = m_object.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return value;
}

QString JsonObjectReader::pathOf(QLatin1StringView key) const
{
    const QString here = m_index < 0 ? m_path : elementPath(m_path, m_index);
    return here.isEmpty() ? QString(key) : here + u'.' + key;
}

} // namespace clipwren
