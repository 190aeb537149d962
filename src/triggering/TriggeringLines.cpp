#include "interfaces/TriggerLines.h"
#include "platform/Failure.h"
#include "support/Steps.h"
#include "triggering/Triggering.h"

#include <algorithm>

namespace ko {

namespace {

constexpr std::int32_t lineCount = 8;
constexpr std::int32_t bestRank = 10;

/// One of the two triggers, by the operations that serve it.
struct TriggerRole {
    LineList (TriggerLines::*linesAsMaster)();
    LineList (TriggerLines::*linesAsListener)();
    void (TriggerLines::*setLine)(std::int32_t);
    void (TriggerLines::*setInput)(std::int32_t);
};

constexpr TriggerRole startRole{&TriggerLines::StartLinesAsMaster, &TriggerLines::StartLinesAsListener,
                                &TriggerLines::setStartTriggerLine, &TriggerLines::setStartTriggerInput};
constexpr TriggerRole scanRole{&TriggerLines::ScanLinesAsMaster, &TriggerLines::ScanLinesAsListener,
                               &TriggerLines::setScanTriggerLine, &TriggerLines::setScanTriggerInput};

/// What the survey knows of a driver; as it is made, a driver that takes no part.
struct Wiring {
    std::int32_t startLine = -1, startRank = -1, scanLine = -1, scanRank = -1;
};

std::int32_t wiredLine(std::int32_t line)
{
    if (line >= lineCount)
        fail(failure::subscriptOutOfRange);
    return line;
}

Wiring wiringOf(const std::shared_ptr<Driver>& driver)
{
    TriggerLines* lines = driver ? driver->queryTriggerLines() : nullptr;
    if (!lines)
        return {};
    const std::int32_t startLine = wiredLine(lines->StartTriggerLine());
    const std::int32_t startRank = lines->StartMasterRank();
    const std::int32_t scanLine = wiredLine(lines->ScanTriggerLine());
    return {startLine, startRank, scanLine, lines->ScanMasterRank()};
}

template <class Condition> std::int32_t firstOf(const std::vector<Wiring>& survey, Condition condition)
{
    const auto found = std::find_if(survey.begin(), survey.end(), condition);
    return found == survey.end() ? -1 : static_cast<std::int32_t>(found - survey.begin());
}

std::int32_t bestOf(const std::vector<Wiring>& survey, std::int32_t Wiring::*rank)
{
    std::int32_t found = -1;
    std::int32_t best = 0;
    for (std::size_t i = 0; i < survey.size() && best < bestRank; ++i) {
        if (survey[i].*rank <= best)
            continue;
        best = survey[i].*rank;
        found = static_cast<std::int32_t>(i);
    }
    return found;
}

TriggerLines* linesOf(Drivers drivers, std::size_t index)
{
    return index < drivers.size() && drivers[index] ? drivers[index]->queryTriggerLines() : nullptr;
}

/// True at the listed lines. A line that does not exist is one failure for the whole list.
LineMask maskOf(const Steps& step, const LineList& list)
{
    LineMask mask{};
    bool outside = false;
    for (const std::int32_t line : list) {
        const bool exists = line >= 0 && line < lineCount;
        if (exists)
            mask[static_cast<std::size_t>(line)] = true;
        outside = outside || !exists;
    }
    if (outside)
        step([] { fail(failure::subscriptOutOfRange); });
    return mask;
}

void restrict(const Steps& step, LineMask& available, const LineList& list)
{
    if (list.empty())
        return;
    const LineMask mask = maskOf(step, list);
    for (std::size_t line = 0; line < available.size(); ++line)
        available[line] = available[line] && mask[line];
}

LineMask commonLines(const Steps& step, Drivers drivers, std::int32_t master, const TriggerRole& role)
{
    LineMask available;
    available.fill(true);
    const auto masterAt = static_cast<std::size_t>(master);
    TriggerLines* masterLines = master < 0 ? nullptr : step.value([&] { return linesOf(drivers, masterAt); });
    if (!masterLines)
        return available;
    restrict(step, available, step.value([&] { return (masterLines->*role.linesAsMaster)(); }));
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        TriggerLines* lines = i == masterAt ? nullptr : step.value([&] { return linesOf(drivers, i); });
        if (lines)
            restrict(step, available, step.value([&] { return (lines->*role.linesAsListener)(); }));
    }
    return available;
}

void leaveOut(const Steps& step, LineMask& available, std::int32_t& line, std::int32_t surveyed)
{
    if (line < 0)
        line = surveyed;
    else
        step([&] {
            if (line >= lineCount)
                fail(failure::subscriptOutOfRange);
            available[static_cast<std::size_t>(line)] = false;
        });
}

void setLine(const Steps& step, Drivers drivers, std::int32_t master, std::int32_t line, const TriggerRole& role)
{
    const auto masterAt = static_cast<std::size_t>(master);
    TriggerLines* masterLines = step.value([&] { return linesOf(drivers, masterAt); });
    if (!masterLines)
        return;
    step([&] { (masterLines->*role.setLine)(line); });
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        TriggerLines* lines = i == masterAt ? nullptr : step.value([&] { return linesOf(drivers, i); });
        if (lines)
            step([&] { (lines->*role.setInput)(line); });
    }
}

