#include "player/MpvValues.h"

#include <string_view>

namespace clipwren {

QByteArray seconds(double value)
{
    return QByteArray::number(value, 'f', 6);
}

QByteArray yesNo(bool value)
{
    return value ? QByteArrayLiteral("yes") : QByteArrayLiteral("no");
}

std::optional<QByteArray> mpvAddress(const QUrl &url)
{
    if (url.isLocalFile())
        return url.toLocalFile().toUtf8();
    if (url.scheme() == u"http" || url.scheme() == u"https")
        return url.toEncoded();
    return {};
}

std::optional<qint64> playlistEntry(const mpv_node &commandResult)
{
    if (commandResult.format != MPV_FORMAT_NODE_MAP)
        return {};
    for (int i = 0; i < commandResult.u.list->num; ++i) {
        if (std::string_view(commandResult.u.list->keys[i]) == "playlist_entry_id")
            return commandResult.u.list->values[i].u.int64;
    }
    return {};
}

std::optional<double> number(const mpv_event_property &property)
{
    if (property.format != MPV_FORMAT_DOUBLE)
        return {};
    return *static_cast<const double *>(property.data);
}

bool flag(const mpv_event_property &property, bool fallback)
{
    if (property.format != MPV_FORMAT_FLAG)
        return fallback;
    return *static_cast<const int *>(property.data) != 0;
}

} // namespace clipwren
