#pragma once

#include <string>

namespace ko {

/// The content of the string file that `language` names: a file, or a code for one of the program's own ("de_AT" for
/// strings/de_AT.txt, else strings/de.txt). Empty for English. Fails with an `InputError`.
std::string languageContent(const std::string& language);

/// The same for the language that the environment asks for; empty where there are no strings for it.
std::string systemLanguageContent();

} // namespace ko
