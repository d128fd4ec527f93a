#include "core/library/DownloadStore.h"

#include "core/library/JsonFields.h"

#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

// One value that cannot be written would make the whole file unreadable at the next start.
DownloadRecord storable(DownloadRecord record)
{
    record.durationSeconds = storableNumber(record.durationSeconds);
    record.trimStart = storableNumber(record.trimStart);
    record.trimEnd = storableNumber(record.trimEnd);
    record.createdAt = storableTimestamp(record.createdAt);
    return record;
}

} // namespace

DownloadStore::DownloadStore(const QString &folder, QObject *parent)
    : QObject(parent), m_file(folder, u"downloads.json"_s), m_records(m_file.load<DownloadRecord>())
{
}

void DownloadStore::add(DownloadRecord record)
{
    m_records.prepend(storable(std::move(record)));
    save();
}

void DownloadStore::restore(const DownloadRecord &record, const QUuid &next)
{
    m_records.insert(std::ranges::find(m_records, next, &DownloadRecord::id), record);
    save();
}

void DownloadStore::update(DownloadRecord record)
{
    const auto place = std::ranges::find(m_records, record.id, &DownloadRecord::id);
    if (place == m_records.end())
        return;
    *place = storable(std::move(record));
    save();
}

void DownloadStore::remove(const DownloadRecord &record)
{
    // The record may be one of the list, which moves while it is searched.
    m_records.removeIf([id = record.id](const DownloadRecord &other) { return other.id == id; });
    save();
}

void DownloadStore::clear()
{
    m_records.clear();
    save();
}

QString DownloadStore::defaultDownloadDirectory()
{
    QString movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    if (movies.isEmpty())
        movies = QDir::home().filePath(u"Movies"_s);
    return QDir(movies).filePath(u"Clipwren"_s);
}

void DownloadStore::saveAgain()
{
    if (m_saveError)
        save();
}

void DownloadStore::save()
{
    m_saveError = m_file.save(m_records);
    Q_EMIT changed();
}

} // namespace clipwren
