#include "ui/components/LogText.h"

#include "ui/components/Theme.h"

#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTimerEvent>

#include <algorithm>

namespace clipwren {

namespace {

// One line of text is laid out at once, in time that grows with its length.
constexpr qsizetype longestLine = 2000;
// About ten milliseconds of work.
constexpr qsizetype pieceLength = 128 * 1024;
/// Ends a line that the log continues without a break. Invisible, and no tool ends lines with it.
constexpr QChar fold(0x2060);

/// What follows `from` in the log, about a piece long, with folds in lines that are too long.
/// Moves `from` behind it.
QString takePiece(const QString &log, qsizetype &from)
{
    QString piece;
    const qsizetype end = std::min(log.size(), from + pieceLength);
    while (from < end) {
        const qsizetype limit = std::min(log.size(), from + longestLine);
        const QStringView line = QStringView(log).mid(from, limit - from);
        if (const qsizetype length = line.indexOf(u'\n'); length >= 0) {
            piece += line.first(length + 1);
            from += length + 1;
            continue;
        }
        qsizetype to = limit;
        // Not between the halves of one character.
        if (to < log.size() && log[to].isLowSurrogate())
            --to;
        piece += QStringView(log).mid(from, to - from);
        from = to;
        if (from < log.size() && log[from] != u'\n')
            (piece += fold) += u'\n';
    }
    return piece;
}

} // namespace

LogText::LogText(QWidget *parent) : QPlainTextEdit(parent)
{
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setFrameShape(QFrame::NoFrame);
    setFont(Theme::font(Theme::TextStyle::MonospacedCaption));
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    document()->setDocumentMargin(14);
}

void LogText::setLog(const QString &log)
{
    m_filling.stop();
    m_log = log;
    m_shown = 0;
    clear();
    appendPiece();
    moveCursor(QTextCursor::Start);
    if (m_shown < m_log.size())
        m_filling.start(0, this);
}

void LogText::appendPiece()
{
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(takePiece(m_log, m_shown));
}

void LogText::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_filling.timerId()) {
        QPlainTextEdit::timerEvent(event);
        return;
    }
    appendPiece();
    if (m_shown >= m_log.size())
        m_filling.stop();
}

QMimeData *LogText::createMimeDataFromSelection() const
{
    QString text = textCursor().selectedText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    text.remove(QString(fold) + u'\n');
    auto *copied = new QMimeData;
    copied->setText(text);
    return copied;
}

} // namespace clipwren
