#pragma once

#include "host/scenario/Scenario.h"

#include <string>

namespace ko::fuzz {

/// Plays a script on the page. Throws a `Violation` unless the script is refused with a line number, or runs to the end
/// and leaves a consistent page and drivers that can be saved.
void play(const std::string& script, const ScenarioOptions& options);

/// Throws a `Violation` unless the saved set-up reads back as the same.
void checkSaved(const Setup& setup);

/// Returns the demo set-up.
const Setup& demoSetup();

} // namespace ko::fuzz
