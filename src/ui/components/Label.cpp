#include "ui/components/Label.h"

#include "ui/components/DigitText.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cmath>

namespace clipwren {

namespace {

constexpr QChar breakPoint(0x200B); // zero width space
constexpr int unbrokenLetters = 24;
constexpr QChar firstOfOtherScripts(0x0370);

/// Lets a line end behind each letter, as people see letters, of a run that has gone on for long
/// without a place where it could end.
QString withBreakPoints(const QString &text)
{
    QString result;
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    QTextBoundaryFinder lineEnds(QTextBoundaryFinder::Line, text);
    qsizetype runEnd = 0;
    int lettersInRun = 0;
    for (qsizetype from = 0, to = letters.toNextBoundary(); to > 0;
         from = to, to = letters.toNextBoundary()) {
        while (runEnd >= 0 && from >= runEnd) {
            runEnd = lineEnds.toNextBoundary();
            lettersInRun = 0;
        }
        if (++lettersInRun > unbrokenLetters && !text[from].isSpace())
            result += breakPoint;
        result += QStringView(text).sliced(from, to - from);
    }
    return result;
}

} // namespace

Label::Label(Theme::TextStyle style, Theme::Color color, const QString &text, QWidget *parent)
    : QLabel(text, parent), m_style(style), m_color(color)
{
    setTextFormat(Qt::PlainText);
    // By default, links can be clicked.
    setTextInteractionFlags(Qt::NoTextInteraction);
    // Not that of wherever the label is put later.
    setForegroundRole(QPalette::WindowText);
    setFont(Theme::font(style));
    applyColor();
    connect(&Theme::current(), &Theme::changed, this, &Label::applyColor);
}

void Label::setColor(Theme::Color color)
{
    if (m_color == color)
        return;
    m_color = color;
    applyColor();
}

void Label::setStyle(Theme::TextStyle style)
{
    if (m_style == style)
        return;
    m_style = style;
    setFont(Theme::font(style));
}

void Label::setMarkdown(const QString &text)
{
    static const QRegularExpression bold(QStringLiteral("\\*\\*(.+?)\\*\\*"));
    static const QRegularExpression italic(QStringLiteral("\\*(.+?)\\*"));
    QString html = text.toHtmlEscaped();
    html.replace(bold, QStringLiteral("<b>\\1</b>")).replace(italic, QStringLiteral("<i>\\1</i>"));
    setTextFormat(Qt::RichText);
    setText(html);
}

void Label::setBreakableText(const QString &text)
{
    setTextFormat(Qt::PlainText);
    setText(withBreakPoints(text));
}

void Label::setSelectable(bool selectable)
{
    setTextInteractionFlags(selectable ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                       : Qt::NoTextInteraction);
}

int Label::overshoot(const QString &text) const
{
    const bool isLatin =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c < firstOfOtherScripts; });
    if (isLatin)
        return 0;
    const QFontMetricsF metrics(font());
    const QRectF ink = metrics.tightBoundingRect(text);
    const qreal reach = std::max(-ink.top() - metrics.ascent(), ink.bottom() - metrics.descent());
    return std::max(0, static_cast<int>(std::ceil(reach)));
}

QString Label::copyText() const
{
    QString copied = hasSelectedText() ? selectedText() : text();
    return copied.remove(breakPoint).replace(QChar::ParagraphSeparator, u'\n');
}

void Label::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy) && hasSelectedText())
        QGuiApplication::clipboard()->setText(copyText());
    else
        QLabel::keyPressEvent(event);
}

void Label::mouseReleaseEvent(QMouseEvent *event)
{
    QLabel::mouseReleaseEvent(event);
    auto *clipboard = QGuiApplication::clipboard();
    if (hasSelectedText() && clipboard->supportsSelection())
        clipboard->setText(copyText(), QClipboard::Selection);
}

void Label::contextMenuEvent(QContextMenuEvent *event)
{
    if (textInteractionFlags() == Qt::NoTextInteraction) {
        event->ignore();
        return;
    }
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addAction(tr("Copy")), &QAction::triggered, this,
            [text = copyText()] { QGuiApplication::clipboard()->setText(text); });
    menu->popup(event->globalPos());
}

void Label::applyColor()
{
    QPalette colors = palette();
    colors.setColor(foregroundRole(), Theme::current().color(m_color));
    setPalette(colors);
}

bool Label::paintsDigits() const
{
    return Theme::hasMonospacedDigits(m_style) && textInteractionFlags() == Qt::NoTextInteraction
        && !wordWrap();
}

QSize Label::sizeHint() const
{
    const QSize size = QLabel::sizeHint();
    if (!paintsDigits())
        return size;
    return {static_cast<int>(std::ceil(DigitText(text(), font()).width())), size.height()};
}

void Label::paintEvent(QPaintEvent *event)
{
    if (!paintsDigits()) {
        QLabel::paintEvent(event);
        return;
    }
    const DigitText digits(text(), font());
    const QFontMetricsF metrics(font());
    const QSize size(static_cast<int>(std::ceil(digits.width())), fontMetrics().height());
    const QRect place = QStyle::alignedRect(layoutDirection(), alignment(), size, contentsRect());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    digits.paint(painter, QPointF(place.x(), place.y() + metrics.ascent()));
}

} // namespace clipwren
