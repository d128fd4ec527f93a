#pragma once

#include <QByteArray>

#include <mpv/client.h>
#include <optional>

namespace clipwren {

// How values are written for mpv.

/// With six decimals, and a point in every language.
QByteArray seconds(double value);
QByteArray yesNo(bool value);

// How they are read. Properties come without a value while there is none.

std::optional<double> number(const mpv_event_property &property);
bool flag(const mpv_event_property &property, bool fallback);
/// mpv's number of the stream that a load command has added.
std::optional<qint64> playlistEntry(const mpv_node &commandResult);

} // namespace clipwren
