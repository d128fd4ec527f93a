#include "app/GuardedApplication.h"

#include "core/Error.h"

#include <QCoreApplication>
#include <QDebug>

#include <cstdlib>
#include <exception>

namespace clipwren {

bool endAfterException() noexcept
{
    try {
        throw;
    } catch (const std::exception &error) {
        qCritical().noquote() << "Clipwren ends, as something unforeseen failed:"
                              << errorDescription(error);
    } catch (...) {
        qCritical() << "Clipwren ends, as something unforeseen failed.";
    }
    QCoreApplication::exit(EXIT_FAILURE);
    return false;
}

} // namespace clipwren
