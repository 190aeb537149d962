#pragma once

#include "platform/Table.h"
#include "support/DialogForm.h"

namespace ko {

/// The dialog that tells which driver offers what.
class ShowOffers : public DialogForm {
public:
    explicit ShowOffers(Support& support);

    Label lblCommon{*this, "lblCommon"};
    Table tblOffers{*this, "tblOffers"};
    CommandButton btnClose{*this, "btnClose"};

    /// Shows the dialog at the cursor and waits until the user has closed it. Reports its own failures.
    void Display(const std::string& title, const std::string& common, std::vector<std::string> columns,
                 std::vector<Table::Row> rows);
};

} // namespace ko
