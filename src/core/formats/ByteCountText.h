#pragma once

#include <QLocale>
#include <QString>

namespace clipwren {

/// Decimal units: 1 KB is 1,000 bytes.
enum class ByteUnit { KB, MB, GB, TB };

/// The units that a text may use.
struct ByteUnits {
    ByteUnit smallest;
    ByteUnit largest;
};

/// A byte count for people, as in "412.5 MB" and "1.68 GB".
///
/// KB have no fraction digit, MB at most one, GB and TB at most two, zeros at the end left out. The
/// unit is the largest in which the rounded count reaches 1, so 999.96 MB is "1 GB".
QString byteCountText(qint64 bytes, ByteUnits units, const QLocale &locale = QLocale());

} // namespace clipwren
