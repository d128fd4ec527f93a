#include "core/library/HistoryStore.h"

#include "core/library/JsonFields.h"

#include <QUrl>

#include <algorithm>
#include <iterator>
#include <limits>

namespace clipwren {

namespace {

using namespace Qt::StringLiterals;

constexpr QStringView shortLinkHost = u"youtu.be";
constexpr QStringView mainDomain = u"youtube.com"; ///< anywhere in the host, for subdomains
constexpr QLatin1StringView shortsFolder("/shorts/");

QString withoutOuterSlashes(QStringView path)
{
    while (path.startsWith(u'/'))
        path = path.mid(1);
    while (path.endsWith(u'/'))
        path.chop(1);
    return path.toString();
}

/// The decoded value of the first query item "v"; absent too when that item has no "=".
/// QUrlQuery would not tell "v" from "v=".
std::optional<QString> videoItem(const QUrl &address)
{
    const QByteArray query = address.query(QUrl::FullyEncoded).toLatin1();
    for (const QByteArray &item : query.split('&')) {
        const qsizetype equals = item.indexOf('=');
        const QByteArray name = equals < 0 ? item : item.left(equals);
        if (QUrl::fromPercentEncoding(name) != u'v')
            continue;
        if (equals < 0)
            return std::nullopt;
        return QUrl::fromPercentEncoding(item.mid(equals + 1));
    }
    return std::nullopt;
}

/// What names the video in an address of the video site; absent for every other address.
std::optional<QString> videoName(const QUrl &address)
{
    const QString host = address.host().toLower();
    if (host == shortLinkHost)
        return withoutOuterSlashes(address.path(QUrl::FullyDecoded));
    if (!host.contains(mainDomain))
        return std::nullopt;
    if (auto name = videoItem(address))
        return name;
    QString path = address.path(QUrl::FullyDecoded);
    if (path.startsWith(shortsFolder))
        return path.remove(shortsFolder);
    return std::nullopt;
}

} // namespace

HistoryStore::HistoryStore(const QString &folder, QObject *parent)
    : QObject(parent), m_file(folder, u"history.json"_s), m_entries(m_file.load<HistoryEntry>())
{
}

void HistoryStore::recordDownload(const QString &url, const QString &title,
                                  const std::optional<QString> &thumbnailURL,
                                  std::optional<double> durationSeconds)
{
    const QDateTime now = currentTimestamp();
    const QString key = canonicalize(url);
    durationSeconds = storableNumber(durationSeconds);

    const auto place = std::ranges::find(
        m_entries, key, [](const HistoryEntry &entry) { return canonicalize(entry.url); });
    if (place != m_entries.end()) {
        HistoryEntry &entry = *place;
        entry.lastDownloadedAt = now;
        if (entry.downloadCount < std::numeric_limits<qint64>::max())
            ++entry.downloadCount;
        if (!title.isEmpty())
            entry.title = title;
        if (thumbnailURL)
            entry.thumbnailURL = thumbnailURL;
        if (durationSeconds)
            entry.durationSeconds = durationSeconds;
        std::rotate(m_entries.begin(), place, std::next(place));
    } else {
        m_entries.prepend({
            .id = QUuid::createUuid(),
            .title = title.isEmpty() ? url : title,
            .url = url,
            .thumbnailURL = thumbnailURL,
            .durationSeconds = durationSeconds,
            .firstDownloadedAt = now,
            .lastDownloadedAt = now,
            .downloadCount = 1,
        });
    }
    save();
}

void HistoryStore::remove(const HistoryEntry &entry)
{
    // A copy of the id: the entry may be one of the list, which moves while it is searched.
    m_entries.removeIf([id = entry.id](const HistoryEntry &other) { return other.id == id; });
    save();
}

void HistoryStore::clear()
{
    m_entries.clear();
    save();
}

QString HistoryStore::canonicalize(const QString &url)
{
    // Strict: guessing what a broken address means could join two videos into one.
    const QUrl address(url, QUrl::StrictMode);
    const auto name = address.isValid() ? videoName(address) : std::nullopt;
    return name ? u"youtube:"_s + *name : url;
}

void HistoryStore::saveAgain()
{
    if (m_saveError)
        save();
}

void HistoryStore::save()
{
    m_saveError = m_file.save(m_entries);
    Q_EMIT changed();
}

} // namespace clipwren
