#pragma once

#include <QFile>
#include <QString>

namespace clipwren {

/// False where connecting to the session bus would make the D-Bus library start one of its own.
inline bool hasSessionBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS")
        || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

} // namespace clipwren
