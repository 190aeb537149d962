// ko_recording_bench FILE SECONDS paced|unpaced [INSTRUMENTS]: records 64 channels of 200 kSa/s, divided among the
// instruments, and prints what that has taken. Ends with 1 if samples are lost or the recording is not complete.
#include "host/recording/RecordingRun.h"
#include "host/setup/SetupFile.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/resource.h>

namespace {

std::string instrument(int channels, const char* seconds)
{
    std::string list;
    for (int i = 0; i < channels; ++i)
        list += (i > 0 ? ", " : "") + std::string("{\"address\": \"1:") + std::to_string(i) +
                "\", \"signal\": {\"frequency\": " + std::to_string(50 + i) + "}}";
    return R"({"name": "Digitizer", "groups": [{"name": "g", "channels": [)" + list +
           R"(]}], "timebase": {"samplePeriod": {"value": 0.000005}, "blockSize": {"value": 4000}, "duration": )" +
           seconds + "}}";
}

ko::Instruments instruments(int count, const char* seconds)
{
    std::string drivers;
    for (int i = 0; i < count; ++i)
        drivers += (i > 0 ? ", " : "") + instrument(64 / count, seconds);
    const auto made = ko::makeDrivers(ko::parseSetup("{\"drivers\": [" + drivers + "]}", "bench.json"));
    return {made.begin(), made.end()};
}

double seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4)
        return 2;
    const ko::Instruments list = instruments(argc > 4 ? std::atoi(argv[4]) : 1, argv[2]);
    const bool isPaced = std::string(argv[3]) == "paced";
    ko::RecordingPlan plan =
        ko::planRecording(list, ko::PlanFor::Recording, [](int number) { return std::to_string(number); });
    const double bytes = plan.bytes();
    const auto start = std::chrono::steady_clock::now();
    const ko::RecordingRun run(
        list, std::move(plan),
        {.file = argv[1], .title = {}, .setup = {}, .clock = {}, .isPaced = isPaced, .freeBytes = {}});
    const ko::RecordingProgress end = run.wait();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    long long lost = 0;
    for (const auto& it : end.instruments)
        lost += it.lost;
    std::printf("%.1f s, %.2f of a core, %.0f MB of memory, %lld samples lost, %.0f MB/s\n", taken.count(),
                (seconds(usage.ru_utime) + seconds(usage.ru_stime)) / taken.count(),
                static_cast<double>(usage.ru_maxrss) / 1024.0, lost, bytes / taken.count() * 1e-6);
    for (const std::string& failure : end.failures)
        std::fprintf(stderr, "%s\n", failure.c_str());
    return lost == 0 && end.state == ko::RunState::Done ? 0 : 1;
}
