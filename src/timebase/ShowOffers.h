#pragma once

#include "platform/Table.h"
#include "support/DialogForm.h"

namespace ko {

/// The dialog that shows what each driver offers.
class ShowOffers : public DialogForm {
public:
    explicit ShowOffers(Support& support);

    Label lblCommon{*this, "lblCommon"};
    Table tblOffers{*this, "tblOffers"};
    CommandButton btnClose{*this, "btnClose"};

    /// Shows the dialog at the cursor and waits until the user closes it. Reports its own failures.
    void Display(const std::string& title, const std::string& common, std::vector<std::string> columns,
                 std::vector<Table::Row> rows);
};

} // namespace ko
