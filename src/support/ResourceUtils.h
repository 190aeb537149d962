#pragma once

#include "platform/Form.h"
#include "support/Steps.h"
#include "support/StringTable.h"

namespace ko {

/// Loads the texts of forms. At design time a control stores the offset of its text within its form's block: in its tag
/// for a caption, in its tool tip for a tool tip, in the item data of each list entry for the entry's text. `base` is
/// the first number of the block. An offset that is not greater than 0 leaves the control unchanged.
///
/// A missing text or any other failure is reported to `step`; the other controls are still loaded.

/// The design-time value of a control for a text of the block that begins at `base`.
[[nodiscard]] inline std::string offsetOf(int text, int base)
{
    return std::to_string(text - base);
}

/// Loads the fonts, then the texts, each in the order of the form's controls.
void loadFormStrings(const Steps& step, const StringTable& strings, Form& form, const Font& font, int base);

/// Loads the form's caption (its design-time caption is the offset), then its controls with the form's font.
void loadFormCaption(const Steps& step, const StringTable& strings, Form& form, int base);

/// Moves the tool tips of all controls except labels, menus and tabs into their tags, from which views read the hints.
void moveToolTipsToTags(Form& form);

} // namespace ko
