#pragma once

#include "platform/DateControls.h"
#include "platform/PictureBox.h"
#include "support/DialogForm.h"

#include <optional>

namespace ko {

/// The dialog "Set Date & Time".
class SetDateTime : public DialogForm {
public:
    explicit SetDateTime(Support& support);

    Frame frmDate{*this, "frmDate"};
    OptionButton optCurrentDay{*this, "optCurrentDay", &frmDate};
    OptionButton optSpecifiedDay{*this, "optSpecifiedDay", &frmDate};
    Calendar calDate{*this, "calDate", &frmDate};
    Frame frmTime{*this, "frmTime"};
    TimePicker dtpTimeSelector{*this, "dtpTimeSelector", &frmTime};
    PictureBox picClock{*this, "picClock", &frmTime};
    CommandButton btnOK{*this, "btnOK"};
    CommandButton btnCancel{*this, "btnCancel"};
    CommandButton btnHelp{*this, "btnHelp"};

    /// Shows the dialog at the cursor with a date-time or, below 1.0, a time of day, and waits until the user closes
    /// it. Returns the new value (below 1.0: a time of day on any date) after OK, else none. `anyDayOnly` and
    /// `oneDayOnly` disable the other option; with both, the options' enabled state is unchanged. Reports its own
    /// failures.
    std::optional<DateTime> Display(DateTime currentValue, bool anyDayOnly, bool oneDayOnly);

private:
    void showDay(const Steps& step, DateTime currentValue);
    void optCurrentDay_Click();
    void optSpecifiedDay_Click();
    void dtpTimeSelector_Change();
    [[nodiscard]] DateTime chosen() const;

    std::optional<DateTime> newval_;
    int rememberedDay_ = 1;
    DateTime clockTime_;
};

} // namespace ko
