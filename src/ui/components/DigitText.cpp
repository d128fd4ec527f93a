#include "ui/components/DigitText.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <functional>

namespace clipwren {

namespace {

/// Hands on the pieces of a text, runs without digits whole and each digit alone, with the room
/// each takes. Returns the room of all.
qreal forEachPiece(const QString &text, const QFont &font,
                   const std::function<void(const QString &piece, qreal x, qreal room)> &use)
{
    const QFontMetricsF metrics(font);
    qreal digitWidth = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        digitWidth = std::max(digitWidth, metrics.horizontalAdvance(QChar(digit)));
    qreal x = 0;
    qsizetype from = 0;
    const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
    while (from < text.size()) {
        qsizetype to = from + 1;
        const bool digit = isDigit(text[from]);
        while (!digit && to < text.size() && !isDigit(text[to]))
            ++to;
        const QString piece = text.mid(from, to - from);
        const qreal room = digit ? digitWidth : metrics.horizontalAdvance(piece);
        use(piece, x, room);
        x += room;
        from = to;
    }
    return x;
}

} // namespace

DigitText::DigitText(const QString &text, const QFont &font) : m_text(text), m_font(font)
{
}

qreal DigitText::width() const
{
    return forEachPiece(m_text, m_font, [](const QString &, qreal, qreal) {});
}

void DigitText::paint(QPainter &painter, const QPointF &baseline) const
{
    painter.setFont(m_font);
    const QFontMetricsF metrics(m_font);
    forEachPiece(m_text, m_font, [&](const QString &piece, qreal x, qreal room) {
        const qreal inset = (room - metrics.horizontalAdvance(piece)) / 2;
        painter.drawText(baseline + QPointF(x + inset, 0), piece);
    });
}

} // namespace clipwren
