#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace ko {

/// A value whose type the driver decides: a channel attribute or a trigger parameter. `std::monostate` is the empty
/// value. Text is UTF-8, here and in every other interface.
using Value = std::variant<std::monostate, bool, std::int32_t, double, std::string>;

/// Local wall-clock time as a day number: day 0 is 30 December 1899, the fraction is the time of day. A value
/// below 1.0 carries no date: it is a time of day on any date.
struct DateTime {
    double days = 0.0;

    auto operator<=>(const DateTime&) const = default; // NOLINT(modernize-use-nullptr): a comparison with 0
    [[nodiscard]] bool hasDate() const { return days >= 1.0; }
};

/// A continuous range that a driver offers, both bounds included, in seconds for periods and samples for block sizes.
/// 0.0 in both bounds means that the driver offers no range.
struct Range {
    double minimum = 0.0;
    double maximum = 0.0;

    bool operator==(const Range&) const = default;
};

/// Start mode codes as drivers store them. They are not in the order of the page's buttons.
namespace startMode {
inline constexpr std::int32_t immediately = 0;
inline constexpr std::int32_t atTime = 1;
inline constexpr std::int32_t onTrigger = 2;
} // namespace startMode

/// Stop mode codes as drivers store them.
namespace stopMode {
inline constexpr std::int32_t afterDuration = 0;
inline constexpr std::int32_t atTime = 1;
} // namespace stopMode

/// A list of hardware trigger lines, each 0 to 7. An empty list means "no restriction".
using LineList = std::vector<std::int32_t>;

/// The six printer settings that a host passes with a print request. The codes are those of the printing system's
/// device record: orientation 1 portrait, 2 landscape; duplex 1 simplex, 2 vertical, 3 horizontal; colour 1 monochrome,
/// 2 colour; paper size 9 for A4, 1 for Letter; quality negative for draft (-1) to high (-4), else dots per inch.
struct DeviceMode {
    std::int32_t copies = 1;
    std::int32_t color = 1;
    std::int32_t duplex = 1;
    std::int32_t orientation = 1;
    std::int32_t paperSize = 9;
    std::int32_t printQuality = -4;

    bool operator==(const DeviceMode&) const = default;
};

} // namespace ko
