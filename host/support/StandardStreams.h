#pragma once

#include <string>

namespace ko {

/// Prints a text on standard error as a `shortLine`, prefixed with the program's name.
void complain(const std::string& what);

/// Flushes standard output. Fails with an `InputError` if anything printed could not be written.
void finishOutput();

} // namespace ko
