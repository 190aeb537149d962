#pragma once

#include "host/setup/SetupFile.h"

#include <string>

namespace ko {

/// Returns the content of a set-up file changed so that parsing it returns `setup`. Comments, layout, the order of keys
/// and the way in which values are written stay where the set-up has not changed; new members follow the indentation of
/// their neighbours. Where that is not possible, for example because `text` is no set-up, returns `setupText(setup)`.
/// Throws as `setupText` does.
std::string editedText(const std::string& text, const Setup& setup);

} // namespace ko
