#pragma once

#include <string>

namespace ko {

/// Returns the content of the string file for `language`: a path, or a code of one of the program's own files ("de_AT"
/// for strings/de_AT.txt or else strings/de.txt). Empty for English. Fails with an `InputError`.
std::string languageContent(const std::string& language);

/// Returns the same for the language of the environment; empty if there is no string file for it.
std::string systemLanguageContent();

} // namespace ko
