#pragma once

#include "host/sheet/SetupSheet.h"

#include <string>

namespace ko {

/// Fails with an `InputError` unless the file's extension is .pdf or .html.
void checkSheetFile(const std::string& file);

/// Writes a sheet whole or not at all. `paper` is "A4", "Letter", or empty for the paper of the user's region. Fails
/// with an `InputError` that names the file and the reason.
void saveSheet(const std::string& file, const SheetSource& source, const std::string& paper);

} // namespace ko
