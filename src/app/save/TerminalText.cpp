#include "app/save/TerminalText.h"

#include <algorithm>

namespace clipwren {
namespace {

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

} // namespace

QString forTerminal(QString text)
{
    text.removeIf(turnsDirection);
    std::replace_if(text.begin(), text.end(), isControl, u' ');
    return text;
}

} // namespace clipwren
