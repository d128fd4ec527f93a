#pragma once

#include "platform/desktop/Desktop.h"
#include "platform/system/SleepInhibitor.h"

#include <QList>

#include <memory>
#include <optional>

namespace clipwren {

/// What runs for a while: keeps the machine awake meanwhile, and shows on the launcher's icon how
/// far it is. Must outlive what it begins.
class Activities {
public:
    std::unique_ptr<Desktop::Activity> begin();

private:
    class Running;

    void update();

    QList<Running *> m_running;
    std::optional<SleepInhibitor> m_inhibitor;
    std::optional<int> m_shownPercent;
};

} // namespace clipwren
