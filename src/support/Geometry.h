#pragma once

#include "platform/Form.h"
#include "platform/Services.h"

namespace ko {

/// Placement of dialogs at the mouse cursor. Both rules have the form measured and move it, and keep it inside the
/// desktop's work area. Failures of the screen reach the caller.

/// The form's top left corner at the cursor.
void placeAtCursor(Form& form, Screen& screen);

/// The middle of the form's upper edge under the cursor; both coordinates of the cursor are scaled with the
/// horizontal factor.
void placeCentredUnderCursor(Form& form, Screen& screen);

/// Moves bounds inside an area, both in twips. The left and the top edge win when the bounds are larger than it.
Bounds clampedTo(const Rectangle& area, Bounds bounds);

} // namespace ko
