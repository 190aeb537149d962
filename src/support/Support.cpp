#include "support/Support.h"

#include "platform/NumberText.h"

namespace ko {

std::int32_t Support::scrollBarWidth()
{
    if (!scrollBarWidth_)
        scrollBarWidth_ = toLong(platform.screen.verticalScrollBarWidth() * platform.screen.twipsPerPixelX());
    return *scrollBarWidth_;
}

} // namespace ko
