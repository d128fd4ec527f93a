#pragma once

#include <QLoggingCategory>

namespace clipwren {

// Warnings come unasked; the rest is switched on with QT_LOGGING_RULES="clipwren.*=true". Addresses
// and arguments stand at debug level only.
Q_DECLARE_LOGGING_CATEGORY(processLog) ///< clipwren.process: each tool's start and end
Q_DECLARE_LOGGING_CATEGORY(libraryLog) ///< clipwren.library
Q_DECLARE_LOGGING_CATEGORY(playerLog) ///< clipwren.player
Q_DECLARE_LOGGING_CATEGORY(networkLog) ///< clipwren.network
Q_DECLARE_LOGGING_CATEGORY(desktopLog) ///< clipwren.desktop: what the desktop does for us

} // namespace clipwren
