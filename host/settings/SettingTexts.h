#pragma once

#include "interfaces/Values.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

/// Settings as text on the command line: numbers with a point and as many digits as bring back the same double, dates
/// in the ISO form, whatever the regional settings are.

/// As the page shows it where that is exact.
std::string exactText(double number);
/// A number and nothing else; none otherwise.
std::optional<double> numberIn(std::string_view text);

/// "2026-11-21T09:30:00"; a time of day on any date is "09:30:00". Failure 5 for what is no time.
std::string isoText(DateTime time);
/// The same forms, with a blank in place of the T, too.
std::optional<DateTime> timeIn(std::string text);
/// Whether such a text names no date.
bool isTimeOfDay(const std::string& text);

/// A value read: a number or a text as it is, none as the empty text.
std::string settingText(const Value& value);
/// Whether both read the same on the page, which shows 15 digits of a number.
bool readsSame(const Value& one, const Value& other);
[[nodiscard]] inline bool isEmpty(const Value& value)
{
    return std::holds_alternative<std::monostate>(value);
}

std::string joined(const std::vector<std::string>& texts, const std::string& separator);

} // namespace ko
