#include "host/support/Suggestion.h"

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace ko {

namespace {

std::string lowered(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// Levenshtein distance.
std::size_t distance(const std::string& one, const std::string& other)
{
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t corner = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < other.size(); ++j) {
            const std::size_t replaced = corner + (one[i] == other[j] ? 0 : 1);
            corner = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace

std::string joined(const std::vector<std::string>& texts, const std::string& separator)
{
    std::string result;
    for (const std::string& text : texts)
        result += (result.empty() ? "" : separator) + text;
    return result;
}

std::string suggestion(const std::vector<std::string>& names, const std::string& name)
{
    constexpr std::size_t mostListed = 20;
    if (names.empty())
        return "there are none";
    const std::string wanted = lowered(name);
    const auto isNear = [&, alike = std::min<std::size_t>(3, name.size() / 2)](const std::string& offered) {
        const bool contains = !name.empty() && lowered(offered).find(wanted) != std::string::npos;
        return contains || distance(lowered(offered), wanted) <= alike;
    };
    std::vector<std::string> near;
    for (const std::string& offered : names)
        if (isNear(offered) && std::find(near.begin(), near.end(), offered) == near.end())
            near.push_back(offered);
    if (near.empty() && names.size() > mostListed)
        near.push_back(*std::min_element(names.begin(), names.end(), [&](const auto& one, const auto& other) {
            return distance(lowered(one), wanted) < distance(lowered(other), wanted);
        }));
    near.resize(std::min(near.size(), mostListed));
    return near.empty() ? "there are " + joined(names, ", ") : "did you mean " + joined(near, " or ") + "?";
}

} // namespace ko
