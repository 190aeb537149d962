#pragma once

#include "page/Page.h"
#include "platform/TabControl.h"
#include "support/DialogForm.h"
#include "triggering/LineMap.h"

#include <array>
#include <memory>
#include <optional>

namespace ko {

/// What the dialog shows of the drivers on the lines.
struct LineDrivers {
    PerTrigger<bool> hasMaster{true, true};
    std::array<std::string, triggerLineCount> hints{}; ///< which drivers drive each line; "" for none known
    std::vector<LineDriver> drivers{};                 ///< those that have trigger lines
};

/// The dialog "Trigger Lines": a column of options for each of the two triggers, on a tab each. It shows beside the
/// options what the drivers do on each line as it is chosen.
class AdvancedTrig : public DialogForm {
public:
    explicit AdvancedTrig(Support& support);

    using Options = std::array<std::unique_ptr<OptionButton>, triggerLineCount>; ///< a line each
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

    /// Shows the dialog with the plan until the user ends it: the plan that the user has chosen and accepted with OK;
    /// none when no line was chosen. Reports its own failures.
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
