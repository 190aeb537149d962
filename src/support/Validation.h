#pragma once

#include "interfaces/Values.h"
#include "support/Support.h"

#include <optional>
#include <string>
#include <string_view>

namespace ko {

/// Types of numbers that the user enters: `Long` and `Double` in text boxes, `Integer` and `Float` as trigger
/// parameters.
enum class NumberType { Long, Double, Integer, Float };

/// Limits of a typed number. A bound that is not set does not limit.
struct NumberBounds {
    std::optional<double> minimum;
    std::optional<double> maximum;
    /// Accept only numbers above 0 with a finite reciprocal, whatever the bounds.
    bool positive = false;

    /// False when no number satisfies the bounds: the minimum is above the maximum.
    [[nodiscard]] bool acceptsAnything() const { return !minimum || !maximum || *minimum <= *maximum; }
};

/// Tolerance of the bounds: a value counts as inside when it is at most this far outside.
inline constexpr double rangeTolerance = 1e-9;

/// The message that requires a number in the range: text number `text`, then the bounds. Failures reach the caller.
[[nodiscard]] std::string requiredRange(const Support& support, int text, Range range);

/// The same for a type's bounds; empty unless both are set.
[[nodiscard]] std::string rangeText(const Support& support, NumberType type, const NumberBounds& bounds);

/// Reads the text as a number of this type, rounded to an integer for `Long` and `Integer`; none when it is not
/// numeric, does not fit or is out of bounds. A number equal to a bound as displayed is inside. When there is none and
/// `showMessage` is true, shows the reason in a message box "Invalid input". Failures of the message box and of the
/// string table reach the caller.
std::optional<double> readNumber(const Support& support, std::string_view text, NumberType type,
                                 const NumberBounds& bounds, bool showMessage);

/// Whether `readNumber` returns a number. A failure counts as not valid and is not reported.
bool validateNumber(const Support& support, std::string_view text, NumberType type, const NumberBounds& bounds,
                    bool showMessage) noexcept;

} // namespace ko
