#include "app/save/ProgressReport.h"

#include <algorithm>
#include <sys/ioctl.h>
#include <unistd.h>

namespace clipwren {
namespace {

using namespace Qt::StringLiterals;

// More than the longest path takes. A tool's line may be a megabyte.
constexpr qsizetype longestLine = 5000;

/// Embeddings, overrides and isolates: left open, they would reorder the rest of our own line.
bool turnsDirection(QChar character)
{
    return (character >= QChar(0x202a) && character <= QChar(0x202e))
        || (character >= QChar(0x2066) && character <= QChar(0x2069));
}

bool isControl(QChar character)
{
    const QChar::Category category = character.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line
        || category == QChar::Separator_Paragraph;
}

/// The terminal's width in columns; a usual one when it does not say.
int columns(std::FILE *terminal)
{
    winsize size{};
    if (::ioctl(::fileno(terminal), TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return 80;
    return size.ws_col;
}

} // namespace

QString forTerminal(QString text)
{
    text.removeIf(turnsDirection);
    std::replace_if(text.begin(), text.end(), isControl, u' ');
    return text;
}

ProgressReport::ProgressReport(std::FILE *output)
    : m_output(output), m_isTerminal(::isatty(::fileno(output)) == 1)
{
}

ProgressReport::~ProgressReport()
{
    clear();
}

void ProgressReport::line(const QString &text)
{
    clear();
    write(forTerminal(text.left(longestLine)) + u'\n');
}

void ProgressReport::status(const QString &text)
{
    if (m_isTerminal)
        renew(text);
    else if (!text.isEmpty())
        line(text);
}

void ProgressReport::progress(const QString &stage, const DownloadProgress &progress)
{
    const double shown = std::clamp(progress.fraction, 0.0, 1.0);
    QString text = u"%1 %2%"_s.arg(stage).arg(static_cast<int>(shown * 100));
    if (!progress.status.isEmpty())
        text += u"  "_s + progress.status;
    if (m_isTerminal) {
        renew(text);
        return;
    }
    if (stage != m_stage) {
        m_stage = stage;
        m_quarter = -1;
    }
    // The tool starts again at 0 for the sound: a quarter that was printed is not printed again.
    const int quarter = static_cast<int>(shown * 4);
    if (quarter <= m_quarter)
        return;
    m_quarter = quarter;
    line(text);
}

void ProgressReport::renew(const QString &text)
{
    // A line that the terminal wraps could not be renewed.
    write(u"\r\x1b[K"_s + forTerminal(text).left(columns(m_output) - 1));
    m_hasOpenLine = true;
}

void ProgressReport::clear()
{
    if (!m_hasOpenLine)
        return;
    write(u"\r\x1b[K"_s);
    m_hasOpenLine = false;
}

void ProgressReport::write(const QString &text)
{
    std::fputs(text.toUtf8().constData(), m_output);
    std::fflush(m_output);
}

} // namespace clipwren
