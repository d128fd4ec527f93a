#pragma once

#include <QHashFunctions>

#include <optional>

namespace clipwren {

/// Hash of a field that may be absent, for the qHash() of the value that holds it.
template <typename Value> size_t optionalHash(const std::optional<Value> &field)
{
    return field ? ::qHash(*field, size_t{1}) : 0;
}

} // namespace clipwren
