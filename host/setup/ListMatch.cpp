#include "host/setup/ListMatch.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace ko {

namespace {

using Json = nlohmann::ordered_json;
using Matches = std::vector<std::optional<std::size_t>>;

/// The longest lists that are compared each with each are of this many pairs.
constexpr std::size_t mostPairs = 4'000'000;

const Json& identityOf(const Json& element)
{
    for (const char* const key : {"address", "id", "name"})
        if (element.is_object() && element.contains(key))
            return element[key];
    return element;
}

bool isSame(const Json& one, const Json& other)
{
    return identityOf(one) == identityOf(other);
}

/// Two ranges of elements that are to be matched with each other.
struct Ranges {
    std::size_t before, beforeEnd;
    std::size_t after, afterEnd;
};

/// Matches the longest common subsequence.
void matchCommon(const Json& before, const Json& after, const Ranges& in, Matches& matches)
{
    const std::size_t rows = in.beforeEnd - in.before;
    const std::size_t columns = in.afterEnd - in.after;
    if (rows * columns > mostPairs)
        return;
    // The length of the longest common subsequence of what follows each pair.
    std::vector<std::uint32_t> lengths((rows + 1) * (columns + 1));
    const auto length = [&](std::size_t row, std::size_t column) -> std::uint32_t& {
        return lengths[row * (columns + 1) + column];
    };
    const auto same = [&](std::size_t row, std::size_t column) {
        return isSame(before[in.before + row], after[in.after + column]);
    };
    for (std::size_t row = rows; row-- > 0;)
        for (std::size_t column = columns; column-- > 0;)
            length(row, column) = same(row, column) ? length(row + 1, column + 1) + 1
                                                    : std::max(length(row + 1, column), length(row, column + 1));
    for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
        if (same(row, column))
            matches[in.after + column++] = in.before + row++;
        else
            length(row + 1, column) >= length(row, column + 1) ? ++row : ++column;
    }
}

/// Matches the elements between two matches if there are as many before as after.
void matchRenamed(std::size_t beforeSize, Matches& matches)
{
    std::size_t before = 0;
    for (std::size_t begin = 0; begin < matches.size();) {
        std::size_t end = begin;
        while (end < matches.size() && !matches[end])
            ++end;
        const std::size_t beforeEnd = end < matches.size() ? *matches[end] : beforeSize;
        if (end - begin == beforeEnd - before)
            for (; begin < end; ++begin)
                matches[begin] = before++;
        before = beforeEnd + 1;
        begin = end + 1;
    }
}

/// Matches elements of the same index. Returns none if that recognises fewer elements than `best` does.
std::optional<Matches> matchedByIndex(const Json& before, const Json& after, const Matches& best)
{
    if (before.size() != after.size())
        return std::nullopt;
    Matches matches(after.size());
    std::ptrdiff_t recognised = 0;
    for (std::size_t i = 0; i < after.size(); ++i) {
        matches[i] = i;
        recognised += isSame(before[i], after[i]) ? 1 : 0;
    }
    const auto isMatch = [](const auto& match) { return match.has_value(); };
    return recognised < std::count_if(best.begin(), best.end(), isMatch) ? std::nullopt : std::optional(matches);
}

} // namespace

Matches matchLists(const Json& before, const Json& after)
{
    Matches matches(after.size());
    Ranges rest{0, before.size(), 0, after.size()};
    for (; rest.before < before.size() && rest.after < after.size() && isSame(before[rest.before], after[rest.after]);
         ++rest.after)
        matches[rest.after] = rest.before++;
    for (; rest.beforeEnd > rest.before && rest.afterEnd > rest.after &&
           isSame(before[rest.beforeEnd - 1], after[rest.afterEnd - 1]);
         --rest.afterEnd)
        matches[rest.afterEnd - 1] = --rest.beforeEnd;
    matchCommon(before, after, rest, matches);
    if (const auto byIndex = matchedByIndex(before, after, matches))
        return *byIndex;
    matchRenamed(before.size(), matches);
    return matches;
}

} // namespace ko
