#include "host/modules/AcquisitionCheck.h"

#include "host/modules/CheckedSink.h"
#include "host/modules/ShortRuns.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace ko {

namespace {

using Monotonic = std::chrono::steady_clock;

constexpr double longestRun = 5.0;      // seconds
constexpr double triggerPatience = 0.5; // seconds
constexpr std::int64_t endless = 1000000000;

Monotonic::duration inTime(double seconds)
{
    return std::chrono::duration_cast<Monotonic::duration>(std::chrono::duration<double>(seconds));
}

class AcquisitionCheck {
public:
    AcquisitionCheck(const OpenedInstrument& opened, Acquisition& acquisition, const ModuleCheckOptions& options)
        : log_(opened.log), opened_(opened), acquisition_(acquisition), options_(options)
    {
    }

    void ordersOutOfTurn();
    /// Acquires to the end.
    void wholeRun();
    void stoppedRun();
    void triggeredRun();
    /// Closes the instrument while it acquires.
    void closedRun(std::unique_ptr<Instrument> instrument);

private:
    struct Run {
        ArmedSettings armed;
        AcquisitionOrder order;
        CheckedSink* sink = nullptr;
        bool isStarted = false;
    };

    std::optional<ArmedSettings> arm();
    /// Arms and starts; none if the settings cannot be armed.
    std::optional<Run> start(std::int64_t blocks, bool onTrigger = false);
    void startAgain(const Run& run);
    CheckedSink& sinkFor(const ArmedSettings& armed, const AcquisitionOrder& order);
    void stop(const char* call = "stop");
    void stopAndEnd(const Run& run);
    [[nodiscard]] std::int64_t blocksOf(const ArmedSettings& armed) const;
    /// As the host does, another thread than that of the page starts and stops.
    static void elsewhere(const std::function<void()>& act) { std::thread(act).join(); }

