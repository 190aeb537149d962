#pragma once

#include "support/DialogForm.h"

namespace ko {

/// The dialog "Set Date & Time".
class SetDateTime : public DialogForm {
public:
    explicit SetDateTime(Support& support);

    CommandButton btnOK{*this, "btnOK"};
    CommandButton btnCancel{*this, "btnCancel"};
    CommandButton btnHelp{*this, "btnHelp"};
};

} // namespace ko
