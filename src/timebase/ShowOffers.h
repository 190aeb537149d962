#pragma once

#include "platform/ComboBox.h"
#include "platform/Table.h"
#include "platform/TextBox.h"
#include "support/DialogForm.h"

#include <functional>

namespace ko {

/// The dialog that compares what the drivers hold and shows what each one offers. The user can set a quantity of all
/// drivers there.
class ShowOffers : public DialogForm {
public:
    explicit ShowOffers(Support& support);

    Label lblCommon{*this, "lblCommon"};
    Table tblOffers{*this, "tblOffers"};
    ComboBox cmbQuantity{*this, "cmbQuantity"}; ///< which quantity `cmdSetAll` sets
    TextBox txtValue{*this, "txtValue"};
    CommandButton cmdSetAll{*this, "cmdSetAll"};
    CommandButton btnClose{*this, "btnClose"};

    struct Content {
        std::string common; ///< a sentence on what the drivers share
        std::vector<std::string> columns;
        std::vector<Table::Row> rows;
        std::size_t row = 0, column = 0; ///< of the cell to start from
    };
    /// A quantity that can be set.
    struct Settable {
        std::string caption;
        std::string value; ///< as the page shows it
    };
    /// What the dialog needs of its caller. Failures are reported under the handler's name.
    struct Source {
        std::function<Content()> content;
        std::function<std::vector<Settable>()> settable;
        /// Sets a quantity, by its index among the settable ones, of all drivers.
        std::function<void(std::size_t, const std::string&)> setAll;
    };

    /// Shows the dialog at the cursor, with the quantity `first` to be set, and waits until the user closes it. Without
    /// settable quantities nothing can be set. Reports its own failures.
    void Display(const std::string& title, Source source, std::size_t first);

private:
    Content fill();
    void showValue();
    void setAll();

    Source source_;
    std::vector<Settable> settable_;
};

} // namespace ko
