#pragma once

#include "host/support/Suggestion.h"

#include "interfaces/Values.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ko {

// Settings as text on the command line, independent of regional settings: numbers with a decimal point and enough
// digits to convert back to the same double, dates in ISO form.
/// Returns the number as the page shows it if that is exact, else with all its digits.
std::string exactText(double number);
/// Parses a number; returns none if the text is anything else.
std::optional<double> numberIn(std::string_view text);

/// Returns "2026-11-21T09:30:00", or "09:30:00" for a time of day without a date. Fails with 5 for an invalid time.
std::string isoText(DateTime time);
/// Parses the forms of `isoText`, also with a blank instead of the T.
std::optional<DateTime> timeIn(std::string text);
/// Returns whether such a text has no date.
bool isTimeOfDay(const std::string& text);

/// Returns a number by `exactText`, a text unchanged, and the empty string for none.
std::string settingText(const Value& value);
/// Returns whether the page shows both values alike; it shows 15 digits of a number.
bool readsSame(const Value& one, const Value& other);
[[nodiscard]] inline bool isEmpty(const Value& value)
{
    return std::holds_alternative<std::monostate>(value);
}

} // namespace ko
