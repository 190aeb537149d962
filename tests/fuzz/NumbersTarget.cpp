#include "fuzz/Targets.h"

#include "fakes/FakePlatform.h"
#include "platform/NumberText.h"
#include "support/Validation.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

namespace ko::fuzz {

namespace {

/// A platform with its own decimal separator and message boxes.
class Machine {
public:
    explicit Machine(const char* separator) : support(with(separator), {}) {}

    test::FakePlatform platform;
    const Support support;

private:
    const Platform& with(const char* separator)
    {
        platform.platform.locale.decimalSeparator = separator;
        return platform.platform;
    }
};

/// Parses a number; returns none if the text is refused with the expected failure.
std::optional<double> read(std::string_view text, const Locale& locale)
{
    try {
        const double value = toDouble(text, locale);
        require(isNumeric(text, locale), "what is read is numeric", text);
        return value;
    } catch (const Failure& failure) {
        const std::int32_t expected = isNumeric(text, locale) ? failure::overflow : failure::typeMismatch;
        require(failure.number() == expected, "the failure tells what is wrong", text);
        return std::nullopt;
    }
}

void checkShownAgain(double value, const Locale& locale)
{
    constexpr double roundedBeyondAll = 1.797693134862315e308; // with 15 digits it is shown as more than a double holds
    if (std::abs(value) >= roundedBeyondAll)
        return;
    const std::string shown = numberText(value, locale);
    const auto again = read(shown, locale);
    require(again.has_value(), "a number that is shown can be read", shown);
    // Half a unit of the 15th digit, plus rounding to double.
    constexpr double tolerance = 5e-15 + std::numeric_limits<double>::epsilon();
    const bool isNear = std::abs(value) < 1e-300 || std::abs(*again - value) <= std::abs(value) * tolerance;
    require(isNear, "15 digits are kept", shown);
    require(numberText(*again, locale) == shown, "a number that is read is shown the same", shown);
}

void checkNarrowed(double value, std::string_view text)
{
    try {
        const float single = toSingle(value);
        require(toSingle(widen(single)) == single, "a single widens to itself", text);
        require(std::abs(toLong(value) - value) <= 0.5, "a whole number is the nearest", text);
    } catch (const Failure& failure) {
        require(failure.number() == failure::overflow && std::abs(value) > 2e9, "only what is too large is refused",
                text);
    }
}

/// Compares with the C library, which accepts the same texts and some more.
void checkAgainstStrtod(const std::string& text)
{
    if (!isNumeric(text, Locale{}))
        return;
    const auto value = read(text, Locale{});
    const double expected = std::strtod(text.c_str(), nullptr);
    require(value ? *value == expected : std::isinf(expected), "the number is the nearest double", text);
    require(leadingNumber(text) == expected, "a number is its own beginning", text);
}

void checkEntered(std::string_view text, Machine& machine)
{
    const NumberBounds bounds{.minimum = -1e6, .maximum = 1e6, .positive = true};
    for (const NumberType type : {NumberType::Long, NumberType::Double, NumberType::Integer, NumberType::Float}) {
        const auto number = readNumber(machine.support, text, type, bounds, true);
        const auto messages = machine.platform.takeMessages().size();
        require(messages == (number ? 0 : 1), "what is refused is explained, once", text);
        require(!number || (*number > 0.0 && *number < 1e6 + 1e-6), "what is entered keeps to its bounds", text);
    }
}

void run(std::string_view input)
{
    static std::array<Machine, 4> machines{Machine("."), Machine(","), Machine("\xD9\xAB"), Machine("")};
    for (Machine& machine : machines) {
        const Locale& locale = machine.support.locale();
        checkEntered(input, machine);
        if (const auto value = read(input, locale)) {
            checkNarrowed(*value, input);
            checkShownAgain(*value, locale);
        }
    }
    checkAgainstStrtod(std::string(input));
    leadingNumber(input);
}

} // namespace

const Target numbers{"numbers", run};

} // namespace ko::fuzz
