#pragma once

#include "platform/Failure.h"

#include <cstdint>
#include <vector>

namespace ko {

/// An array indexed from 1 to its count. Failure 9 for any other index.
template <class T> class OneBased {
public:
    OneBased() = default;
    OneBased(std::initializer_list<T> items) : items_(items) {}

    [[nodiscard]] std::int32_t count() const { return static_cast<std::int32_t>(items_.size()); }
    void add(T item) { items_.push_back(std::move(item)); }
    [[nodiscard]] const T& operator[](std::int32_t index) const
    {
        if (index < 1 || index > count())
            fail(failure::subscriptOutOfRange);
        return items_[static_cast<std::size_t>(index) - 1];
    }
    bool operator==(const OneBased&) const = default;

private:
    std::vector<T> items_;
};

} // namespace ko
