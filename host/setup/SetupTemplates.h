#pragma once

#include "host/setup/SetupFile.h"

#include <string>
#include <vector>

namespace ko {

/// A set-up file of the program's own to begin with.
struct SetupTemplate {
    std::string name;    ///< "vibration"
    std::string file;    ///< path
    std::string content; ///< of the file
};

inline constexpr std::size_t templateCount = 5;
/// Returns the names of the templates, in the order in which they are offered.
std::vector<std::string> templateNames();
/// Reads a template. Throws an `InputError`, which suggests similar names if there is none of this name.
SetupTemplate templateNamed(const std::string& name);

/// Returns a new instrument of each kind; its name is the kind's. Throws an `InputError` if the program's data lack
/// them.
std::vector<InstrumentSettings> instrumentKinds();
/// Returns the word for a kind: "signal-analyzer".
std::string kindWord(const InstrumentSettings& kind);

} // namespace ko
