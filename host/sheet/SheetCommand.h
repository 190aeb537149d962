#pragma once

#include "host/scenario/Scenario.h"

namespace ko {

/// The set-up sheet that the command line asks for.
struct SheetCommand {
    std::string file;  ///< to write; empty: none
    std::string paper; ///< "A4", "Letter"; empty: that of the user's region
};

/// Writes the sheet of a set-up as a page shows it that is opened on it with these options. `setupFile` is what the
/// sheet names; `isChanged` says that it holds something else. Fails with an `InputError`.
void writeSheet(const SheetCommand& command, const ScenarioOptions& options, const std::string& setupFile,
                bool isChanged);

} // namespace ko
