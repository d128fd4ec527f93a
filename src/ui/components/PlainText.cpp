#include "ui/components/PlainText.h"

#include <algorithm>

namespace clipwren {

QString inOneLine(const QString &text)
{
    QString line = text;
    line.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const auto breaksLine = [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator;
    };
    std::replace_if(line.begin(), line.end(), breaksLine, u' ');
    return line;
}

QString plainToolTip(const QString &text)
{
    return QStringLiteral("<span style='white-space: pre-wrap'>%1</span>")
        .arg(text.toHtmlEscaped());
}

} // namespace clipwren
