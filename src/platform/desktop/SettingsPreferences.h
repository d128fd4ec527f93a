#pragma once

#include "platform/desktop/Preferences.h"

#include <QSettings>

namespace clipwren {

/// Preferences in the file `Clipwren/clipwren.conf` of the user's configuration folder.
class SettingsPreferences : public Preferences {
public:
    SettingsPreferences();

    std::optional<QString> text(const QString &key) const override;
    void setText(const QString &key, const QString &text) override;

private:
    QSettings m_settings;
};

} // namespace clipwren
