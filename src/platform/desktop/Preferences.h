#pragma once

#include <QString>

#include <optional>

namespace clipwren {

/// The user's settings that outlive a run, by key.
class Preferences {
public:
    virtual ~Preferences() = default;

    virtual std::optional<QString> text(const QString &key) const = 0;
    /// Kept on disk without further ado.
    virtual void setText(const QString &key, const QString &text) = 0;
};

} // namespace clipwren
