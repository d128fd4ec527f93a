#include "core/process/BoundedLog.h"

#include <algorithm>

namespace clipwren {
namespace {

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xc0) == 0x80;
}

/// How much of the text's beginning is whole lines or, without one, whole characters.
qsizetype wholeBeginning(const QByteArray &text)
{
    if (const qsizetype lineEnd = text.lastIndexOf('\n'); lineEnd >= 0)
        return lineEnd + 1;
    qsizetype size = text.size();
    while (size > 0 && isContinuation(text[size - 1]))
        --size;
    return std::max<qsizetype>(size - 1, 0);
}

/// Where the text's first whole line begins or, without one, its first whole character.
qsizetype wholeEnd(const QByteArray &text)
{
    if (const qsizetype lineEnd = text.indexOf('\n'); lineEnd >= 0 && lineEnd + 1 < text.size())
        return lineEnd + 1;
    return std::find_if_not(text.begin(), text.end(), isContinuation) - text.begin();
}

} // namespace

void BoundedLog::append(QByteArrayView text)
{
    const qsizetype room = std::min(m_half - m_head.size(), text.size());
    m_head.append(text.first(room));
    m_tail.append(text.sliced(room));
    // Cut in one go only now and then.
    if (m_tail.size() > 2 * m_half) {
        m_left += m_tail.size() - m_half;
        m_tail = m_tail.last(m_half);
    }
}

QString BoundedLog::text() const
{
    QByteArray tail = m_tail.last(std::min(m_tail.size(), m_half));
    qsizetype left = m_left + m_tail.size() - tail.size();
    if (left == 0)
        return QString::fromUtf8(m_head + tail);
    QByteArray head = m_head.first(wholeBeginning(m_head));
    const qsizetype start = wholeEnd(tail);
    left += m_head.size() - head.size() + start;
    if (!head.endsWith('\n'))
        head += '\n';
    return QString::fromUtf8(head) + QStringLiteral("… %1 bytes left out …\n").arg(left)
        + QString::fromUtf8(tail.sliced(start));
}

} // namespace clipwren
