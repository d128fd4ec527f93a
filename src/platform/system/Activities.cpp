#include "platform/system/Activities.h"

#include "platform/desktop/ApplicationId.h"
#include "platform/desktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <algorithm>
#include <cmath>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// Most docks listen to this signal, whatever desktop they belong to.
void showOnLauncher(std::optional<int> percent)
{
    if (!hasSessionBus())
        return;
    auto update = QDBusMessage::createSignal(u"/com/canonical/unity/launcherentry/clipwren"_s,
                                             u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << u"application://%1.desktop"_s.arg(applicationId)
           << QVariantMap{{u"progress"_s, percent.value_or(0) / 100.0},
                          {u"progress-visible"_s, percent.has_value()}};
    QDBusConnection::sessionBus().send(update);
}

} // namespace

class Activities::Running : public Desktop::Activity {
public:
    explicit Running(Activities &owner) : m_owner(owner)
    {
        m_owner.m_running.append(this);
        m_owner.update();
    }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;
    ~Running() override
    {
        m_owner.m_running.removeOne(this);
        m_owner.update();
    }

    void setProgress(double fraction) override
    {
        m_fraction = std::clamp(fraction, 0.0, 1.0);
        m_owner.update();
    }
    std::optional<double> progress() const { return m_fraction; }

private:
    Activities &m_owner;
    std::optional<double> m_fraction;
};

std::unique_ptr<Desktop::Activity> Activities::begin()
{
    return std::make_unique<Running>(*this);
}

void Activities::update()
{
    if (m_running.isEmpty())
        m_inhibitor.reset();
    else if (!m_inhibitor)
        m_inhibitor.emplace();

    std::optional<int> percent;
    for (const Running *each : m_running) {
        if (each->progress()) {
            const int own = static_cast<int>(std::floor(*each->progress() * 100));
            percent = std::min(percent.value_or(own), own);
        }
    }
    if (percent != m_shownPercent) {
        m_shownPercent = percent;
        showOnLauncher(percent);
    }
}

} // namespace clipwren
