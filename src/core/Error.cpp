#include "core/Error.h"

#include <system_error>

namespace clipwren {

Error::Error(const QString &description)
    : m_description(description), m_utf8(description.toStdString())
{
}

ClipwrenError::ClipwrenError(Code code, const QString &description)
    : Error(description), m_code(code)
{
}

QString ClipwrenError::domain()
{
    return QStringLiteral("Clipwren");
}

CancellationError::CancellationError() : Error(QStringLiteral("Cancelled"))
{
}

QString errorDescription(const std::exception &error)
{
    if (const auto *ours = dynamic_cast<const Error *>(&error))
        return ours->errorDescription();
    return QString::fromUtf8(error.what());
}

} // namespace clipwren
