#include "triggering/AdvancedTrig.h"

namespace ko {

namespace {

constexpr int textBase = 1300;

} // namespace

AdvancedTrig::AdvancedTrig(Support& support) : DialogForm(support, "AdvancedTrig", 1, helpTopic::advancedTrig)
{
    btnOK.setTag("4");
    btnCancel.setTag("5");
    btnHelp.setTag("6");
    load(textBase);
    btnHelp.click = [this] { showHelp("btnHelp_Click"); };
}

} // namespace ko
