#include "workflow/download/PendingFetch.h"

#include <utility>

namespace clipwren {

void PendingFetchBox::put(PendingFetch request)
{
    m_value = std::move(request);
    Q_EMIT changed();
}

std::optional<PendingFetch> PendingFetchBox::take()
{
    auto request = std::exchange(m_value, std::nullopt);
    if (request)
        Q_EMIT changed();
    return request;
}

} // namespace clipwren
