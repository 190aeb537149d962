#pragma once

#include "page/Page.h"
#include "platform/TabControl.h"
#include "support/DialogForm.h"
#include "triggering/LineMap.h"

#include <array>
#include <memory>
#include <optional>

namespace ko {

/// The drivers on the trigger lines, as the dialog shows them.
struct LineDrivers {
    PerTrigger<bool> hasMaster{true, true};
    std::array<std::string, triggerLineCount> hints{}; ///< the drivers that drive each line; "" when none is known
    std::vector<LineDriver> drivers{};                 ///< drivers that have trigger lines
};

/// The dialog "Trigger Lines": one tab with a column of options for each of the two triggers. Beside the options a
/// table shows what each driver does on each line, for the lines chosen.
class AdvancedTrig : public DialogForm {
public:
    explicit AdvancedTrig(Support& support);

    using Options = std::array<std::unique_ptr<OptionButton>, triggerLineCount>; ///< one per line
    enum Tab : std::int32_t { startTab, scanTab };                               ///< in the order of the triggers

    Frame frmStartTrig{*this, "frmStartTrig"};
    Frame frmScanTrig{*this, "frmScanTrig"};
    TabControl tabTrigger{*this, "tabTrigger", {&frmStartTrig, &frmScanTrig}};
    Options optStartTrig{makeOptions("optStartTrig", frmStartTrig, LineTrigger::start)};
    Label lblNoStartLine{*this, "lblNoStartLine", &frmStartTrig};
    Label lblStartMap{*this, "lblStartMap", &frmStartTrig};
    Table tblStartMap{*this, "tblStartMap", &frmStartTrig};
    Options optScanTrig{makeOptions("optScanTrig", frmScanTrig, LineTrigger::scan)};
    Label lblNoScanLine{*this, "lblNoScanLine", &frmScanTrig};
    Label lblScanMap{*this, "lblScanMap", &frmScanTrig};
    Table tblScanMap{*this, "tblScanMap", &frmScanTrig};
    CommandButton btnOK{*this, "btnOK"};
    CommandButton btnCancel{*this, "btnCancel"};
    CommandButton btnHelp{*this, "btnHelp"};

    /// Shows the dialog with the plan until the user ends it. Returns the plan accepted with OK; none when no line was
    /// chosen. Reports its own failures.
    std::optional<LinePlan> Display(const LinePlan& plan, const LineDrivers& lineDrivers = {});

private:
    Options makeOptions(const std::string& name, Frame& frame, LineTrigger trigger);
    void showTab(LineTrigger trigger) { tabTrigger.setTab(static_cast<std::int32_t>(trigger)); }
    void showDrivers(const LineDrivers& lineDrivers);
    void showPlan(const Steps& step);
    void option_Click(LineTrigger trigger, std::int32_t line);

    LinePlan plan_;
    bool changed_ = false;
    std::vector<LineDriver> drivers_;
};

} // namespace ko
