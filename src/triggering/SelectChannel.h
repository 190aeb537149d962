#pragma once

#include "support/DialogForm.h"

namespace ko {

/// The dialog "Select Trigger Channel". Its help topic is set by the document.
class SelectChannel : public DialogForm {
public:
    explicit SelectChannel(Support& support);

    CommandButton cmdOK{*this, "cmdOK"};
    CommandButton cmdCancel{*this, "cmdCancel"};
    CommandButton cmdHelp{*this, "cmdHelp"};
};

} // namespace ko
