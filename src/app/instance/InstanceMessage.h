#pragma once

#include "core/library/DownloadRecord.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace clipwren {

/// What a second start tells the application that runs.
struct InstanceMessage {
    /// Bring the window to the front, and look this address up unless it is empty.
    struct Show {
        QString address;
        QString activationToken; ///< of the desktop's focus rules; may be empty
    };
    /// A file was saved from the command line.
    struct Saved {
        DownloadRecord record;
        QString historyTitle; ///< may be empty
    };

    std::optional<Show> show;
    std::optional<Saved> saved;

    QByteArray toJson() const;
    /// Throws `DecodingError`.
    static InstanceMessage fromJson(const QByteArray &utf8);
};

} // namespace clipwren
