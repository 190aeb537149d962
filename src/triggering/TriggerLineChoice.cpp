#include "triggering/TriggerLineChoice.h"

#include "interfaces/TriggerLines.h"
#include "platform/Scoped.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/Triggering.h"

#include <algorithm>
#include <utility>

namespace ko {

namespace {

constexpr int noStartLineText = 3018;
constexpr int noScanLineText = 3019;
constexpr int drivesStartText = 3020;
constexpr int drivesScanText = 3021;

void leaveOut(LineMask& available, std::int32_t line)
{
    if (line >= 0)
        available.at(static_cast<std::size_t>(line)) = false;
}

/// The first line available, where none has been chosen yet; -1 when there is none.
void takeFirst(const LineMask& available, std::int32_t& line)
{
    const auto first = std::find(available.begin(), available.end(), true);
    if (line < 0 && first != available.end())
        line = static_cast<std::int32_t>(first - available.begin());
}

void addHint(LineDrivers& lineDrivers, std::int32_t line, std::string text, const std::string& driver)
{
    if (line < 0 || static_cast<std::size_t>(line) >= lineDrivers.hints.size())
        return;
    text.replace(text.find("%1"), 2, driver);
    std::string& hint = lineDrivers.hints[static_cast<std::size_t>(line)];
    hint += (hint.empty() ? "" : "\n") + text;
}

LineOffer offerAt(const LineOffers& offers, std::size_t driver)
{
    return driver < offers.size() ? offers[driver] : LineOffer();
}

} // namespace

TriggerLineChoice::TriggerLineChoice(Page& page, Support& support, Actions& actions, Triggering& triggering,
                                     Dialog dialog)
    : page_(page), support_(support), actions_(actions), triggering_(triggering), dialog_(std::move(dialog))
{
    page.mnuTimebaseTriggerLines.click = [this] { mnuTimebaseTriggerLines_Click(); };
}

void TriggerLineChoice::build(bool found)
{
    page_.startTriggerLine = -1;
    page_.scanTriggerLine = -1;
    page_.availStartLines = {};
    page_.availScanLines = {};
    startOffers_.clear();
    scanOffers_.clear();
    if (found)
        buildLists();
    const bool both = page_.dynamicDriverIndex >= 0 && page_.staticDriverIndex >= 0;
    if (both)
        takeFirstLines();
    page_.mnuTimebaseTriggerLines.setEnabled(both && !page_.readOnly);
    showWhetherLinesAreLeft(both);
    triggering_.setStartTriggerLine(page_.currentDrivers(), page_.dynamicDriverIndex, page_.startTriggerLine);
    triggering_.setScanTriggerLine(page_.currentDrivers(), page_.staticDriverIndex, page_.scanTriggerLine);
}

void TriggerLineChoice::buildLists()
{
    const Drivers drivers = page_.currentDrivers();
    page_.availStartLines = triggering_.buildStartTriggerList(drivers, page_.dynamicDriverIndex, page_.scanTriggerLine);
    page_.availScanLines = triggering_.buildScanTriggerList(drivers, page_.staticDriverIndex, page_.startTriggerLine);
    startOffers_ = triggering_.startOffers();
    scanOffers_ = triggering_.scanOffers();
    if (page_.scanTriggerLine == page_.startTriggerLine)
        page_.scanTriggerLine = -1;
    leaveOutEachOther();
}

/// A wired line is not left out while the lists are built.
void TriggerLineChoice::leaveOutEachOther()
{
    leaveOut(page_.availStartLines, page_.scanTriggerLine);
    leaveOut(page_.availScanLines, page_.startTriggerLine);
}

void TriggerLineChoice::takeFirstLines()
{
    takeFirst(page_.availStartLines, page_.startTriggerLine);
    leaveOutEachOther();
    takeFirst(page_.availScanLines, page_.scanTriggerLine);
    leaveOutEachOther();
}

void TriggerLineChoice::showWhetherLinesAreLeft(bool wanted)
{
    const Steps step(support_.errors, "initializeDocument");
    const bool noStart = wanted && page_.startTriggerLine < 0;
    const bool noScan = wanted && page_.scanTriggerLine < 0;
    step([&] {
        std::string text = noStart ? support_.text(noStartLineText) : "";
        if (noScan)
            text += (text.empty() ? "" : " ") + support_.text(noScanLineText);
        page_.lblNoTriggerLine.setCaption(text);
    });
    page_.lblNoTriggerLine.setVisible(noStart || noScan);
}

LineDrivers TriggerLineChoice::lineDrivers(const Steps& step) const
{
    LineDrivers result;
    result.hasStartMaster = page_.dynamicDriverIndex >= 0;
    result.hasScanMaster = page_.staticDriverIndex >= 0;
    const Drivers drivers = page_.currentDrivers();
    for (std::size_t i = 0; i < drivers.size(); ++i)
        step([&] {
            TriggerLines* lines = drivers[i] ? drivers[i]->queryTriggerLines() : nullptr;
            if (!lines)
                return;
            LineDriver& driver = result.drivers.emplace_back();
            driver.start = offerAt(startOffers_, i);
            driver.scan = offerAt(scanOffers_, i);
            driver.name = drivers[i]->DriverName(0);
            driver.drivesStart = lines->StartTriggerLine();
            addHint(result, driver.drivesStart, support_.text(drivesStartText), driver.name);
            driver.drivesScan = lines->ScanTriggerLine();
            addHint(result, driver.drivesScan, support_.text(drivesScanText), driver.name);
        });
    return result;
}

void TriggerLineChoice::mnuTimebaseTriggerLines_Click()
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const Steps step(support_.errors, "mnuTimebaseTriggerLines_Click", errorSource::triggering);
    const Scoped open(page_.isDialogOpen, true);
    const DriverList driversBefore = page_.drivers;
    LineMask start = page_.availStartLines;
    LineMask scan = page_.availScanLines;
    std::int32_t startLine = page_.startTriggerLine;
    std::int32_t scanLine = page_.scanTriggerLine;
    step([&] { dialog_().Display(start, scan, startLine, scanLine, lineDrivers(step)); });
    // While the dialog was open the host may have handed over another list.
    if (page_.drivers != driversBefore)
        return;
    page_.availStartLines = start;
    page_.availScanLines = scan;
    apply(step, startLine, scanLine);
    showWhetherLinesAreLeft(true);
}

void TriggerLineChoice::apply(const Steps& step, std::int32_t startLine, std::int32_t scanLine)
{
    if (std::exchange(page_.startTriggerLine, startLine) != startLine) {
        triggering_.setStartTriggerLine(page_.currentDrivers(), page_.dynamicDriverIndex, startLine);
        step([&] { actions_.markChanged(); });
    }
    if (std::exchange(page_.scanTriggerLine, scanLine) != scanLine) {
        triggering_.setScanTriggerLine(page_.currentDrivers(), page_.staticDriverIndex, scanLine);
        step([&] { actions_.markChanged(); });
    }
}

} // namespace ko
