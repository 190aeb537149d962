#pragma once

#include "platform/Locale.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ko {

/// A number in general format: at most 15 significant digits, no trailing zeros, the locale's decimal separator, an
/// exponent below 1E-04 and from 1E+15 on ("3.90625E-05"). Negative zero reads "0"; numbers that are not finite read
/// "INF", "-INF" and "NAN", which `isNumeric` rejects.
std::string numberText(double value, const Locale& locale);

/// A count with the locale's separator between groups of three digits: "2,304,000". `isNumeric` rejects such a text.
std::string countText(std::int64_t count, const Locale& locale);

/// True when the text is a number: blanks (spaces and tabs) around, a sign, digits, one decimal separator before, among
/// or after them, an exponent (e or E, a sign, digits), and nothing else (no hexadecimal form, no digit grouping, no
/// "inf" or "nan"). A locale without a decimal separator uses the point.
bool isNumeric(std::string_view text, const Locale& locale);

/// The text as a double. Failure 13 when it is not numeric, 6 when it is too large; a value too small for a double
/// becomes 0.
double toDouble(std::string_view text, const Locale& locale);

/// The nearest integer, halves to even. Failure 6 when it does not fit or the value is not a number.
std::int32_t toLong(double value);

/// `toLong` of `toDouble`.
std::int32_t toLong(std::string_view text, const Locale& locale);

/// The nearest single. Failure 6 when it does not fit or the value is not a number.
float toSingle(double value);

/// The single widened through its shortest decimal form, so that 0.1f becomes 0.1.
double widen(float value);

/// The leading number of a text, 0 when it begins with none ("12 apples" yields 12); never fails. Blanks are skipped
/// anywhere, and the decimal separator is always the point. A number too large for a double is infinite.
double leadingNumber(std::string_view text);

} // namespace ko
