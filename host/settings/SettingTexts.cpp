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
    if (const auto number = numberOf(value))
        return exactText(*number);
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : "";
}

bool readsSame(const Value& one, const Value& other)
{
    const auto number = numberOf(one), otherNumber = numberOf(other);
    if (!number || !otherNumber)
        return one == other;
    return numberText(*number, Locale{}) == numberText(*otherNumber, Locale{});
}

std::string quotedWord(std::string_view word)
{
    std::string result = "\"";
    for (const char c : word) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c == '\n' ? std::string("\\n") : std::string(1, c);
    }
    return result + '"';
}

} // namespace ko
