#pragma once

#include "host/SetupFile.h"

#include <string>

namespace ko {

/// Writes a file whole or not at all: whatever goes wrong, a file that was there stays as it was. A file behind a
/// symbolic link is written where it is. Fails with an `InputError` that names the file and the reason.
void writeWhole(const std::string& name, const std::string& content);

/// Writes a set-up file in this way.
void saveSetup(const std::string& file, const Setup& setup);

/// `setup` with the drivers' present values, in their order.
Setup withPresentValues(Setup setup, const SimulatedDrivers& drivers);

} // namespace ko
