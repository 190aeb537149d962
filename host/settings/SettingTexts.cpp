#include "host/settings/SettingTexts.h"

#include "host/instruments/ParameterTypes.h"
#include "platform/DateTimes.h"
#include "platform/Failure.h"
#include "platform/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace ko {

std::string exactText(double number)
{
    const std::string asOnPage = numberText(number, Locale{});
    if (numberIn(asOnPage) == number)
        return asOnPage;
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::optional<double> numberIn(std::string_view text)
{
    try {
        return toDouble(text, Locale{});
    } catch (const Failure&) {
        return std::nullopt;
    }
}

std::string isoText(DateTime time)
{
    const DateParts parts = dateParts(time);
    std::array<char, 48> text{};
    if (time.hasDate())
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", parts.year, parts.month, parts.day,
                      parts.hour, parts.minute, parts.second);
    else
        std::snprintf(text.data(), text.size(), "%02d:%02d:%02d", parts.hour, parts.minute, parts.second);
    return text.data();
}

std::optional<DateTime> timeIn(std::string text)
{
    std::replace(text.begin(), text.end(), 'T', ' ');
    try {
        return toDateTime(text, Locale{});
    } catch (const Failure&) {
        return std::nullopt;
    }
}

bool isTimeOfDay(const std::string& text)
{
    return timeIn(text) && timeIn("2000-01-01 " + text);
}

std::string settingText(const Value& value)
{
    if (const auto* const number = std::get_if<double>(&value))
        return exactText(*number);
    if (const auto* const number = std::get_if<std::int32_t>(&value))
        return std::to_string(*number);
    if (const auto* const isOn = std::get_if<bool>(&value))
        return *isOn ? "true" : "false";
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : std::string();
}

bool readsSame(const Value& one, const Value& other)
{
    const auto first = numberOf(one), second = numberOf(other);
    return first && second ? numberText(*first, Locale{}) == numberText(*second, Locale{}) : one == other;
}

} // namespace ko
