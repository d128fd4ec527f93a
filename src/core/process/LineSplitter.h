#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

#include <functional>

namespace clipwren {

/// Makes lines of what a program writes, piece by piece as it is read.
///
/// Each piece is split by itself, so that no line is longer than a piece, and the last of a piece
/// is handed on without its end. A piece that is not UTF-8 is left out as a whole; a character that
/// two pieces share counts to the second.
class LineSplitter {
public:
    /// Called for each line that is not empty, without its end, which is a line feed or a carriage
    /// return. The text lives only during the call.
    using LineHandler = std::function<void(QStringView line)>;

    /// Hands on the lines of the piece and returns it as it was understood; empty when left out.
    QByteArray take(QByteArrayView piece, const LineHandler &onLine);

private:
    QByteArray m_carried; ///< the beginning of a character
};

} // namespace clipwren
