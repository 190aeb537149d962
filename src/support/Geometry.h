#pragma once

#include "platform/Form.h"
#include "platform/Services.h"

namespace ko {

/// Placement of dialogs at the mouse cursor. Both functions measure the form and move it inside the desktop's work
/// area. Failures of the screen reach the caller.

/// Places the form's top left corner at the cursor.
void placeAtCursor(Form& form, Screen& screen);

/// Places the middle of the form's upper edge at the cursor; both coordinates of the cursor are scaled with the
/// horizontal factor.
void placeCentredUnderCursor(Form& form, Screen& screen);

/// Moves bounds inside an area, both in twips. Bounds larger than the area are aligned to its left and top edges.
Bounds clampedTo(const Rectangle& area, Bounds bounds);

} // namespace ko
