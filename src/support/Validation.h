#pragma once

#include "interfaces/Values.h"
#include "support/Support.h"

#include <optional>
#include <string>
#include <string_view>

namespace ko {

/// The types of number that the user types: `Long` and `Double` in text boxes, `Integer` and `Float` as trigger
/// parameters.
enum class NumberType { Long, Double, Integer, Float };

/// What a typed number must keep to. A bound that is not set is no bound.
struct NumberBounds {
    std::optional<double> minimum;
    std::optional<double> maximum;
    /// Only numbers above 0 that have a finite reciprocal, whatever the bounds.
    bool positive = false;

    /// False when no number can keep to them: the minimum is above the maximum.
    [[nodiscard]] bool acceptsAnything() const { return !minimum || !maximum || *minimum <= *maximum; }
};

/// A value counts as inside a bound when it is at most this far outside.
inline constexpr double rangeTolerance = 1e-9;

/// That a number of the range is required: the text of this number, then the bounds. Failures reach the caller.
[[nodiscard]] std::string requiredRange(const Support& support, int text, Range range);

/// The text as a number of this type, rounded to a whole number for `Long` and `Integer`; none when it is not
/// numeric, does not fit or is out of bounds. A number equal to what a bound's text reads as is inside. When there
/// is none and `showMessage` is true, tells the user why in a message box "Invalid input". Failures of the message
/// box and of the string table reach the caller.
std::optional<double> readNumber(const Support& support, std::string_view text, NumberType type,
                                 const NumberBounds& bounds, bool showMessage);

/// Whether `readNumber` reads a number. Reports nothing and throws nothing: what fails counts as not valid.
bool validateNumber(const Support& support, std::string_view text, NumberType type, const NumberBounds& bounds,
                    bool showMessage) noexcept;

} // namespace ko
