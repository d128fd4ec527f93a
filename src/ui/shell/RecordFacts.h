#pragma once

#include "core/library/DownloadRecord.h"
#include "core/media/MediaInspection.h"
#include "ui/components/Pill.h"

#include <QList>

namespace clipwren {

/// One row of the information box.
struct RecordFact {
    QString label;
    QString value; ///< never empty
    bool monospaced = false;
    bool highlight = false;

    bool operator==(const RecordFact &) const = default;
};

/// What is known of a saved file, in the order of the rows; what is not known is left out. Asks the
/// disk for the file's size when there is no inspection.
QList<RecordFact> recordFacts(const DownloadRecord &record,
                              const std::optional<MediaInspection> &inspection);

/// Whether a file plays in QuickTime, for the pill.
struct CompatVerdict {
    Pill::Tone tone;
    Icon icon;
    QString text;

    bool operator==(const CompatVerdict &) const = default;
};

/// None for files without pictures.
std::optional<CompatVerdict> compatVerdict(const MediaInspection &inspection);

} // namespace clipwren
