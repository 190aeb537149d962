#pragma once

#include "host/setup/SetupFile.h"

#include <string>

namespace ko {

/// Writes a set-up file whole or not at all and returns its content. Throws an `InputError` with the file
/// and the reason.
std::string saveSetup(const std::string& file, const Setup& setup);

/// Returns whether the file is gone or differs from `content`, its content when last read or written.
bool hasChangedSince(const std::string& file, const std::string& content);

/// Returns `setup` with the present values of the drivers, in their order.
Setup withPresentValues(Setup setup, const SimulatedDrivers& drivers);

} // namespace ko
