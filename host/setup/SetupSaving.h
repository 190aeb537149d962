#pragma once

#include "host/setup/SetupFile.h"

#include <string>

namespace ko {

/// Returns the text with which a set-up is saved in the file. Keeps the comments and the layout of `before`, the
/// content of the file from which the set-up was read, if there is one. Throws an `InputError` with the file and the
/// reason.
std::string textToSave(const std::string& file, const Setup& setup, const std::string& before = {});

/// Writes a set-up file whole or not at all, with `textToSave`. Throws an `InputError` with the file and the reason.
void saveSetup(const std::string& file, const Setup& setup, const std::string& before = {});

/// Returns whether the file is gone or differs from `content`, its content when last read or written.
bool hasChangedSince(const std::string& file, const std::string& content);

/// Returns `setup` with the present values of the drivers, in their order.
Setup withPresentValues(Setup setup, const HostInstruments& drivers);

} // namespace ko
