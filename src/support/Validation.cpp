#include "support/Validation.h"

#include "platform/NumberText.h"
#include "support/TextNumbers.h"

#include <cmath>

namespace ko {

namespace {

namespace pageText = textNumber::page;

bool isWhole(NumberType type)
{
    return type == NumberType::Long || type == NumberType::Integer;
}

/// The message for a text that is not a number. Trigger parameters of type Float have the same message as integers.
const std::string& notANumber(const Support& support, NumberType type)
{
    return support.text(type == NumberType::Double ? pageText::realRequired : pageText::integerRequired);
}

/// The bounds as a message names them: rounded inwards to integers where only integers are accepted, unless no integer
/// lies between them.
Range shownBounds(NumberType type, Range bounds)
{
    const Range whole{std::ceil(bounds.minimum - rangeTolerance), std::floor(bounds.maximum + rangeTolerance)};
    return isWhole(type) && whole.minimum <= whole.maximum ? whole : bounds;
}

std::string outOfRange(const Support& support, NumberType type, const NumberBounds& bounds)
{
    const std::string text = rangeText(support, type, bounds);
    return text.empty() ? notANumber(support, type) : text;
}

std::optional<double> converted(std::string_view text, NumberType type, const Locale& locale)
{
    try {
        const double value = toDouble(text, locale);
        return isWhole(type) ? toLong(value) : value;
    } catch (const Failure&) {
        return std::nullopt;
    }
}

/// Whether `value` equals the bound as displayed.
bool readsAs(double bound, double value, const Locale& locale)
{
    return numberText(bound, locale) == numberText(value, locale);
}

bool isInside(double value, const NumberBounds& bounds, const Locale& locale)
{
    if (!std::isfinite(value) || !bounds.acceptsAnything())
        return false;
    // The reciprocal, the corresponding rate or period, must be finite, too.
    if (bounds.positive && !(value > 0.0 && std::isfinite(1.0 / value)))
        return false;
    if (bounds.minimum && *bounds.minimum - value > rangeTolerance && !readsAs(*bounds.minimum, value, locale))
        return false;
    return !(bounds.maximum && value - *bounds.maximum > rangeTolerance && !readsAs(*bounds.maximum, value, locale));
}

} // namespace

std::string requiredRange(const Support& support, int text, Range range)
{
    return support.text(text) + numberText(range.minimum, support.locale()) + support.text(pageText::to) +
           numberText(range.maximum, support.locale()) + support.text(pageText::isRequired);
}

std::string rangeText(const Support& support, NumberType type, const NumberBounds& bounds)
{
    if (!bounds.minimum || !bounds.maximum)
        return {};
    return requiredRange(support, isWhole(type) ? pageText::integerInRange : pageText::realInRange,
                         shownBounds(type, {*bounds.minimum, *bounds.maximum}));
}

std::optional<double> readNumber(const Support& support, std::string_view text, NumberType type,
                                 const NumberBounds& bounds, bool showMessage)
{
    const bool numeric = isNumeric(text, support.locale());
    if (numeric) {
        const std::optional<double> value = converted(text, type, support.locale());
        if (value && isInside(*value, bounds, support.locale()))
            return value;
    }
    if (showMessage)
        support.platform.messageBox.show(numeric ? outOfRange(support, type, bounds) : notANumber(support, type),
                                         support.text(pageText::invalidInput), messageStyle::exclamation);
    return std::nullopt;
}

bool validateNumber(const Support& support, std::string_view text, NumberType type, const NumberBounds& bounds,
                    bool showMessage) noexcept
{
    try {
        return readNumber(support, text, type, bounds, showMessage).has_value();
    } catch (...) {
        return false;
    }
}

} // namespace ko
