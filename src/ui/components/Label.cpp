#include "ui/components/Label.h"

#include "ui/components/TextLine.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace clipwren {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar breakPoint(0x200B); // zero width space
constexpr int unbrokenLetters = 24;
/// Of a wrapped text: wide enough to read a few words in a row.
constexpr int comfortableWidth = 320;
constexpr int leastWidth = 40;
/// A layout asks for a few, again and again; a window that is resized goes through hundreds.
constexpr int widthsOfOneLayout = 8;

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
    : Label(Mode::Line, style, color, text, parent)
{
}

Label::Label(Mode mode, Theme::TextStyle style, Theme::Color color, const QString &text,
             QWidget *parent)
    : QLabel(parent), m_mode(mode), m_style(style), m_color(color), m_fullText(text)
{
    // By default, links can be clicked.
    setTextInteractionFlags(Qt::NoTextInteraction);
    // Not that of wherever the label is put later.
    setForegroundRole(QPalette::WindowText);
    Theme::setTextStyle(*this, style);
    applyColor();
    connect(&Theme::current(), &Theme::changed, this, &Label::applyColor);
    if (mode == Mode::Elided) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    } else if (mode == Mode::Paragraph) {
        setWordWrap(true);
    } else if (mode == Mode::Wrapped) {
        // Not fixed: that would limit it to the height of its preferred width.
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    }
    applyText();
}

void Label::setColor(Theme::Color color)
{
    if (m_color == color)
        return;
    m_color = color;
    applyColor();
}

void Label::applyColor()
{
    QPalette colors = palette();
    colors.setColor(foregroundRole(), Theme::current().color(m_color));
    setPalette(colors);
}

void Label::setStyle(Theme::TextStyle style)
{
    if (m_style == style)
        return;
    m_style = style;
    Theme::setTextStyle(*this, style);
}

void Label::setText(const QString &text)
{
    if (text == m_fullText && textFormat() == Qt::PlainText)
        return;
    m_fullText = text;
    applyText();
}

void Label::applyText()
{
    setTextFormat(Qt::PlainText);
    if (m_mode == Mode::Paragraph) {
        QLabel::setText(withBreakPoints(m_fullText));
        return;
    }
    if (m_mode == Mode::Elided) {
        m_line = inOneLine(m_fullText);
        m_overshoot = overshoot(m_line, font());
        setAccessibleName(m_line);
        // Where the texts around it start; a label by itself would go by its letters.
        setAlignment(Qt::AlignAbsolute | Qt::AlignVCenter
                     | (isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft));
    } else {
        QLabel::setText(m_fullText);
        if (m_mode == Mode::Line)
            return;
        m_overshoot = overshoot(m_fullText, font());
        m_lines.clear();
    }
    fitToWidth();
    updateGeometry();
}

void Label::setMarkdown(const QString &text)
{
    static const QRegularExpression bold(u"\\*\\*(.+?)\\*\\*"_s);
    static const QRegularExpression italic(u"\\*(.+?)\\*"_s);
    QString html = text.toHtmlEscaped();
    html.replace(bold, u"<b>\\1</b>"_s).replace(italic, u"<i>\\1</i>"_s);
    m_fullText = text;
    setTextFormat(Qt::RichText);
    QLabel::setText(html);
}

void Label::setElideMode(Qt::TextElideMode mode)
{
    m_elideMode = mode;
    fitToWidth();
}

void Label::setMaximumLines(int lines)
{
    m_maximumLines = lines;
    m_lines.clear();
    fitToWidth();
    updateGeometry();
}

void Label::setSelectable(bool selectable)
{
    setTextInteractionFlags(selectable ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                       : Qt::NoTextInteraction);
}

/// Shows as much of an elided text as fits, and a tool tip for what does not fit.
void Label::fitToWidth()
{
    if (m_mode == Mode::Wrapped)
        setToolTip(linesAt(width()).areCut ? plainToolTip(m_fullText) : QString());
    if (m_mode != Mode::Elided)
        return;
    const int room = contentsRect().width();
    QString shown = m_line;
    if (std::ceil(widthOf(m_line)) > room)
        shown = QFontMetricsF(font()).elidedText(m_line, m_elideMode, room);
    if (shown == text())
        return;
    QLabel::setText(shown);
    setToolTip(shown == m_line ? QString() : plainToolTip(m_line));
}

