#pragma once

#include "platform/Locale.h"

#include <string>
#include <vector>

namespace ko {

/// The settings that are not those of English (United States), in the words of a scenario ("decimalSeparator=,").
std::vector<std::string> localeWords(const Locale& locale);

/// Puts such a setting into `locale`; false when it is none.
bool takeLocaleWord(Locale& locale, const std::string& word);

} // namespace ko
