#include "core/Error.h"

#include <QCoreApplication>

#include <system_error>

namespace clipwren {

using namespace Qt::StringLiterals;

Error::Error(const QString &description) : Error(description, description, {})
{
}

Error::Error(const QString &description, const QString &summary, const ToolLog &log)
    : m_description(description), m_summary(summary), m_toolLog(log),
      m_utf8(description.toStdString())
{
}

ClipwrenError::ClipwrenError(Code code, const QString &description, const ToolLog &log)
    : Error(description, description, log), m_code(code)
{
}

QString ClipwrenError::domain()
{
    return u"Clipwren"_s;
}

CancellationError::CancellationError() : Error(QCoreApplication::translate("Error", "Cancelled"))
{
}

QString errorDescription(const std::exception &error)
{
    if (const auto *ours = dynamic_cast<const Error *>(&error))
        return ours->errorDescription();
    return QString::fromUtf8(error.what());
}

QString errorSummary(const std::exception &error)
{
    if (const auto *ours = dynamic_cast<const Error *>(&error))
        return ours->summary();
    return errorDescription(error);
}

ToolLog toolLogOf(const std::exception &error)
{
    const auto *ours = dynamic_cast<const Error *>(&error);
    return ours ? ours->toolLog() : ToolLog();
}

} // namespace clipwren
