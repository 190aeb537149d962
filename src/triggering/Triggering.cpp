#include "triggering/Triggering.h"
#include "interfaces/TriggerLines.h"
#include "platform/Failure.h"
#include "support/Steps.h"
#include "triggering/LineUse.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace ko {

namespace {

constexpr std::int32_t bestRank = 10;

/// The operations of one of the two triggers, and the procedure names for its reports.
struct TriggerRole {
    LineList (TriggerLines::*linesAsMaster)();
    LineList (TriggerLines::*linesAsListener)();
    std::int32_t (TriggerLines::*line)();
    void (TriggerLines::*setLine)(std::int32_t);
    void (TriggerLines::*setInput)(std::int32_t);
    const char* build;
    const char* set;
};

constexpr PerTrigger<TriggerRole> roles{
    {&TriggerLines::StartLinesAsMaster, &TriggerLines::StartLinesAsListener, &TriggerLines::StartTriggerLine,
     &TriggerLines::setStartTriggerLine, &TriggerLines::setStartTriggerInput, "buildStartTriggerList",
     "setStartTriggerLine"},
    {&TriggerLines::ScanLinesAsMaster, &TriggerLines::ScanLinesAsListener, &TriggerLines::ScanTriggerLine,
     &TriggerLines::setScanTriggerLine, &TriggerLines::setScanTriggerInput, "buildScanTriggerList",
     "setScanTriggerLine"}};

/// Maps all negative numbers to -1 (no line). Failure 9 for a line that does not exist.
std::int32_t wiredLine(std::int32_t line)
{
    if (line >= triggerLineCount)
        fail(failure::subscriptOutOfRange);
    return std::max(line, -1);
}

/// Queries the drivers only as far as needed to find the masters, and each value once.
class Survey {
public:
    Survey(const Steps& step, Drivers drivers) : step_(step), states_(drivers.size())
    {
        for (std::size_t i = 0; i < drivers.size(); ++i)
            states_[i].lines = step.value([&] { return drivers[i] ? drivers[i]->queryTriggerLines() : nullptr; });
    }

    /// Negative for a driver that is ignored.
    std::int32_t startLine(std::size_t i) { return query(i, states_[i].startLine, &TriggerLines::StartTriggerLine); }
    std::int32_t startRank(std::size_t i) { return query(i, states_[i].startRank, &TriggerLines::StartMasterRank); }
    std::int32_t scanLine(std::size_t i) { return query(i, states_[i].scanLine, &TriggerLines::ScanTriggerLine); }
    std::int32_t scanRank(std::size_t i) { return query(i, states_[i].scanRank, &TriggerLines::ScanMasterRank); }

    /// False for -1 and for a driver that has failed or has no trigger lines.
    [[nodiscard]] bool isAvailable(std::int32_t i) const
    {
        return i >= 0 && states_[static_cast<std::size_t>(i)].lines;
    }

    template <class Condition> std::int32_t first(Condition condition)
    {
        for (std::size_t i = 0; i < states_.size(); ++i)
            if (condition(i))
                return static_cast<std::int32_t>(i);
        return -1;
    }

    std::int32_t best(std::int32_t (Survey::*rank)(std::size_t))
    {
        std::int32_t found = -1;
        std::int32_t highest = 0;
        for (std::size_t i = 0; i < states_.size() && highest < bestRank; ++i) {
            if (const std::int32_t own = (this->*rank)(i); own > highest) {
                highest = own;
                found = static_cast<std::int32_t>(i);
            }
        }
        return found;
    }

private:
    using Answer = std::optional<std::int32_t>;
    struct State {
        TriggerLines* lines = nullptr;
        Answer startLine, startRank, scanLine, scanRank;
    };

    std::int32_t query(std::size_t i, Answer& answer, std::int32_t (TriggerLines::*getter)())
    {
        State& driver = states_[i];
        if (!driver.lines)
            return -1;
        const bool isLine = getter == &TriggerLines::StartTriggerLine || getter == &TriggerLines::ScanTriggerLine;
        if (!answer && !step_([&] {
                const std::int32_t value = (driver.lines->*getter)();
                answer = isLine ? wiredLine(value) : value;
            }))
            driver.lines = nullptr;
        return answer.value_or(-1);
    }

