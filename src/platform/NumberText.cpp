#include "platform/NumberText.h"

#include "platform/Failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace ko {

namespace {

constexpr int significantDigits = 15;

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

std::string_view withoutBlanks(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view decimalSeparator(const Locale& locale)
{
    return locale.decimalSeparator.empty() ? std::string_view(".") : std::string_view(locale.decimalSeparator);
}

/// Moves a leading sign from `text` to `plain`, without a plus, which `std::from_chars` rejects.
void takeSign(std::string_view& text, std::string& plain)
{
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return;
    if (text.front() == '-')
        plain += '-';
    text.remove_prefix(1);
}

std::size_t takeDigits(std::string_view& text, std::string& plain)
{
    std::size_t count = 0;
    while (count < text.size() && isDigit(text[count]))
        ++count;
    plain.append(text.substr(0, count));
    text.remove_prefix(count);
    return count;
}

/// Consumes a complete exponent; an incomplete one stays in `text`.
void takeExponent(std::string_view& text, std::string& plain)
{
    if (text.empty() || (text.front() != 'e' && text.front() != 'E'))
        return;
    std::string exponent = "e";
    std::string_view rest = text.substr(1);
    takeSign(rest, exponent);
    if (takeDigits(rest, exponent) == 0)
        return;
    plain += exponent;
    text = rest;
}

/// Consumes the longest number at the start of `text`; returns it in the form that `std::from_chars` reads.
std::optional<std::string> takeNumber(std::string_view& text, std::string_view separator)
{
    std::string plain;
    takeSign(text, plain);
    std::size_t digits = takeDigits(text, plain);
    if (text.substr(0, separator.size()) == separator) {
        text.remove_prefix(separator.size());
        plain += '.';
        digits += takeDigits(text, plain);
    }
    if (digits == 0)
        return std::nullopt;
    takeExponent(text, plain);
    return plain;
}

std::optional<std::string> wholeNumber(std::string_view text, const Locale& locale)
{
    std::string_view rest = withoutBlanks(text);
    auto plain = takeNumber(rest, decimalSeparator(locale));
    return rest.empty() ? plain : std::nullopt;
}

std::int64_t exponentOf(std::string_view plain)
{
    constexpr std::int64_t beyondAll = std::numeric_limits<std::int64_t>::max() / 2;
    const auto mark = plain.find('e');
    if (mark == std::string_view::npos)
        return 0;
    const auto digits = plain.substr(mark + 1);
    std::int64_t exponent = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    if (read.ec == std::errc::result_out_of_range)
        return digits.front() == '-' ? -beyondAll : beyondAll;
    return std::clamp(exponent, -beyondAll, beyondAll);
}

/// Distinguishes underflow from overflow, which `std::from_chars` reports alike.
bool isBelowOne(std::string_view plain)
{
    const auto mantissa = plain.substr(0, plain.find('e'));
    const auto first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos)
        return true;
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + exponentOf(plain) <= 0;
}

/// The value; infinite when too large and 0 when too small for a double.
double valueOf(const std::string& plain)
{
    double value = 0.0;
    const auto read = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (read.ec != std::errc::result_out_of_range)
        return value;
    const double magnitude = isBelowOne(plain) ? 0.0 : std::numeric_limits<double>::infinity();
    return plain.front() == '-' ? -magnitude : magnitude;
}

const char* notFiniteText(double value)
{
    if (std::isnan(value))
        return "NAN";
    return value < 0.0 ? "-INF" : "INF";
}

} // namespace

std::string numberText(double value, const Locale& locale)
{
    if (!std::isfinite(value))
        return notFiniteText(value);
    if (value == 0.0)
        return "0";
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general,
                                       significantDigits);
    std::string text(buffer.data(), written.ptr);
    if (const auto mark = text.find('e'); mark != std::string::npos)
        text[mark] = 'E';
    if (const auto point = text.find('.'); point != std::string::npos)
        text.replace(point, 1, decimalSeparator(locale));
    return text;
}

std::string countText(std::int64_t count, const Locale& locale)
{
    constexpr std::size_t group = 3;
    std::string text = std::to_string(count);
    const std::size_t first = count < 0 ? 1 : 0;
    for (std::size_t at = text.size(); at > first + group;)
        text.insert(at -= group, locale.digitGroupSeparator);
    return text;
}

bool isNumeric(std::string_view text, const Locale& locale)
{
    return wholeNumber(text, locale).has_value();
}

double toDouble(std::string_view text, const Locale& locale)
{
    const auto plain = wholeNumber(text, locale);
    if (!plain)
        fail(failure::typeMismatch);
    const double value = valueOf(*plain);
    if (std::isinf(value))
        fail(failure::overflow);
    return value;
}

std::int32_t toLong(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    // std::remainder rounds halves to even whatever the current rounding mode.
    const double rounded = value - std::remainder(value, 1.0);
    if (!(rounded >= Limits::min() && rounded <= Limits::max()))
        fail(failure::overflow);
    return static_cast<std::int32_t>(rounded);
}

std::int32_t toLong(std::string_view text, const Locale& locale)
{
    return toLong(toDouble(text, locale));
}

float toSingle(double value)
{
    constexpr double largest = std::numeric_limits<float>::max();
    constexpr double firstBeyond = 0x1.ffffffp127; // half a unit above the largest single, which rounds up to infinity
    if (!(std::abs(value) < firstBeyond))
        fail(failure::overflow);
    return static_cast<float>(std::clamp(value, -largest, largest));
}

double widen(float value)
{
    std::array<char, 32> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    double wide = 0.0;
    std::from_chars(buffer.data(), written.ptr, wide);
    return wide;
}

double leadingNumber(std::string_view text)
{
    std::string packed(text);
    std::erase_if(packed, isBlank);
    std::string_view rest = packed;
    const auto plain = takeNumber(rest, ".");
    return plain ? valueOf(*plain) : 0.0;
}

} // namespace ko
