#include "ui/components/TextLine.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <functional>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar firstOfOtherScripts(0x0370);

/// Hands on the pieces of a text, runs without digits whole and each digit alone, with the place
/// of each. Returns the room of all.
qreal forEachPiece(const QString &text, const QFont &font,
                   const std::function<void(qsizetype from, const QString &piece, qreal x)> &use)
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
        use(from, piece, x + (room - metrics.horizontalAdvance(piece)) / 2);
        x += room;
        from = to;
    }
    return x;
}

} // namespace

int controlHeight(int textHeight, int usual)
{
    constexpr int leastPadding = 4; // above and below together
    return std::max(usual, textHeight + leastPadding);
}

QString inOneLine(const QString &text)
{
    QString line = text;
    line.replace(u"\r\n"_s, u"\n"_s);
    const auto breaksLine = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator;
    };
    std::replace_if(line.begin(), line.end(), breaksLine, u' ');
    return line;
}

QString plainToolTip(const QString &text)
{
    return u"<span style='white-space: pre-wrap'>%1</span>"_s.arg(text.toHtmlEscaped());
}

int overshoot(const QString &text, const QFont &font)
{
    const bool isLatin =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c < firstOfOtherScripts; });
    if (isLatin)
        return 0;
    const QFontMetricsF metrics(font);
    const QRectF ink = metrics.tightBoundingRect(text);
    const qreal reach = std::max(-ink.top() - metrics.ascent(), ink.bottom() - metrics.descent());
    return std::max(0, static_cast<int>(std::ceil(reach)));
}

DigitText::DigitText(const QString &text, const QFont &font) : m_text(text), m_font(font)
{
}

qreal DigitText::width() const
{
    return forEachPiece(m_text, m_font, [](qsizetype, const QString &, qreal) {});
}

void DigitText::paint(QPainter &painter, const QPointF &baseline) const
{
    // Shaped as a whole: a colon between digits has another form than one alone.
    QTextLayout layout(m_text, m_font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    if (runs.size() == 1 && runs.first().positions().size() == m_text.size()) {
        QGlyphRun run = runs.first();
        QList<QPointF> places = run.positions();
        forEachPiece(m_text, m_font, [&](qsizetype from, const QString &piece, qreal x) {
            const qreal shift = x - places[from].x();
            for (qsizetype index = from; index < from + piece.size(); ++index)
                places[index].rx() += shift;
        });
        run.setPositions(places);
        painter.drawGlyphRun(baseline - QPointF(0, places.first().y()), run);
        return;
    }
    // In scripts where a letter is no glyph, piece by piece.
    painter.setFont(m_font);
    forEachPiece(m_text, m_font, [&](qsizetype, const QString &piece, qreal x) {
        painter.drawText(baseline + QPointF(x, 0), piece);
    });
}

} // namespace clipwren