    const Steps& step_;
    std::vector<State> states_;
};

TriggerLines* linesOf(Drivers drivers, std::size_t index)
{
    return index < drivers.size() && drivers[index] ? drivers[index]->queryTriggerLines() : nullptr;
}

/// True for the listed lines. Lines that do not exist are reported as one failure for the whole list.
LineMask maskOf(const Steps& step, const LineList& list)
{
    LineMask mask{};
    bool outside = false;
    for (const std::int32_t line : list) {
        const bool exists = line >= 0 && line < triggerLineCount;
        if (exists)
            mask[static_cast<std::size_t>(line)] = true;
        outside = outside || !exists;
    }
    if (outside)
        step([] { fail(failure::subscriptOutOfRange); });
    return mask;
}

/// None when the driver fails.
std::optional<LineMask> offeredLines(const Steps& step, TriggerLines& lines, LineList (TriggerLines::*getter)())
{
    LineList list;
    if (!step([&] { list = (lines.*getter)(); }))
        return std::nullopt;
    LineMask all;
    all.fill(true);
    return list.empty() ? all : maskOf(step, list);
}

std::int32_t firstStartMaster(Drivers drivers)
{
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        try {
            TriggerLines* lines = linesOf(drivers, i);
            if (lines && lines->StartMasterRank() >= 0)
                return static_cast<std::int32_t>(i);
        } catch (...) {
            // Try the next driver.
            continue;
        }
    }
    return -1;
}

} // namespace

TriggerMasters Triggering::findTriggerMasters(Drivers drivers)
{
    const Steps step(support_.errors, "findTriggerMasters", errorSource::triggering);
    Survey survey(step, drivers);
    TriggerMasters masters;
    // A driver that fails is ignored, so repeat if it was already chosen as a master.
    do {
        masters.start = survey.first([&](auto i) { return survey.startLine(i) >= 0 && survey.startRank(i) > 0; });
        masters.scan = survey.first([&](auto i) { return survey.scanLine(i) >= 0; });
        const bool startIsWired = masters.start >= 0;
        const bool scanIsWired = masters.scan >= 0;
        masters.driven = {startIsWired ? survey.startLine(static_cast<std::size_t>(masters.start)) : -1,
                          scanIsWired ? survey.scanLine(static_cast<std::size_t>(masters.scan)) : -1};
        if (!startIsWired)
            masters.start = survey.best(&Survey::startRank);
        if (!scanIsWired)
            masters.scan = survey.best(&Survey::scanRank);
    } while ((masters.start >= 0 && !survey.isAvailable(masters.start)) ||
             (masters.scan >= 0 && !survey.isAvailable(masters.scan)));
    return masters;
}

UsableLinesByDriver Triggering::buildTriggerList(LineTrigger trigger, Drivers drivers, std::int32_t master)
{
    const TriggerRole& role = roles[trigger];
    const Steps step(support_.errors, role.build, errorSource::triggering);
    UsableLinesByDriver usable(drivers.size());
    const auto masterAt = static_cast<std::size_t>(master);
    if (masterAt < usable.size())
        usable[masterAt].isMaster = true;
    TriggerLines* masterLines = step.value([&] { return linesOf(drivers, masterAt); });
    if (!masterLines)
        return usable;
    usable[masterAt].lines = offeredLines(step, *masterLines, role.linesAsMaster);
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        TriggerLines* lines = i == masterAt ? nullptr : step.value([&] { return linesOf(drivers, i); });
        if (lines)
            usable[i].lines = offeredLines(step, *lines, role.linesAsListener);
    }
    return usable;
}

Triggering::WrittenLine Triggering::setTriggerLine(LineTrigger trigger, Drivers drivers, std::int32_t master,
                                                   std::int32_t line, std::int32_t before)
{
    const TriggerRole& role = roles[trigger];
    const Steps step(support_.errors, role.set, errorSource::triggering);
    if (master < 0 && trigger == LineTrigger::start)
        master = firstStartMaster(drivers);
    const auto masterAt = static_cast<std::size_t>(master);
    TriggerLines* masterLines = step.value([&] { return linesOf(drivers, masterAt); });
    if (!masterLines)
        return {before};
    WrittenLine result;
    result.written = step([&] { (masterLines->*role.setLine)(line); });
    result.line = result.written ? line : before;
    step([&] { result.line = wiredLine((masterLines->*role.line)()); });
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        TriggerLines* lines = i == masterAt ? nullptr : step.value([&] { return linesOf(drivers, i); });
        if (lines)
            step([&] { (lines->*role.setInput)(result.line); });
    }
    return result;
}

} // namespace ko
