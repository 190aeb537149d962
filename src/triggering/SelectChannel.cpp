#include "triggering/SelectChannel.h"

namespace ko {

namespace {

constexpr int textBase = 2400;

} // namespace

SelectChannel::SelectChannel(Support& support) : DialogForm(support, "SelectChannel", 1, 0)
{
    cmdOK.setTag("2");
    cmdCancel.setTag("3");
    cmdHelp.setTag("4");
    load(textBase);
    cmdHelp.click = [this] { showHelp("cmdHelp_Click"); };
}

} // namespace ko
