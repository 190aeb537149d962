#include "bench/Events.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <limits>
#include <memory>
#include <sys/resource.h>

namespace ko::bench {

namespace {

constexpr double never = std::numeric_limits<double>::infinity();

double secondsOn(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Number of involuntary context switches of this thread.
long interruptions()
{
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nivcsw;
}

/// The duration of the work, excluding other processes: the elapsed time or, when the thread was interrupted, its
/// processor time, which is too coarse for short work.
template <class Work> double seconds(Work&& work)
{
    const long before = interruptions();
    const double processorStart = secondsOn(CLOCK_THREAD_CPUTIME_ID);
    const double start = secondsOn(CLOCK_MONOTONIC);
    work();
    const double taken = secondsOn(CLOCK_MONOTONIC) - start;
    const double processorTime = secondsOn(CLOCK_THREAD_CPUTIME_ID) - processorStart;
    return interruptions() == before ? taken : processorTime;
}

/// The number of rounds of a call's work that take `nanoseconds`.
int rounds(int nanoseconds)
{
    constexpr int tried = 1'000'000;
    static const double fastest = [] {
        double least = never;
        for (int i = 0; i < 20; ++i)
            least = std::min(least, seconds([] { work(tried); }));
        return least;
    }();
    return static_cast<int>(nanoseconds * 1e-9 * tried / fastest);
}

/// Merges consecutive calls that differ only in the channel, because the bare loop also iterates over channels.
std::vector<MadeCall> mergedRows(const std::vector<MadeCall>& made)
{
    std::vector<MadeCall> rows;
    for (const MadeCall& call : made) {
        if (!rows.empty()) {
            MadeCall& row = rows.back();
            MadeCall::Arguments next = row.arguments;
            next.whole[1] += row.count;
            if (row.driver == call.driver && row.again == call.again && next == call.arguments) {
                ++row.count;
                continue;
            }
        }
        rows.push_back(call);
    }
    return rows;
}

/// Caches the last set-up, because creating a large one takes longer than measuring it.
Setup& setupOf(int drivers, int entries)
{
    static std::unique_ptr<Setup> setup;
    static std::pair<int, int> size;
    if (!setup || size != std::pair(drivers, entries)) {
        setup.reset();
        setup = std::make_unique<Setup>(drivers, entries);
        size = {drivers, entries};
    }
    return *setup;
}

/// Measures the event and its lower bound many times alternately and takes the minimum of each, which other work on the
/// machine affects least.
void measure(benchmark::State& state, const Event& event, int drivers, int entries, int nanoseconds)
{
    Setup& setup = setupOf(drivers, entries);
    std::vector<MadeCall> made;
    CallCost noting{0, &made};
    CallCost working{rounds(nanoseconds), nullptr};
    // The first run is a warm-up.
    for (int i = 0; i < 2; ++i) {
        made.clear();
        event.prepare(setup);
        BareDriver::cost = &noting;
        event.run(setup);
        BareDriver::cost = nullptr;
    }
    const std::vector<MadeCall> rows = mergedRows(made);
    double page = never;
    double floor = never;
    for ([[maybe_unused]] const auto& iteration : state) {
        event.prepare(setup);
        BareDriver::cost = nanoseconds > 0 ? &working : nullptr;
        const double taken = seconds([&] { event.run(setup); });
        floor = std::min(floor, seconds([&] {
                             for (const MadeCall& row : rows)
                                 row.repeat();
                         }));
        BareDriver::cost = nullptr;
        page = std::min(page, taken);
        state.SetIterationTime(taken);
    }
    state.counters["calls"] = static_cast<double>(made.size());
    state.counters["page_us"] = page * 1e6;
    state.counters["floor_us"] = floor * 1e6;
    state.counters["ratio"] = page / floor;
}

void add(const Event& event, int drivers, int entries)
{
    for (const int nanoseconds : {0, 200}) {
        const std::string name = event.name + "/drivers:" + std::to_string(drivers) +
                                 "/entries:" + std::to_string(entries) + "/call_ns:" + std::to_string(nanoseconds);
        benchmark::RegisterBenchmark(
            name.c_str(), [=](benchmark::State& state) { measure(state, event, drivers, entries, nanoseconds); })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    }
}

/// Groups the events by set-up.
void addAll()
{
    const std::vector<Event> all = events();
    for (const int drivers : {10, 100, 1000, 10000})
        for (const int entries : {0, 10})
            for (const Event& event : all)
                if (event.offers == Event::Offers::Both ? entries == 0 || event.name == "opening"
                                                        : (event.offers == Event::Offers::Lists) == (entries > 0))
                    add(event, drivers, entries);
    for (const int entries : {1000, 100000})
        for (const int drivers : {10, 100, 1000})
            for (const Event& event : all)
                if (event.name == "opening" || event.offers == Event::Offers::Lists)
                    add(event, drivers, entries);
}

} // namespace

} // namespace ko::bench

int main(int argc, char** argv)
{
    ko::bench::addAll();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
