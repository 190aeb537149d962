#pragma once

#include <QString>
#include <string>

namespace ko {

// Texts of files, instruments and drivers may be anything. What they do to the texts and widgets around them is bounded
// here; a text that is cut ends with "…".

/// Converts such a text for display: without the characters of `withoutDirections` and control characters other than
/// line breaks and tabs, and of as many lines and characters as a person reads.
QString toShown(const std::string& text);

/// The same for a place with one line, such as a title, a menu or a cell: shorter, with blanks in place of line breaks.
QString toLine(const std::string& text);
QString toLine(const QString& text);

} // namespace ko
