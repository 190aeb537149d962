#pragma once

#include <string>

namespace ko {

/// Checks the driver module in this file and prints each finding as it comes, a line each, and at the end how many
/// calls were made. Returns whether there are none. A call that crashes, or does not return within a minute, is printed
/// as a finding and ends the program with status 1. Throws an `InputError` if the module cannot be loaded.
bool checkModuleFile(const std::string& file);

} // namespace ko
