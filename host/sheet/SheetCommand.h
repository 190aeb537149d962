#pragma once

#include "host/scenario/Scenario.h"

namespace ko {

/// The command line's options for a set-up sheet.
struct SheetCommand {
    std::string file;  ///< file to write; empty: none
    std::string paper; ///< "A4", "Letter"; empty: the paper of the user's region
};

/// Opens a page with these options and writes its set-up sheet. The sheet names `setupFile`; `isChanged` marks the
/// set-up as different from that file. Fails with an `InputError`.
void writeSheet(const SheetCommand& command, const ScenarioOptions& options, const std::string& setupFile,
                bool isChanged);

} // namespace ko
