#pragma once

#include "support/Support.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace ko {

/// Replaces the placeholders %1 to %9 in `pattern`, in any order. A placeholder without an argument is kept; the
/// inserted arguments are not searched for placeholders.
std::string filled(std::string_view pattern, std::initializer_list<std::string_view> arguments);

/// Reduces the full stops at the end of a sentence to one, for sentences whose last word may be an abbreviation.
std::string withOneFullStop(std::string sentence);

/// A count with its noun, from the text `singular` or the next one (plural). The string file lists the counts that are
/// singular ("1", "0 1", or none). Failure 326 when a text is missing.
std::string counted(const Support& support, std::int64_t count, int singular);

} // namespace ko
