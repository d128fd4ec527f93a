#include "platform/desktop/SettingsPreferences.h"

#include <QStandardPaths>

namespace clipwren {

using namespace Qt::StringLiterals;

SettingsPreferences::SettingsPreferences()
    : m_settings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                     + u"/Clipwren/clipwren.conf"_s,
                 QSettings::IniFormat)
{
}

std::optional<QString> SettingsPreferences::text(const QString &key) const
{
    if (!m_settings.contains(key))
        return std::nullopt;
    return m_settings.value(key).toString();
}

void SettingsPreferences::setText(const QString &key, const QString &text)
{
    m_settings.setValue(key, text);
    m_settings.sync();
}

} // namespace clipwren
