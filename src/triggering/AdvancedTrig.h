#pragma once

#include "support/DialogForm.h"

namespace ko {

/// The dialog "Trigger Lines".
class AdvancedTrig : public DialogForm {
public:
    explicit AdvancedTrig(Support& support);

    CommandButton btnOK{*this, "btnOK"};
    CommandButton btnCancel{*this, "btnCancel"};
    CommandButton btnHelp{*this, "btnHelp"};
};

} // namespace ko
