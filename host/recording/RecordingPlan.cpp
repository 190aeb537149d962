#include "host/recording/RecordingPlan.h"

#include "platform/Counts.h"
#include "platform/DateTimes.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "schedule/Moments.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace ko {

namespace {

[[noreturn]] void refuse(const std::string& name, const std::string& reason)
{
    throw RecordingRefusal(name + ": " + reason);
}

std::int64_t samplesOf(const ArmedSettings& settings, Driver& driver)
{
    if (!settings.isDynamic)
        return std::max(required(driver.queryStaticMeasurement()).NumberOfScans(), 0);
    const double samples = widen(settings.duration) / settings.period;
    return std::max(toLong(wholeBlocks(samples, static_cast<std::int32_t>(settings.blockSize))), 0);
}

PlannedInstrument planned(Instrument& instrument, Acquisition& acquisition, PlanFor purpose)
{
    PlannedInstrument plan;
    plan.name = instrument.name();
    try {
        plan.settings = purpose == PlanFor::Recording ? acquisition.arm() : acquisition.settingsToArm();
        if (!(plan.settings.period > 0.0))
            fail(failure::divisionByZero);
        plan.samples = samplesOf(plan.settings, instrument.driver());
    } catch (const std::exception& error) {
        refuse(plan.name, error.what());
    }
    plan.isFixed = !plan.settings.isDynamic && instrument.held().numberOfScans.has_value();
    return plan;
}

/// The instrument that triggers the others: the first one that drives the start line, or else the first of the highest
/// rank, as the page chooses it. Null if there is none.
PlannedInstrument* startMaster(std::vector<PlannedInstrument>& instruments)
{
    const auto rank = [](const PlannedInstrument& it) {
        const bool isWired = it.settings.startTriggerLine >= 0 && it.settings.startMasterRank > 0;
        return isWired ? std::numeric_limits<std::int32_t>::max() : it.settings.startMasterRank;
    };
    const auto best = std::max_element(instruments.begin(), instruments.end(),
                                       [&](const auto& a, const auto& b) { return rank(a) < rank(b); });
    return best == instruments.end() || rank(*best) <= 0 ? nullptr : &*best;
}

void planTrigger(std::vector<PlannedInstrument>& instruments)
{
    PlannedInstrument* const master = startMaster(instruments);
    if (!master)
        throw RecordingRefusal("the recording starts on trigger, but no instrument can send the start trigger");
    if (!master->settings.trigger)
        refuse(master->name, "the recording starts on trigger, but no channel is the trigger source");
    const std::int32_t line = master->settings.startTriggerLine;
    for (PlannedInstrument& instrument : instruments)
        if (line >= 0 && instrument.settings.startTriggerInput == line)
            instrument.starts = StartsOn::StartLine;
    master->starts = StartsOn::OwnTrigger;
}

void planStart(RecordingPlan& plan)
{
    auto& instruments = plan.instruments;
    const bool isAnyRecorded =
        std::any_of(instruments.begin(), instruments.end(), [](const auto& it) { return it.isRecorded(); });
    if (!isAnyRecorded)
        throw RecordingRefusal("no instrument has a timebase and an enabled channel");
    plan.startMode = instruments.front().settings.startMode;
    plan.startTime = instruments.front().settings.startTime;
    if (plan.startMode == startMode::onTrigger)
        planTrigger(instruments);
    std::erase_if(instruments,
                  [](const PlannedInstrument& it) { return !it.isRecorded() && it.starts != StartsOn::OwnTrigger; });
}

/// What the page promises of all instruments.
class PromisedBytes {
public:
    /// Returns the bytes of this instrument.
    double add(const std::shared_ptr<Instrument>& instrument)
    {
        const std::shared_ptr<Driver> driver(instrument, &instrument->driver());
        const ByteTotals own = sumDriverBytes({&driver, 1});
        totals_.dynamicBytes += own.dynamicBytes;
        totals_.staticBytes += own.staticBytes;
        (countsAsDynamic(*driver) ? hasDynamic_ : hasStatic_) = true;
        return own.dynamicBytes + own.staticBytes;
    }

    void refuseBeyondLimit(const TextSource& text) const
    {
        const std::int32_t code = checkDiskSpace(totals_, hasDynamic_, hasStatic_);
        if (code != diskSpace::fits)
            throw RecordingRefusal(text(textNumber::page::block + code));
    }

private:
    ByteTotals totals_;
    bool hasDynamic_ = false;
    bool hasStatic_ = false;
};

RecordingPlan planOf(const Instruments& instruments, PlanFor purpose, const TextSource& text)
{
    RecordingPlan plan;
    PromisedBytes bytes;
    for (std::size_t i = 0; i < instruments.size(); ++i) {
        Acquisition* const acquisition = instruments[i]->acquisition();
        if (acquisition) {
            plan.instruments.push_back(planned(*instruments[i], *acquisition, purpose));
            plan.instruments.back().index = i;
            plan.isRealTime = plan.isRealTime || acquisition->isRealTime();
        }
        // A device that was missing may have been opened to arm it.
        const double pageBytes = bytes.add(instruments[i]);
        if (acquisition)
            plan.instruments.back().pageBytes = pageBytes;
    }
    planStart(plan);
    bytes.refuseBeyondLimit(text);
    return plan;
}

} // namespace

double PlannedInstrument::bytes() const
{
    return 4.0 * static_cast<double>(samples) * static_cast<double>(settings.channels.size());
}

double RecordingPlan::bytes() const
{
    return std::accumulate(instruments.begin(), instruments.end(), 0.0,
                           [](double sum, const PlannedInstrument& it) { return sum + it.bytes(); });
}

RecordingPlan planRecording(const Instruments& instruments, PlanFor purpose, const TextSource& text)
{
    try {
        return planOf(instruments, purpose, text);
    } catch (...) {
        if (purpose == PlanFor::Recording)
            disarm(instruments);
        throw;
    }
}

void RecordingPlan::startOn(std::optional<DateTime> date)
{
    if (date && startMode == startMode::atTime && !startTime.hasDate())
        startTime.days += date->days;
}

std::optional<DateTime> dateOfStart(const Page& page, const Locale& locale, DateTime now)
{
    return stopsAtDate(page, locale) ? std::optional(datePart(now)) : std::nullopt;
}

void disarm(const Instruments& instruments)
{
    for (const auto& instrument : instruments)
        if (Acquisition* const acquisition = instrument->acquisition())
            acquisition->stop();
}

} // namespace ko
