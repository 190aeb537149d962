#include "host/window/FrameSite.h"

namespace ko {

void FrameSite::ShowHint(const std::string& hint, const std::string& hintCaption)
{
    if (showHint)
        showHint(hint, hintCaption);
}

void FrameSite::ShowHelpTopic(std::int32_t topic)
{
    if (showHelp)
        showHelp(topic);
}

void FrameSite::close()
{
    caption = nullptr;
    showHint = nullptr;
    showHelp = nullptr;
}

} // namespace ko
