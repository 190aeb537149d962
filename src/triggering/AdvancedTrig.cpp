#include "triggering/AdvancedTrig.h"

#include "support/TextNumbers.h"

namespace ko {

namespace {

namespace number = textNumber::lines;

/// The controls of one trigger's tab.
struct Column {
    const AdvancedTrig::Options& options;
    Label& noLine;
    Table& map;
};

Column columnOf(AdvancedTrig& form, LineTrigger trigger)
{
    if (trigger == LineTrigger::start)
        return {form.optStartTrig, form.lblNoStartLine, form.tblStartMap};
    return {form.optScanTrig, form.lblNoScanLine, form.tblScanMap};
}

} // namespace

AdvancedTrig::AdvancedTrig(Support& support)
    : DialogForm(support, "AdvancedTrig", number::block, number::title, helpTopic::advancedTrig)
{
    tabTrigger.setTabCaption(startTab, offset(number::startTab));
    tabTrigger.setTabCaption(scanTab, offset(number::syncTab));
    btnOK.setTag(offset(number::ok));
    btnCancel.setTag(offset(number::cancel));
    btnHelp.setTag(offset(number::help));
    lblNoStartLine.setTag(offset(number::noStartLine));
    lblNoScanLine.setTag(offset(number::noScanLine));
    for (Label* label : {&lblStartMap, &lblScanMap})
        label->setTag(offset(number::map));
    for (const LineTrigger trigger : lineTriggers)
        columnOf(*this, trigger).map.gotFocus = [this, trigger] { showTab(trigger); };
    load(btnOK, btnCancel, &btnHelp);
    resize(4200, 4800);
}

AdvancedTrig::Options AdvancedTrig::makeOptions(const std::string& name, Frame& frame, LineTrigger trigger)
{
    Options options;
    for (std::int32_t line = 0; line < triggerLineCount; ++line) {
        auto& option = options[static_cast<std::size_t>(line)];
        option = std::make_unique<OptionButton>(*this, name + "(" + std::to_string(line) + ")", &frame);
        option->setTag(offset(number::line + line));
        option->gotFocus = [this, trigger] { showTab(trigger); };
        option->click = [this, trigger, line] { option_Click(trigger, line); };
    }
    return options;
}

void AdvancedTrig::showDrivers(const LineDrivers& lineDrivers)
{
    drivers_ = lineDrivers.drivers;
    for (const LineTrigger trigger : lineTriggers) {
        const Options& options = columnOf(*this, trigger).options;
        for (std::size_t line = 0; line < options.size(); ++line)
            options[line]->setToolTipText(lineDrivers.hints[line]);
        tabTrigger.setTabEnabled(static_cast<std::int32_t>(trigger), lineDrivers.hasMaster[trigger]);
    }
}

void AdvancedTrig::showPlan(const Steps& step)
{
    for (const LineTrigger trigger : lineTriggers) {
        const Column column = columnOf(*this, trigger);
        for (std::size_t line = 0; line < column.options.size(); ++line) {
            OptionButton& option = *column.options[line];
            option.setEnabled(plan_.available(trigger)[line]);
            static_cast<std::int32_t>(line) == plan_.line(trigger) ? option.showSelected() : option.deselect();
        }
        column.noLine.setVisible(plan_.lacksLine(trigger));
        step([&] { showLineMap(column.map, support(), drivers_, trigger, plan_); });
    }
}

std::optional<LinePlan> AdvancedTrig::Display(const LinePlan& plan, const LineDrivers& lineDrivers)
{
    const Steps step(support().errors, "Display", errorSource::triggering);
    plan_ = plan;
    showDrivers(lineDrivers);
    showPlan(step);
    tabTrigger.setTab(startTab);
    changed_ = false;
    const bool accepted = show(step, placeAtCursor, tabTrigger);
    return accepted && changed_ ? std::optional(plan_) : std::nullopt;
}

void AdvancedTrig::option_Click(LineTrigger trigger, std::int32_t line)
{
    const Steps step(support().errors, trigger == LineTrigger::start ? "optStartTrig_Click" : "optScanTrig_Click");
    plan_.choose(trigger, line);
    changed_ = true;
    showPlan(step);
}

} // namespace ko
