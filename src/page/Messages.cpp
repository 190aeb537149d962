#include "page/Messages.h"

#include "page/Page.h"
#include "support/TextNumbers.h"

namespace ko {

void showError(const Support& support, int text)
{
    support.platform.messageBox.show(support.text(text), support.text(textNumber::page::error),
                                     messageStyle::exclamation);
}

void showLimitMessage(const Support& support, std::int32_t code)
{
    showError(support, textNumber::page::block + code);
}

} // namespace ko
