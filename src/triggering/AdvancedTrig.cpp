#include "triggering/AdvancedTrig.h"

#include "support/Geometry.h"
#include "support/Steps.h"
#include "triggering/LineUse.h"

#include <algorithm>

namespace ko {

namespace {

constexpr int dialogTexts = 1300;
constexpr int noStartLineText = 3018;
constexpr int noScanLineText = 3019;
constexpr int mapText = 3280;

/// The option of a line; null for no line.
OptionButton* optionOf(const AdvancedTrig::Options& options, std::int32_t line)
{
    return line >= 0 && static_cast<std::size_t>(line) < options.size() ? options[static_cast<std::size_t>(line)].get()
                                                                        : nullptr;
}

void setEnabled(const AdvancedTrig::Options& options, std::int32_t line, bool enabled)
{
    if (OptionButton* option = optionOf(options, line))
        option->setEnabled(enabled);
}

LineMask enabledLines(const AdvancedTrig::Options& options)
{
    LineMask lines{};
    for (std::size_t line = 0; line < lines.size(); ++line)
        lines[line] = options[line]->enabled();
    return lines;
}

} // namespace

AdvancedTrig::AdvancedTrig(Support& support) : DialogForm(support, "AdvancedTrig", 1, helpTopic::advancedTrig)
{
    tabTrigger.setTabCaption(startTab, "2");
    tabTrigger.setTabCaption(scanTab, "3");
    btnOK.setTag("4");
    btnCancel.setTag("5");
    btnHelp.setTag("6");
    lblNoStartLine.setTag(std::to_string(noStartLineText - dialogTexts));
    lblNoScanLine.setTag(std::to_string(noScanLineText - dialogTexts));
    for (Label* label : {&lblStartMap, &lblScanMap})
        label->setTag(std::to_string(mapText - dialogTexts));
    tblStartMap.gotFocus = [this] { tabTrigger.setTab(startTab); };
    tblScanMap.gotFocus = [this] { tabTrigger.setTab(scanTab); };
    load(dialogTexts);
    btnOK.click = [this] { btnOK_Click(); };
    btnCancel.click = [this] { btnCancel_Click(); };
    btnHelp.click = [this] { showHelp("btnHelp_Click"); };
    resize(4200, 4800);
}

AdvancedTrig::Options AdvancedTrig::makeOptions(const std::string& name, Frame& frame, Tab tab)
{
    Options options;
    for (std::int32_t line = 0; line < static_cast<std::int32_t>(options.size()); ++line) {
        auto& option = options[static_cast<std::size_t>(line)];
        option = std::make_unique<OptionButton>(*this, name + "(" + std::to_string(line) + ")", &frame);
        option->setTag(std::to_string(lineText + line - dialogTexts));
        option->gotFocus = [this, tab] { tabTrigger.setTab(tab); };
        option->click = [this, tab, line] { tab == startTab ? optStartTrig_Click(line) : optScanTrig_Click(line); };
    }
    return options;
}

void AdvancedTrig::showColumn(const Options& options, const LineMask& available, std::int32_t line, Label& noLine,
                              const LineDrivers& lineDrivers)
{
    for (std::size_t i = 0; i < options.size(); ++i) {
        options[i]->setEnabled(available[i]);
        options[i]->setToolTipText(lineDrivers.hints[i]);
        options[i]->deselect();
    }
    if (OptionButton* current = optionOf(options, line))
        current->showSelected();
    const bool anyLeft = std::any_of(available.begin(), available.end(), [](bool one) { return one; });
    noLine.setVisible(line < 0 && !anyLeft);
}

void AdvancedTrig::showMaps()
{
    showLineMap(tblStartMap, support(), drivers_, LineTrigger::start, {chosenStart_, chosenScan_});
    showLineMap(tblScanMap, support(), drivers_, LineTrigger::scan, {chosenScan_, chosenStart_});
}

void AdvancedTrig::Display(LineMask& availStartLines, LineMask& availScanLines, std::int32_t& startLine,
                           std::int32_t& scanLine, const LineDrivers& lineDrivers)
{
    const Steps step(support().errors, "Display", errorSource::triggering);
    chosenStart_ = startLine;
    chosenScan_ = scanLine;
    drivers_ = lineDrivers.drivers;
    step([&] { showMaps(); });
    showColumn(optStartTrig, availStartLines, startLine, lblNoStartLine, lineDrivers);
    showColumn(optScanTrig, availScanLines, scanLine, lblNoScanLine, lineDrivers);
    tabTrigger.setTabEnabled(startTab, lineDrivers.hasStartMaster);
    tabTrigger.setTabEnabled(scanTab, lineDrivers.hasScanMaster);
    tabTrigger.setTab(startTab);
    changed_ = false;
    step([&] { placeAtCursor(*this, support().platform.screen); });
    moveFocus(&tabTrigger);
    if (!step([&] { support().platform.modalForms.showModal(*this); }))
        changed_ = false;
    dropFocus();
    if (!changed_)
        return;
    availStartLines = enabledLines(optStartTrig);
    availScanLines = enabledLines(optScanTrig);
    startLine = chosenStart_;
    scanLine = chosenScan_;
}

void AdvancedTrig::optStartTrig_Click(std::int32_t line)
{
    setEnabled(optScanTrig, chosenStart_, true);
    setEnabled(optScanTrig, line, false);
    chosenStart_ = line;
    changed_ = true;
    Steps(support().errors, "optStartTrig_Click")([&] { showMaps(); });
}

void AdvancedTrig::optScanTrig_Click(std::int32_t line)
{
    setEnabled(optStartTrig, chosenScan_, true);
    setEnabled(optStartTrig, line, false);
    chosenScan_ = line;
    changed_ = true;
    Steps(support().errors, "optScanTrig_Click")([&] { showMaps(); });
}

void AdvancedTrig::btnOK_Click()
{
    const Steps step(support().errors, "btnOK_Click");
    step([&] { support().platform.modalForms.hide(*this); });
}

void AdvancedTrig::btnCancel_Click()
{
    const Steps step(support().errors, "btnCancel_Click");
    changed_ = false;
    step([&] { support().platform.modalForms.hide(*this); });
}

} // namespace ko
