#pragma once

#include "host/scenario/Scenario.h"

#include <string>

namespace ko::fuzz {

/// Plays a script on the page. Fails with a `Violation` unless it is either refused with the number of its line, or
/// played to the end with a page in good order and drivers that can be saved.
void play(const std::string& script, const ScenarioOptions& options);

/// The set-up is read again as it was written.
void checkSaved(const Setup& setup);

/// The set-up of the demo.
const Setup& demoSetup();

} // namespace ko::fuzz
