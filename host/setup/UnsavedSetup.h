#pragma once

#include "host/setup/SetupFile.h"

#include <string>

namespace ko {

/// A set-up with changes that are not saved.
struct UnsavedSetup {
    std::string file;         ///< its own, an absolute path; empty if it was begun with a template
    std::string templateName; ///< of a set-up without a file
    std::string saved;        ///< content of the file, or of the template, when it was last read or written
    Setup setup;              ///< with the changes

    bool operator==(const UnsavedSetup&) const = default;
};

/// Returns the content of a file that keeps the set-up. Throws for text that is not UTF-8, other than the file's name.
std::string copyText(const UnsavedSetup& unsaved);

/// Parses what `copyText` returns. Throws an `InputError` that names `file` if the text is damaged.
UnsavedSetup parseCopy(const std::string& text, const std::string& file);

/// Whether the file of the set-up holds the same set-up, so that nothing is unsaved.
bool isSaved(const UnsavedSetup& unsaved);

} // namespace ko
