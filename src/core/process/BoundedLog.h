#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace clipwren {

/// What a program wrote, in UTF-8: whole while it is short, of a long text the beginning and the
/// end. Keeps at most three times `half` bytes, however much is appended.
class BoundedLog {
public:
    /// Texts of up to twice `half` bytes are kept whole.
    explicit BoundedLog(qsizetype half = 1024 * 1024) : m_half(half) { }

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
