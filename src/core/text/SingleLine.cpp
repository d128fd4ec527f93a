#include "core/text/SingleLine.h"

#include <QRegularExpression>

namespace clipwren {

QString singleLine(const QString &text)
{
    static const QRegularExpression breaks(QStringLiteral("\\R+"),
                                           QRegularExpression::UseUnicodePropertiesOption);
    return QString(text).replace(breaks, QStringLiteral(" "));
}

} // namespace clipwren
