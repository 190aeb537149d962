#pragma once

#include "interfaces/Values.h"
#include "platform/PictureBox.h"

namespace ko {

/// An analog clock that shows a time of day in a picture of this size: the face, then second, minute and hour hand,
/// each from the centre outwards. Failure 5 for a time that is none.
Drawing clockFace(double width, double height, DateTime time);

} // namespace ko
