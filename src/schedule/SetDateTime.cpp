#include "schedule/SetDateTime.h"

namespace ko {

namespace {

constexpr int textBase = 1200;

} // namespace

SetDateTime::SetDateTime(Support& support) : DialogForm(support, "SetDateTime", 1, helpTopic::setDateTime)
{
    btnOK.setTag("2");
    btnCancel.setTag("3");
    btnHelp.setTag("4");
    load(textBase);
    btnHelp.click = [this] { showHelp("btnHelp_Click"); };
}

} // namespace ko
