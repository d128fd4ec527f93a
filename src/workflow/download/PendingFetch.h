#pragma once

#include <QObject>
#include <QString>
#include <QUuid>

#include <optional>

namespace clipwren {

/// A request that the downloader look an address up. The nonce makes two requests for the same
/// address two distinct values.
struct PendingFetch {
    QString url;
    QUuid nonce = QUuid::createUuid();

    bool operator==(const PendingFetch &) const = default;
};

/// Holds the request that has not been handled yet. Owned by the window's content; the downloader
/// takes requests from it.
class PendingFetchBox : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    const std::optional<PendingFetch> &value() const { return m_value; }
    void put(PendingFetch request);
    /// Removes the request and returns it.
    std::optional<PendingFetch> take();

Q_SIGNALS:
    void changed();

private:
    std::optional<PendingFetch> m_value;
};

} // namespace clipwren
