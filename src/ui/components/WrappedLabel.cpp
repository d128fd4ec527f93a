#include "ui/components/WrappedLabel.h"

#include "ui/components/PlainText.h"

#include <QEvent>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace clipwren {

namespace {

/// Wide enough to read a few words in a row.
constexpr int comfortableWidth = 320;
constexpr int leastWidth = 40;

} // namespace

WrappedLabel::WrappedLabel(Theme::TextStyle style, Theme::Color color, int maximumLines,
                           QWidget *parent)
    : Label(style, color, {}, parent), m_maximumLines(maximumLines)
{
    // Not fixed: that would limit it to the height of its preferred width.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void WrappedLabel::setText(const QString &text)
{
    if (text == this->text())
        return;
    Label::setText(text);
    m_overshoot = overshoot(text);
    m_lines.reset();
    updateToolTip();
    updateGeometry();
}

const WrappedLabel::Lines &WrappedLabel::linesAt(int width) const
{
    if (!m_lines || m_lines->width != width)
        m_lines = laidOut(width);
    return *m_lines;
}

WrappedLabel::Lines WrappedLabel::laidOut(int width) const
{
    Lines lines;
    lines.width = width;
    const bool isLimited = m_maximumLines > 0;
    for (const QString &paragraph :
         isLimited ? QStringList(text().simplified()) : text().split(u'\n')) {
        QTextLayout layout(paragraph, font());
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(std::max(width, 1));
            const int from = line.textStart();
            const bool isLast = isLimited && lines.texts.size() + 1 == m_maximumLines;
            if (isLast && from + line.textLength() < paragraph.size()) {
                lines.texts << QFontMetricsF(font()).elidedText(paragraph.mid(from), Qt::ElideRight,
                                                                width);
                lines.areCut = true;
                break;
            }
            lines.texts << paragraph.mid(from, line.textLength()).trimmed();
        }
        layout.endLayout();
    }
    return lines;
}

int WrappedLabel::heightForWidth(int width) const
{
    return static_cast<int>(linesAt(width).texts.size()) * lineHeight();
}

QSize WrappedLabel::sizeHint() const
{
    const double whole = QFontMetricsF(font()).horizontalAdvance(text());
    const int width = std::min(static_cast<int>(std::ceil(whole)), comfortableWidth);
    return {width, heightForWidth(width)};
}

QSize WrappedLabel::minimumSizeHint() const
{
    return {std::min(leastWidth, sizeHint().width()), lineHeight()};
}

void WrappedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const bool rightToLeft = text().isRightToLeft();
    const bool isCentred = alignment().testFlag(Qt::AlignHCenter);
    painter.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    const QFontMetricsF metrics(font());
    const QStringList lines = linesAt(width()).texts;
    double widest = 0;
    for (const QString &line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line));
    const int top = (height() - static_cast<int>(lines.size()) * lineHeight()) / 2;
    // By the base line, which a rectangle would lower for the letters of another font.
    double baseLine = std::max(top, 0) + m_overshoot + metrics.ascent();
    for (const QString &line : lines) {
        const double spare = widest - metrics.horizontalAdvance(line);
        const double left = (isCentred ? (width() - widest + spare) / 2 : rightToLeft ? spare : 0);
        painter.drawText(QPointF(left, baseLine), line);
        baseLine += lineHeight();
    }
}

void WrappedLabel::resizeEvent(QResizeEvent *event)
{
    Label::resizeEvent(event);
    updateToolTip();
}

void WrappedLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        m_lines.reset();
    Label::changeEvent(event);
}

void WrappedLabel::updateToolTip()
{
    setToolTip(linesAt(width()).areCut ? plainToolTip(text()) : QString());
}

} // namespace clipwren
