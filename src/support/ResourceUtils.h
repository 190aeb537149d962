#pragma once

#include "platform/Form.h"
#include "support/Steps.h"
#include "support/StringTable.h"

namespace ko {

/// Loads the texts of forms. At design time a control carries the offset of its text within its form's block: in
/// its tag for a caption, in its tool tip for a tool tip, in the item data of each list entry for the entry's text.
/// `base` is the first number of the block. A number that is not greater than 0 leaves the control as it is.
///
/// A missing text and every other failure is reported to `step`; the other controls are still loaded.

/// What a control carries for a text of the block that begins at `base`.
[[nodiscard]] inline std::string offsetOf(int text, int base)
{
    return std::to_string(text - base);
}

/// Fonts first, then texts, each in the order of the form's controls.
void loadFormStrings(const Steps& step, const StringTable& strings, Form& form, const Font& font, int base);

/// The form's own caption (its design-time caption holds the offset), then its controls with the form's font.
void loadFormCaption(const Steps& step, const StringTable& strings, Form& form, int base);

/// Moves the tool tips of all controls but labels, menus and tabs into their tags, where views take the hints from.
void moveToolTipsToTags(Form& form);

} // namespace ko
