#pragma once

#include <cstdint>
#include <random>

namespace ko::test {

/// Pseudo-random numbers from a seed.
class Draw {
public:
    explicit Draw(std::uint32_t seed) : random_(seed) { random_.discard(2); }

    /// Returns a number from 0 to `count` - 1, or 0 if `count` is 0.
    int upTo(int count) { return count > 0 ? static_cast<int>(random_() % static_cast<unsigned>(count)) : 0; }
    std::size_t upTo(std::size_t count) { return static_cast<std::size_t>(upTo(static_cast<int>(count))); }
    bool oneIn(int count) { return upTo(count) == 0; }
    template <class T, std::size_t count> T of(const T (&list)[count]) { return list[upTo(count)]; }

    /// Returns an entry of a list that is not empty, with a probability in proportion to its `weight`.
    template <class List> auto& weighted(const List& list)
    {
        int sum = 0;
        for (const auto& entry : list)
            sum += entry.weight;
        int at = upTo(sum);
        auto entry = std::begin(list);
        while ((at -= entry->weight) >= 0)
            ++entry;
        return *entry;
    }

private:
    std::minstd_rand random_;
};

} // namespace ko::test
