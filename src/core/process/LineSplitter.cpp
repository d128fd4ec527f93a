#include "core/process/LineSplitter.h"

#include <QString>

#include <algorithm>
#include <utility>

namespace clipwren {
namespace {

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

void handOnLines(QStringView text, const LineSplitter::LineHandler &onLine)
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

} // namespace

QByteArray LineSplitter::take(QByteArrayView piece, const LineHandler &onLine)
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
    handOnLines(QString::fromUtf8(text), onLine);
    return text;
}

} // namespace clipwren
