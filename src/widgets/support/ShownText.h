#pragma once

#include "platform/Utf8.h"
#include "widgets/support/Convert.h"

namespace ko {

/// Converts a text of a file or a driver for display; see `withoutDirections`.
inline QString toShown(const std::string& text)
{
    return toQt(withoutDirections(text));
}

} // namespace ko
