#pragma once

#include <QByteArray>
#include <QUrl>

#include <mpv/client.h>
#include <optional>

namespace clipwren {

// How values are written for mpv.

/// With six decimals, and a point in every language.
QByteArray seconds(double value);
QByteArray yesNo(bool value);
/// A local file's path or an http(s) address; nothing for any other kind of address.
std::optional<QByteArray> mpvAddress(const QUrl &url);

// How they are read. Properties come without a value while there is none.

std::optional<double> number(const mpv_event_property &property);
bool flag(const mpv_event_property &property, bool fallback);
/// mpv's number of the stream that a load command has added.
std::optional<qint64> playlistEntry(const mpv_node &commandResult);

} // namespace clipwren
