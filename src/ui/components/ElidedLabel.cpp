#include "ui/components/ElidedLabel.h"

#include "ui/components/DigitText.h"
#include "ui/components/PlainText.h"

#include <QEvent>

#include <cmath>

namespace clipwren {

ElidedLabel::ElidedLabel(Theme::TextStyle style, Theme::Color color, const QString &text,
                         QWidget *parent)
    : Label(style, color, {}, parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setFullText(text);
}

void ElidedLabel::setElideMode(Qt::TextElideMode mode)
{
    m_mode = mode;
    cut();
}

void ElidedLabel::setFullText(const QString &text)
{
    if (m_fullText == text && !m_line.isNull())
        return;
    m_fullText = text;
    m_line = inOneLine(text);
    setAccessibleName(m_line);
    // Where the texts around it start; a label by itself would go by its letters.
    setAlignment(Qt::AlignAbsolute | Qt::AlignVCenter
                 | (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
    cut();
    updateGeometry();
}

qreal ElidedLabel::widthOf(const QString &text) const
{
    return paintsDigits() ? DigitText(text, font()).width()
                          : QFontMetricsF(font()).horizontalAdvance(text);
}

int ElidedLabel::lineHeight() const
{
    return QFontMetrics(font()).height() + 2 * overshoot(m_line);
}

void ElidedLabel::cut()
{
    const int room = contentsRect().width();
    QString shown = m_line;
    if (std::ceil(widthOf(m_line)) > room)
        shown = QFontMetricsF(font()).elidedText(m_line, m_mode, room);
    if (shown == text())
        return;
    setText(shown);
    setToolTip(isCut() ? plainToolTip(m_line) : QString());
}

QSize ElidedLabel::sizeHint() const
{
    return {static_cast<int>(std::ceil(widthOf(m_line))), lineHeight()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    const auto ellipsis = QFontMetricsF(font()).horizontalAdvance(QChar(0x2026));
    return {std::min(static_cast<int>(std::ceil(ellipsis)), sizeHint().width()), lineHeight()};
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    Label::resizeEvent(event);
    cut();
}

void ElidedLabel::changeEvent(QEvent *event)
{
    Label::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        cut();
        updateGeometry();
    }
}

QString ElidedLabel::copyText() const
{
    const bool isPart = hasSelectedText() && selectedText() != text();
    return isPart && !isCut() ? selectedText() : m_fullText;
}

} // namespace clipwren
