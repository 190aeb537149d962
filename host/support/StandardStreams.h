#pragma once

#include <string>

namespace ko {

/// Prints a line on standard error, after the program's name.
void complain(const std::string& what);

/// Fails with an `InputError` unless standard output has taken everything that was printed.
void finishOutput();

} // namespace ko
