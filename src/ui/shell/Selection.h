#pragma once

#include <QObject>
#include <QUuid>

#include <optional>

namespace clipwren {

/// Which saved file is selected, by its record's id, whether there is such a record or not.
///
/// The window keeps it here and nowhere else; the list and the detail pane follow `changed()`, in
/// any order.
class Selection : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    std::optional<QUuid> selectedID() const { return m_selectedID; }
    void select(const std::optional<QUuid> &id)
    {
        if (id == m_selectedID)
            return;
        m_selectedID = id;
        Q_EMIT changed();
    }

Q_SIGNALS:
    void changed();

private:
    std::optional<QUuid> m_selectedID;
};

} // namespace clipwren
