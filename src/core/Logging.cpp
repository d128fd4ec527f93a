#include "core/Logging.h"

namespace clipwren {

Q_LOGGING_CATEGORY(processLog, "clipwren.process", QtWarningMsg)
Q_LOGGING_CATEGORY(libraryLog, "clipwren.library", QtWarningMsg)
Q_LOGGING_CATEGORY(playerLog, "clipwren.player", QtWarningMsg)
Q_LOGGING_CATEGORY(networkLog, "clipwren.network", QtWarningMsg)
Q_LOGGING_CATEGORY(desktopLog, "clipwren.desktop", QtWarningMsg)

} // namespace clipwren
