#pragma once

#include "host/setup/HistoryState.h"
#include "platform/Locale.h"

#include <functional>
#include <string>

namespace ko {

/// The language of steps.
struct StepWords {
    std::function<std::string(int number)> text; ///< returns a text of the component
    std::function<const Locale&()> locale;       ///< of the numbers and dates
};

/// Describes in one line what leads from one state to another: "Sample rate 25600 → 5000". Of several instruments that
/// differ, the first is described; of several settings, the first two.
std::string stepText(const HistoryState& before, const HistoryState& after, const StepWords& words);

} // namespace ko
