#pragma once

#include "interfaces/Values.h"
#include "platform/PictureBox.h"

namespace ko {

/// Draws an analog clock in a picture of this size: the face, then the second, minute and hour hands, each from the
/// centre outwards. Failure 5 for an invalid time.
Drawing clockFace(double width, double height, DateTime time);

} // namespace ko
