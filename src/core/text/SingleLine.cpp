#include "core/text/SingleLine.h"

#include <QRegularExpression>

namespace clipwren {

using namespace Qt::StringLiterals;

QString singleLine(const QString &text)
{
    static const QRegularExpression breaks(u"\\R+"_s,
                                           QRegularExpression::UseUnicodePropertiesOption);
    return QString(text).replace(breaks, u" "_s);
}

} // namespace clipwren