std::int32_t firstStartMaster(Drivers drivers)
{
    for (std::size_t i = 0; i < drivers.size(); ++i) {
        try {
            TriggerLines* lines = linesOf(drivers, i);
            if (lines && lines->StartMasterRank() >= 0)
                return static_cast<std::int32_t>(i);
        } catch (...) {
            // The next driver may do.
            continue;
        }
    }
    return -1;
}

} // namespace

TriggerMasters Triggering::findTriggerMasters(Drivers drivers)
{
    const Steps step(support_.errors, "findTriggerMasters", errorSource::triggering);
    masterStartLine_ = -1;
    masterScanLine_ = -1;
    std::vector<Wiring> survey;
    for (const auto& driver : drivers)
        survey.push_back(step.value([&] { return wiringOf(driver); }));
    TriggerMasters masters;
    masters.start = firstOf(survey, [](const Wiring& w) { return w.startLine >= 0 && w.startRank > 0; });
    masters.scan = firstOf(survey, [](const Wiring& w) { return w.scanLine >= 0; });
    if (masters.start >= 0)
        masterStartLine_ = survey[static_cast<std::size_t>(masters.start)].startLine;
    else
        masters.start = bestOf(survey, &Wiring::startRank);
    if (masters.scan >= 0)
        masterScanLine_ = survey[static_cast<std::size_t>(masters.scan)].scanLine;
    else
        masters.scan = bestOf(survey, &Wiring::scanRank);
    return masters;
}

LineMask Triggering::buildStartTriggerList(Drivers drivers, std::int32_t startMaster, std::int32_t& scanLine)
{
    const Steps step(support_.errors, "buildStartTriggerList", errorSource::triggering);
    LineMask available = commonLines(step, drivers, startMaster, startRole);
    leaveOut(step, available, scanLine, masterScanLine_);
    return available;
}

LineMask Triggering::buildScanTriggerList(Drivers drivers, std::int32_t scanMaster, std::int32_t& startLine)
{
    const Steps step(support_.errors, "buildScanTriggerList", errorSource::triggering);
    LineMask available = commonLines(step, drivers, scanMaster, scanRole);
    leaveOut(step, available, startLine, masterStartLine_);
    return available;
}

void Triggering::setStartTriggerLine(Drivers drivers, std::int32_t master, std::int32_t line)
{
    const Steps step(support_.errors, "setStartTriggerLine", errorSource::triggering);
    if (master < 0)
        master = firstStartMaster(drivers);
    if (master >= 0)
        setLine(step, drivers, master, line, startRole);
}

void Triggering::setScanTriggerLine(Drivers drivers, std::int32_t master, std::int32_t line)
{
    const Steps step(support_.errors, "setScanTriggerLine", errorSource::triggering);
    if (master >= 0)
        setLine(step, drivers, master, line, scanRole);
}

} // namespace ko
