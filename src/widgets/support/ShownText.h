#pragma once

#include "platform/Utf8.h"
#include "widgets/support/Convert.h"

namespace ko {

/// A text of a file or a driver as it is shown; see `withoutDirections`.
inline QString toShown(const std::string& text)
{
    return toQt(withoutDirections(text));
}

} // namespace ko
