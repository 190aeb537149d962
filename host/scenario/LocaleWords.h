#pragma once

#include "platform/Locale.h"

#include <string>
#include <vector>

namespace ko {

/// Returns the settings that differ from English (United States), as the command `locale` takes them
/// ("decimalSeparator=,").
std::vector<std::string> localeWords(const Locale& locale);

/// Applies such a setting to `locale`; returns false if `word` is not one.
bool takeLocaleWord(Locale& locale, const std::string& word);

} // namespace ko
