#pragma once

#include "host/setup/SetupFile.h"

#include <string>

namespace ko {

/// Writes a set-up file whole or not at all and returns its content. Fails with an `InputError` that names the file and
/// the reason.
std::string saveSetup(const std::string& file, const Setup& setup);

/// Whether the file is gone, or has another content than `content`, which it had when it was read or written last.
bool hasChangedSince(const std::string& file, const std::string& content);

/// `setup` with the drivers' present values, in their order.
Setup withPresentValues(Setup setup, const SimulatedDrivers& drivers);

} // namespace ko
