#pragma once

#include "page/Page.h"
#include "platform/TabControl.h"
#include "support/DialogForm.h"
#include "triggering/LineMap.h"

#include <array>
#include <memory>

namespace ko {

/// What the dialog tells of the drivers behind the lines.
struct LineDrivers {
    bool hasStartMaster = true;
    bool hasScanMaster = true;
    std::array<std::string, 8> hints{}; ///< who drives each line; "" where nobody is known to
    std::vector<LineDriver> drivers{};  ///< those that have trigger lines
};

/// The dialog "Trigger Lines": a column of options for each of the two triggers, on a tab each. It keeps the two
/// triggers off each other's line, and shows beside the options what the drivers do on each line as it is chosen.
class AdvancedTrig : public DialogForm {
public:
    explicit AdvancedTrig(Support& support);

    using Options = std::array<std::unique_ptr<OptionButton>, 8>; ///< a line each
    enum Tab : std::int32_t { startTab, scanTab };

    Frame frmStartTrig{*this, "frmStartTrig"};
    Frame frmScanTrig{*this, "frmScanTrig"};
    TabControl tabTrigger{*this, "tabTrigger", {&frmStartTrig, &frmScanTrig}};
    Options optStartTrig{makeOptions("optStartTrig", frmStartTrig, startTab)};
    Label lblNoStartLine{*this, "lblNoStartLine", &frmStartTrig};
    Label lblStartMap{*this, "lblStartMap", &frmStartTrig};
    Table tblStartMap{*this, "tblStartMap", &frmStartTrig};
    Options optScanTrig{makeOptions("optScanTrig", frmScanTrig, scanTab)};
    Label lblNoScanLine{*this, "lblNoScanLine", &frmScanTrig};
    Label lblScanMap{*this, "lblScanMap", &frmScanTrig};
    Table tblScanMap{*this, "tblScanMap", &frmScanTrig};
    CommandButton btnOK{*this, "btnOK"};
    CommandButton btnCancel{*this, "btnCancel"};
    CommandButton btnHelp{*this, "btnHelp"};

    /// Shows the dialog with the lines that may be chosen and the two chosen ones (-1: none) until the user ends it.
    /// When the user has chosen other lines and pressed OK, they and the lines then left stand in the arguments.
    /// Reports its own failures.
    void Display(LineMask& availStartLines, LineMask& availScanLines, std::int32_t& startLine, std::int32_t& scanLine,
                 const LineDrivers& lineDrivers = {});

private:
    Options makeOptions(const std::string& name, Frame& frame, Tab tab);
    void showColumn(const Options& options, const LineMask& available, std::int32_t line, Label& noLine,
                    const LineDrivers& lineDrivers);
    void showMaps();
    void optStartTrig_Click(std::int32_t line);
    void optScanTrig_Click(std::int32_t line);
    void btnOK_Click();
    void btnCancel_Click();

    std::int32_t chosenStart_ = -1;
    std::int32_t chosenScan_ = -1;
    bool changed_ = false;
    std::vector<LineDriver> drivers_;
};

} // namespace ko