/// True when the digits are laid out by `DigitText`: one line that nobody can mark.
bool Label::paintsDigits() const
{
    return Theme::hasMonospacedDigits(m_style) && textInteractionFlags() == Qt::NoTextInteraction
        && (m_mode == Mode::Line || m_mode == Mode::Elided);
}

qreal Label::widthOf(const QString &text) const
{
    return paintsDigits() ? DigitText(text, font()).width()
                          : QFontMetricsF(font()).horizontalAdvance(text);
}

QSize Label::sizeHint() const
{
    if (m_mode == Mode::Elided)
        return {static_cast<int>(std::ceil(widthOf(m_line))), lineHeight()};
    if (m_mode == Mode::Wrapped) {
        const int whole = static_cast<int>(std::ceil(widthOf(m_fullText)));
        const int width = std::min(whole, comfortableWidth);
        return {width, heightForWidth(width)};
    }
    const QSize size = QLabel::sizeHint();
    return paintsDigits() ? QSize(static_cast<int>(std::ceil(widthOf(text()))), size.height())
                          : size;
}

QSize Label::minimumSizeHint() const
{
    if (m_mode == Mode::Elided) {
        const auto ellipsis = QFontMetricsF(font()).horizontalAdvance(QChar(0x2026));
        return {std::min(static_cast<int>(std::ceil(ellipsis)), sizeHint().width()), lineHeight()};
    }
    if (m_mode == Mode::Wrapped)
        return {std::min(leastWidth, sizeHint().width()), lineHeight()};
    return QLabel::minimumSizeHint();
}

bool Label::hasHeightForWidth() const
{
    return m_mode == Mode::Wrapped || QLabel::hasHeightForWidth();
}

int Label::heightForWidth(int width) const
{
    return m_mode == Mode::Wrapped ? static_cast<int>(linesAt(width).texts.size()) * lineHeight()
                                   : QLabel::heightForWidth(width);
}

const Label::Lines &Label::linesAt(int width) const
{
    auto lines = m_lines.find(width);
    if (lines == m_lines.end()) {
        if (m_lines.size() >= widthsOfOneLayout)
            m_lines.clear();
        lines = m_lines.insert(width, laidOut(width));
    }
    return *lines;
}

Label::Lines Label::laidOut(int width) const
{
    Lines lines;
    // Laying out would load a font for a label that is not in use yet.
    if (m_fullText.isEmpty()) {
        lines.texts << QString();
        return lines;
    }
    const bool isLimited = m_maximumLines > 0;
    for (const QString &paragraph :
         isLimited ? QStringList(m_fullText.simplified()) : m_fullText.split(u'\n')) {
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

void Label::paintEvent(QPaintEvent *event)
{
    if (m_mode == Mode::Wrapped)
        paintLines();
    else if (paintsDigits())
        paintDigits();
    else
        QLabel::paintEvent(event);
}

void Label::paintDigits()
{
    const DigitText digits(text(), font());
    const QFontMetricsF metrics(font());
    const QSize size(static_cast<int>(std::ceil(digits.width())), fontMetrics().height());
    const QRect place = QStyle::alignedRect(layoutDirection(), alignment(), size, contentsRect());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    digits.paint(painter, QPointF(place.x(), place.y() + metrics.ascent()));
}

void Label::paintLines()
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const bool rightToLeft = m_fullText.isRightToLeft();
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

void Label::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    fitToWidth();
}

void Label::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange && textFormat() == Qt::PlainText)
        applyText();
}

/// What copying takes: the marked part, but the whole text when it is cut.
QString Label::copyText() const
{
    if (m_mode == Mode::Elided) {
        const bool isPart = hasSelectedText() && selectedText() != text();
        return isPart && text() == m_line ? selectedText() : m_fullText;
    }
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

} // namespace clipwren
