#pragma once

#include "support/Support.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace ko {

/// `pattern` with its place holders %1 to %9 filled in, in whatever order they stand there. One that has no argument
/// stays; what is filled in is not searched again.
std::string filled(std::string_view pattern, std::initializer_list<std::string_view> arguments);

/// A sentence whose last word may bring a full stop of its own: it ends in one at the most.
std::string withOneFullStop(std::string sentence);

/// A count with its noun, from the text `singular` or from the one with the next number. Which counts are singular says
/// the string file, whose rule names them ("1", "0 1") or none. Failure 326 when a text is missing.
std::string counted(const Support& support, std::int64_t count, int singular);

} // namespace ko
