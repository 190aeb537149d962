#include "page/Messages.h"

#include "page/Page.h"

namespace ko {

void showError(const Support& support, int textNumber)
{
    support.platform.messageBox.show(support.text(textNumber), support.text(1160), messageStyle::exclamation);
}

void showLimitMessage(const Support& support, std::int32_t code)
{
    showError(support, pageTextBase + code);
}

} // namespace ko
