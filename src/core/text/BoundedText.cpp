#include "core/text/BoundedText.h"

#include <QTextBoundaryFinder>

namespace clipwren {

QString boundedText(const QString &text, qsizetype maximum)
{
    if (text.size() <= maximum)
        return text;
    // One unit more tells whether a character ends at the maximum.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.first(maximum + 1));
    finder.setPosition(maximum);
    if (finder.isAtBoundary())
        return text.first(maximum);
    const qsizetype boundary = finder.toPreviousBoundary();
    if (boundary > 0)
        return text.first(boundary);
    return text.first(text[maximum - 1].isHighSurrogate() ? maximum - 1 : maximum);
}

} // namespace clipwren
