#include "core/process/ToolOutput.h"

#include <algorithm>
#include <utility>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

/// How many bytes at the end of a piece of UTF-8 are a character whose rest has yet to come.
qsizetype unfinishedBytes(QByteArrayView text)
{
    for (qsizetype count = 1; count <= std::min<qsizetype>(text.size(), 3); ++count) {
        const auto byte = static_cast<unsigned char>(text[text.size() - count]);
        if (byte < 0x80)
            return 0;
        if (byte >= 0xc0) {
            const int length = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : 2;
            return length > count ? count : 0;
        }
    }
    return 0;
}

bool isUtf8(QByteArrayView text)
{
    return QUtf8StringView(text).isValidUtf8();
}

void forEachLine(QStringView text, const LineSplitter::LineHandler &onLine)
{
    qsizetype start = 0;
    for (qsizetype position = 0; position <= text.size(); ++position) {
        if (position < text.size() && text[position] != u'\n' && text[position] != u'\r')
            continue;
        if (position > start)
            onLine(text.sliced(start, position - start));
        start = position + 1;
    }
}

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

QByteArray LineSplitter::split(QByteArrayView piece, const LineHandler &onLine)
{
    QByteArray text = std::exchange(m_carried, {});
    text.append(piece);
    // What was carried was no beginning of a character.
    if (!isUtf8(QByteArrayView(text).chopped(unfinishedBytes(text))))
        text = piece.toByteArray();
    m_carried = text.last(unfinishedBytes(text));
    text.chop(m_carried.size());
    if (!isUtf8(text))
        return {};
    forEachLine(QString::fromUtf8(text), onLine);
    return text;
}

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
    return QString::fromUtf8(head) + u"… %1 bytes left out …\n"_s.arg(left)
        + QString::fromUtf8(tail.sliced(start));
}

} // namespace clipwren
