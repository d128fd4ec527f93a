#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
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

    /// Calls `onLine` for the lines of the piece and returns it as it was understood; empty when
    /// left out.
    QByteArray split(QByteArrayView piece, const LineHandler &onLine);

private:
    QByteArray m_carried; ///< the beginning of a character
};

/// What a program wrote, in UTF-8: whole while it is short, of a long text the beginning and the
/// end. Keeps at most three times `half` bytes, however much is appended.
class BoundedLog {
public:
    /// Texts of up to twice `half` bytes are kept whole.
    explicit BoundedLog(qsizetype half = 1024LL * 1024) : m_half(half) { }

    void append(QByteArrayView text);

    /// The text, with a line in the place of what is left out that says how many bytes that is.
    /// What is not UTF-8 is U+FFFD.
    QString text() const;

private:
    qsizetype m_half;
    QByteArray m_head; ///< at most `m_half` bytes
    QByteArray m_tail; ///< what followed, without `m_left`
    qsizetype m_left = 0; ///< bytes between the two that are not kept
};

} // namespace clipwren
