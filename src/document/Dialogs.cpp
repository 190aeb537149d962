#include "document/Dialogs.h"

namespace ko {

void Dialogs::setHelp(const std::shared_ptr<HelpSite>& help)
{
    advancedTrig().IHelp = help;
    setDateTime().IHelp = help;
    selectChannel().IHelp = help;
    showOffers().IHelp = help;
}

} // namespace ko
