#include "triggering/TriggerLineChoice.h"

#include "interfaces/TriggerLines.h"
#include "platform/Scoped.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/Triggering.h"

#include <utility>

namespace ko {

namespace {

constexpr PerTrigger<int> noLineText{textNumber::lines::noStartLine, textNumber::lines::noScanLine};
constexpr PerTrigger<int> drivesText{textNumber::lines::drivesStart, textNumber::lines::drivesScan};

void addHint(LineDrivers& lineDrivers, std::int32_t line, const std::string& text, const std::string& driver)
{
    if (line < 0 || static_cast<std::size_t>(line) >= lineDrivers.hints.size())
        return;
    std::string& hint = lineDrivers.hints[static_cast<std::size_t>(line)];
    hint += (hint.empty() ? "" : "\n") + filled(text, {driver});
}

UsableLines usableAt(const UsableLinesByDriver& usable, std::size_t driver)
{
    return driver < usable.size() ? usable[driver] : UsableLines();
}

} // namespace

TriggerLineChoice::TriggerLineChoice(Page& page, Support& support, Actions& actions, Triggering& triggering,
                                     Dialog dialog)
    : page_(page), support_(support), actions_(actions), triggering_(triggering), dialog_(std::move(dialog))
{
    page.mnuTimebaseTriggerLines.click = [this] { mnuTimebaseTriggerLines_Click(); };
}

void TriggerLineChoice::build(const TriggerMasters& masters)
{
    page_.lines = wiredLines(masters);
    const bool both = page_.dynamicDriverIndex >= 0 && page_.staticDriverIndex >= 0;
    page_.mnuTimebaseTriggerLines.setEnabled(both && !page_.readOnly);
    for (const LineTrigger trigger : lineTriggers) {
        const std::int32_t wired = page_.lines.line(trigger);
        write(trigger, both ? page_.lines.lineOrFirst(trigger) : wired, wired);
    }
    showWhetherLinesAreLeft(both);
}

LinePlan TriggerLineChoice::wiredLines(const TriggerMasters& masters)
{
    usable_ = {};
    if (!masters.found())
        return {};
    PerTrigger<LineMask> offered;
    for (const LineTrigger trigger : lineTriggers) {
        usable_[trigger] = triggering_.buildTriggerList(trigger, page_.currentDrivers(), masters[trigger]);
        offered[trigger] = commonLines(usable_[trigger]);
    }
    return {offered, masters.driven};
}

/// Updates the page to the line that the master then drives. Returns whether the master accepted the write.
bool TriggerLineChoice::write(LineTrigger trigger, std::int32_t line, std::int32_t before)
{
    const PerTrigger<std::int32_t> masters{page_.dynamicDriverIndex, page_.staticDriverIndex};
    const Triggering::WrittenLine result =
        triggering_.setTriggerLine(trigger, page_.currentDrivers(), masters[trigger], line, before);
    page_.lines.put(trigger, result.line);
    return result.written;
}

void TriggerLineChoice::showWhetherLinesAreLeft(bool wanted)
{
    const Steps step(support_.errors, "initializeDocument");
    std::string text;
    for (const LineTrigger trigger : lineTriggers)
        if (wanted && page_.lines.lacksLine(trigger))
            step([&] { text += (text.empty() ? "" : " ") + support_.text(noLineText[trigger]); });
    page_.lblNoTriggerLine.setCaption(text);
    page_.lblNoTriggerLine.setVisible(!text.empty());
}

LineDrivers TriggerLineChoice::lineDrivers(const Steps& step) const
{
    LineDrivers result;
    result.hasMaster = {page_.dynamicDriverIndex >= 0, page_.staticDriverIndex >= 0};
    const Drivers drivers = page_.currentDrivers();
    for (std::size_t i = 0; i < drivers.size(); ++i)
        step([&] {
            TriggerLines* lines = drivers[i] ? drivers[i]->queryTriggerLines() : nullptr;
            if (!lines)
                return;
            LineDriver& driver = result.drivers.emplace_back();
            for (const LineTrigger trigger : lineTriggers)
                driver.roles[trigger].usable = usableAt(usable_[trigger], i);
            driver.name = drivers[i]->DriverName(0);
            for (const LineTrigger trigger : lineTriggers) {
                std::int32_t& drives = driver.roles[trigger].drives;
                drives = trigger == LineTrigger::start ? lines->StartTriggerLine() : lines->ScanTriggerLine();
                addHint(result, drives, support_.text(drivesText[trigger]), driver.name);
            }
        });
    return result;
}

void TriggerLineChoice::mnuTimebaseTriggerLines_Click()
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const Steps step(support_.errors, "mnuTimebaseTriggerLines_Click", errorSource::triggering);
    const Scoped open(page_.isDialogOpen, true);
    const LinePlan before = page_.lines;
    const auto chosen = step.value([&] { return dialog_().Display(before, lineDrivers(step)); });
    if (!chosen)
        return;
    page_.lines = *chosen;
    apply(step, before);
    showWhetherLinesAreLeft(true);
}

void TriggerLineChoice::apply(const Steps& step, const LinePlan& before)
{
    const LinePlan chosen = page_.lines;
    for (const LineTrigger trigger : lineTriggers) {
        const std::int32_t old = before.line(trigger);
        // The start master may have kept the line that was chosen for the sync trigger.
        if (page_.lines.line(trigger) < 0)
            page_.lines.put(trigger, old);
        const std::int32_t line = page_.lines.line(trigger);
        if (line != old && write(trigger, line, old))
            step([&] { actions_.markChanged(); });
        // The choice was not applied, so the lines that it freed for the other trigger are not available.
        if (page_.lines.line(trigger) != chosen.line(trigger))
            page_.lines.restoreOffer(otherThan(trigger), before);
    }
}

} // namespace ko