    CheckLog& log_;
    const OpenedInstrument& opened_;
    Acquisition& acquisition_;
    const ModuleCheckOptions& options_;
    std::vector<std::unique_ptr<CheckedSink>> sinks_; ///< all live to the end, whatever the instrument does
};

CheckedSink& AcquisitionCheck::sinkFor(const ArmedSettings& armed, const AcquisitionOrder& order)
{
    return *sinks_.emplace_back(std::make_unique<CheckedSink>(log_, armed, order));
}

std::optional<ArmedSettings> AcquisitionCheck::arm()
{
    const auto promised = log_.must("settingsToArm", [&] { return acquisition_.settingsToArm(); });
    auto armed = log_.must("arm", [&] { return acquisition_.arm(); });
    if (promised && armed && *promised != *armed)
        log_.blame("arm", "returns other settings than settingsToArm");
    if (armed)
        compareArmed(opened_, *armed);
    return armed;
}

std::int64_t AcquisitionCheck::blocksOf(const ArmedSettings& armed) const
{
    const double block = static_cast<double>(armed.blockSize) * armed.period;
    return std::max<std::int64_t>(
        std::llround(std::chrono::duration<double>(options_.run).count() / std::max(block, 1e-6)), 1);
}

void AcquisitionCheck::stop(const char* call)
{
    elsewhere([&] { log_.must(call, [&] { acquisition_.stop(); }); });
}

std::optional<AcquisitionCheck::Run> AcquisitionCheck::start(std::int64_t blocks, bool onTrigger)
{
    const auto armed = arm();
    if (!armed)
        return std::nullopt;
    if (!(std::isfinite(armed->period) && armed->period > 0.0 && armed->blockSize > 0)) {
        log_.blame("arm", "returns a period or a block size by which nothing can be acquired");
        stop();
        return std::nullopt;
    }
    const AcquisitionOrder order{.origin = Monotonic::now(),
                                 .samples = std::min(blocks * armed->blockSize, endless),
                                 .onTrigger = onTrigger,
                                 .notBefore = 0.0,
                                 .patience = triggerPatience,
                                 .isPaced = true};
    Run run{*armed, order, &sinkFor(*armed, order), false};
    elsewhere([&] {
        run.sink->setStarting(true);
        const auto act = [&] { acquisition_.start(order, *run.sink); };
        run.isStarted = (onTrigger ? log_.may("start, on trigger", act) : log_.must("start", act)).has_value();
        run.sink->setStarting(false);
    });
    return run;
}

void AcquisitionCheck::stopAndEnd(const Run& run)
{
    stop();
    if (run.isStarted && !run.sink->hasEnded())
        log_.blame("stop", "returns before ended has come");
    stop("stop, a second time");
}

void AcquisitionCheck::ordersOutOfTurn()
{
    stop("stop, before anything was armed");
    const AcquisitionOrder order{.origin = Monotonic::now(), .samples = 1};
    const auto startUnarmed = [&](const char* call) {
        CheckedSink& sink = sinkFor({}, order);
        elsewhere([&] { log_.mustFail(call, [&] { acquisition_.start(order, sink); }); });
        stop();
    };
    startUnarmed("start, not armed");
    arm();
    stop("stop, armed");
    startUnarmed("start, disarmed by stop");
}

void AcquisitionCheck::wholeRun()
{
    // The first run, which is stopped at once, shows how long a block is.
    auto run = start(1);
    if (!run)
        return;
    stopAndEnd(*run);
    const std::int64_t blocks = blocksOf(run->armed);
    const double seconds = static_cast<double>(blocks * run->armed.blockSize) * run->armed.period;
    if (seconds > longestRun)
        return log_.note("a block takes " + checkedNumber(seconds) + " s, so that none was awaited");
    run = start(blocks);
    if (!run || !run->isStarted)
        return;
    if (!run->sink->awaitEnd(run->order.origin + inTime(seconds) + options_.patience))
        log_.blame("start", "ended has not come");
    stopAndEnd(*run);
    if (!run->sink->reason().empty())
        log_.blame("ended", "fails: " + run->sink->reason());
    else if (run->sink->samples() != run->order.samples)
        log_.blame("ended", "comes after " + std::to_string(run->sink->samples()) + " of " +
                                std::to_string(run->order.samples) + " samples");
    if (run->sink->lost() > 0)
        log_.note(std::to_string(run->sink->lost()) + " of " + std::to_string(run->order.samples) +
                  " samples were lost");
}

void AcquisitionCheck::startAgain(const Run& run)
{
    elsewhere([&] {
        log_.mustFail("start, a second time", [&] { acquisition_.start(run.order, sinkFor(run.armed, run.order)); });
    });
    log_.mustFail("arm, while it acquires", [&] { acquisition_.arm(); });
}

void AcquisitionCheck::stoppedRun()
{
    const auto run = start(endless);
    if (!run || !run->isStarted)
        return;
    startAgain(*run);
    run->sink->awaitSamples(run->order.origin + options_.run);
    stopAndEnd(*run);
    if (!run->sink->reason().empty())
        log_.blame("stop", "ends with the reason " + run->sink->reason());
}

void AcquisitionCheck::triggeredRun()
{
    const auto run = start(1, true);
    if (!run)
        return;
    const double seconds = static_cast<double>(run->order.samples) * run->armed.period;
    if (run->isStarted && seconds <= longestRun &&
        !run->sink->awaitEnd(run->order.origin + inTime(seconds + triggerPatience) + options_.patience))
        log_.blame("start, on trigger", "ended has not come");
    const bool isOver = run->sink->hasEnded();
    stopAndEnd(*run);
    if (isOver && !run->sink->hasTriggered() && run->sink->reason().empty())
        log_.blame("start, on trigger", "ends without a trigger and without a reason");
}

void AcquisitionCheck::closedRun(std::unique_ptr<Instrument> instrument)
{
    const auto run = start(endless);
    if (run && run->isStarted)
        run->sink->awaitSamples(run->order.origin + options_.run);
    log_.must("closing the instrument while it acquires", [&] { instrument.reset(); });
    if (run && run->isStarted && !run->sink->hasEnded())
        log_.blame("closing the instrument while it acquires", "is done before ended has come");
}

} // namespace

void checkAcquisition(CheckLog& log, std::unique_ptr<Instrument> instrument, const ModuleCheckOptions& options)
{
    const auto opened = openedInstrument(log, *instrument);
    Acquisition* const acquisition =
        log.must("acquisition", [&] { return instrument->acquisition(); }).value_or(nullptr);
    if (!opened || !opened->timebase || !acquisition) {
        if (opened && (opened->timebase != nullptr) != (acquisition != nullptr))
            log.blame("acquisition",
                      acquisition ? "is there without a timebase" : "returns null, and there is a timebase");
        return;
    }
    setForShortRuns(*opened);
    AcquisitionCheck check(*opened, *acquisition, options);
    check.ordersOutOfTurn();
    check.wholeRun();
    check.stoppedRun();
    check.wholeRun();
    if (chooseTrigger(*opened))
        check.triggeredRun();
    check.closedRun(std::move(instrument));
}

} // namespace ko
