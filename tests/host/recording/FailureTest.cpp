#include "Recorded.h"

#include "host/recording/BlockQueue.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/RecordingTexts.h"
#include "host/recording/UnfinishedFile.h"
#include "host/support/TemporaryFile.h"

#include <atomic>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

enum class Fate { Works, FailsOnce, FailsFromThenOn, Kills };

/// What becomes of the program's writes.
struct Writes {
    std::atomic<Fate> fate = Fate::Works;
    std::atomic<int> left = 0; ///< that still work

    void plan(Fate planned, int number)
    {
        left = number;
        fate = planned;
    }
    bool areFailing(int file)
    {
        struct stat status {};
        const bool isNamed = fstat(file, &status) == 0 && status.st_nlink > 0;
        if (fate == Fate::Works || !isNamed || left-- > 0)
            return false;
        if (fate == Fate::FailsOnce)
            fate = Fate::Works;
        return true;
    }
} writes;

} // namespace

// The library finds these in the program before those of the system.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): those of the system are reserved
extern "C" {
__attribute__((visibility("default"))) ssize_t pwrite(int fd, const void* buf, size_t n, off_t offset)
{
    if (!writes.areFailing(fd))
        return syscall(SYS_pwrite64, fd, buf, n, offset);
    // Systems write less than a page whole or not at all.
    syscall(SYS_pwrite64, fd, buf, n / 2 / 4096 * 4096, offset);
    if (writes.fate == Fate::Kills)
        kill(getpid(), SIGKILL);
    errno = ENOSPC;
    return -1;
}
__attribute__((visibility("default"))) int ftruncate(int fd, off_t length) noexcept
{
    if (!writes.areFailing(fd))
        return static_cast<int>(syscall(SYS_ftruncate, fd, length));
    if (writes.fate == Fate::Kills)
        kill(getpid(), SIGKILL);
    errno = EIO;
    return -1;
}
}
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace ko {
namespace {

using namespace test;

/// Checks that each sample is its own number after `base`, or lost; returns how many are lost.
std::int64_t lostOf(const std::vector<float>& samples, float base = 0.0F)
{
    std::int64_t lost = 0;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (std::isnan(samples[i]))
            ++lost;
        else if (samples[i] != base + static_cast<float>(i))
            ADD_FAILURE() << i << " is " << samples[i];
    return lost;
}

TEST(RecordingFailureTest, LostSamplesKeepTheirPlaceAndAFailingInstrumentStopsNoOther)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    const struct {
        Scripted::Script script;
        std::int64_t samples, lost;
        std::vector<std::string> failures;
        RunState end;
    } cases[]{
        {[](BlockSink& sink) {
             sink.deliver(numbers(0, 100, 2));
             sink.deliver(numbers(150, 60, 2));
             sink.deliver(numbers(200, 10, 2)); // known already
             sink.deliver(numbers(190, 30, 2)); // known in part
             sink.ended(260, "the cable is unplugged");
         },
         260,
         90,
         {"Counter: the cable is unplugged"},
         RunState::Failed},
        {[](BlockSink& sink) {
             sink.deliver(numbers(1, 200000, 2));
             sink.ended(200001, "");
         },
         300,
         1,
         {},
         RunState::Done},
        {[](BlockSink& sink) { sink.ended(0, ""); },
         0,
         0,
         {"Counter: ended after 0 of 300 samples"},
         RunState::Stopped},
        {[](BlockSink& sink) { sink.ended(1000000, ""); }, 300, 300, {}, RunState::Done},
        {nullptr, 0, 0, {"Counter: is switched off"}, RunState::Failed},
    };
    for (const auto& c : cases) {
        auto instruments = instrumentsOf("{\"name\": \"Bare\"}," + instrument(""));
        instruments.push_back(std::make_shared<Scripted>(counter(300, R"(}, {"address": "1:2")"), c.script));
        const RecordingRun run(instruments, armed(instruments), into(file));
        const RecordingProgress end = run.wait();
        EXPECT_EQ(end.state, c.end);
        EXPECT_EQ(end.failures, c.failures);
        EXPECT_FALSE(end.hasFileFailed);
        EXPECT_EQ(end.instruments[1].lost, c.lost);
        const std::string sum = byteText(4.0 * static_cast<double>(10240 + 2 * c.samples));
        EXPECT_NE(progressText(end).find(sum + ", " + std::to_string(c.lost) + " samples lost"), std::string::npos);
        const Reading held(file);
        for (const std::size_t channel : {0U, 1U}) {
            const auto samples = held.samples("instrument-2/channel-0-" + std::to_string(channel));
            EXPECT_EQ(std::ssize(samples), c.samples);
            EXPECT_EQ(lostOf(samples, static_cast<float>(channel) * 1e6F), c.lost);
            // Of the chart, the first channel is another instrument's.
            const auto shown = run.chart()->extents(channel + 1, {.first = 0.0, .width = 1.0, .count = samples.size()});
            for (std::size_t i = 0; i < shown.size(); ++i)
                EXPECT_TRUE(std::isnan(samples[i]) ? shown[i].isEmpty() : (shown[i] == Extent{samples[i], samples[i]}));
        }
        EXPECT_EQ(held.number("instrument-2", "lost"), static_cast<double>(c.lost));
        EXPECT_EQ(held.text("/", "state"), stateText(c.end));
        EXPECT_EQ(held.samples("instrument-1/channel-0-0").size(), 10240U);
    }
}

TEST(RecordingFailureTest, InRealTimeBlocksWithoutRoomAreLostElseTheInstrumentWaits)
{
    const Folder folder;
    const Scripted::Script script = [](BlockSink& sink) {
        for (std::int64_t block = 0; block < 500; ++block)
            sink.deliver(numbers(block * 1000, 1000));
        sink.ended(500000, "");
    };
    for (const bool isPaced : {false, true}) {
        RecordingOptions options = into(folder.file("out.h5"));
        options.isPaced = isPaced;
        options.queueBytes = 10000;
        const RecordingProgress end = recorded({std::make_shared<Scripted>(counter(500000), script)}, options);
        EXPECT_EQ(end.state, RunState::Done);
        const auto samples = Reading(options.file).samples("instrument-0/channel-0-0");
        EXPECT_EQ(samples.size(), 500000U);
        EXPECT_EQ(lostOf(samples), end.instruments[0].lost);
        EXPECT_TRUE(isPaced || end.instruments[0].lost == 0);
    }
}

TEST(BlockQueueTest, HasRoomForItsBytesForOneBlockOfAnySizeAndForWordsAlways)
{
    BlockQueue queue(8);
    const auto offered = [&](std::size_t samples) { queue.offer({0, Block{0, 1, std::vector<float>(samples)}}); };
    const auto taken = [&] {
        std::vector<std::size_t> sizes;
        while (const auto delivery = queue.take({}))
            sizes.push_back(delivery->what.index() == 1 ? std::get<Block>(delivery->what).samples.size() : 0);
        return sizes;
    };
    using Sizes = std::vector<std::size_t>;
    offered(5);
    offered(1);
    queue.offer({0, Delivery::Triggered{1}});
    EXPECT_EQ(taken(), (Sizes{5, 0})) << "one that is too large, then none";
    offered(1);
    offered(1);
    offered(1);
    EXPECT_EQ(taken(), (Sizes{1, 1}));
    queue.open();
    offered(5);
    offered(5);
    EXPECT_EQ(taken(), (Sizes{5, 5}));
}

TEST(RecordingFailureTest, ADiskThatGetsFullEndsTheRecordingWithAWholeFile)
{
    const Folder folder;
    RecordingOptions options = into(folder.file("out.h5"));
    options.isPaced = true;
    options.flushInterval = std::chrono::milliseconds(50);
    options.freeBytes = [calls = 0]() mutable { return ++calls < 4 ? 1e12 : 1e6; };
    const RecordingProgress end = recorded(instrumentsOf(instrument(R"("duration": 1000)")), options);
    EXPECT_EQ(end.state, RunState::Failed);
    EXPECT_TRUE(end.hasFileFailed);
    ASSERT_EQ(end.failures.size(), 1U);
    EXPECT_NE(end.failures[0].find("the disk is nearly full"), std::string::npos);
    const Reading held(options.file);
    EXPECT_EQ(held.text("/", "state"), "failed");
    EXPECT_EQ(std::ssize(held.samples("instrument-0/channel-0-0")), end.instruments[0].samples);
}

/// Two instruments, flushed at each step, so that every kind of write occurs many times.
const std::string clipping = R"(, "range": [-0.5, 1])";
const std::string twoInstruments = instrument(R"("samplePeriod": {"value": 0.0001})", "", clipping.c_str()) + "," +
                                   instrument("", "", clipping.c_str());

RecordingOptions flushing(const std::string& file)
{
    RecordingOptions options = into(file);
    options.flushInterval = std::chrono::milliseconds(0);
    return options;
}

/// Waits for the end, and adds markers meanwhile.
RecordingProgress markedToTheEnd(RecordingRun& run)
{
    while (!run.waitFor(std::chrono::milliseconds(1)))
        run.addMarker("mark");
    return run.progress();
}

/// Checks a file that has lost its program or its disk: it can be read as it is, and by all programs once the mark is
/// cleared, and it holds the beginning of the recording. Returns the samples of both instruments.
std::size_t expectWhole(const std::string& file)
{
    std::size_t count = 0;
    const auto read = [&](unsigned how) {
        const Reading held(file, how);
        EXPECT_TRUE(held.isOpen()) << file << how;
        const std::size_t before = std::exchange(count, 0);
        for (const auto& [dataset, period] :
             {std::pair("instrument-0/channel-0-0", 0.0001), {"instrument-1/channel-0-0", 0.001}}) {
            const Signal signal({}, "1:1", period, {-0.5, 1});
            const auto samples = held.samples(dataset);
            count += samples.size();
            for (std::size_t i = 0; i < samples.size(); ++i)
                if (std::abs(samples[i] - signal.at(static_cast<std::int64_t>(i))) > 1e-6) {
                    ADD_FAILURE() << dataset << " " << i << " of " << samples.size() << ": " << samples[i];
                    break;
                }
        }
        for (const Marker& marker : held.markers())
            EXPECT_EQ(marker.text, "mark");
        EXPECT_TRUE(how != H5F_ACC_RDONLY || before == 0 || before == count);
    };
    if (const Reading held(file); !held.isOpen())
        read(H5F_ACC_RDONLY | H5F_ACC_SWMR_READ);
    EXPECT_FALSE(isLocked(file));
    clearUnfinished(file);
    read(H5F_ACC_RDONLY);
    return count;
}

TEST(RecordingFailureTest, EveryWriteMayFailAndWhatWasRecordedIsWhole)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    for (const Fate fate : {Fate::FailsOnce, Fate::FailsFromThenOn})
        for (int number = 0, worked = 0; worked == 0; ++number) {
            ASSERT_LT(number, 1000);
            std::filesystem::remove(file);
            const auto instruments = instrumentsOf(twoInstruments);
            RecordingPlan plan = armed(instruments);
            writes.plan(fate, number);
            try {
                RecordingRun run(instruments, std::move(plan), flushing(file));
                const RecordingProgress end = markedToTheEnd(run);
                worked = writes.left.load() >= 0 && writes.fate != Fate::Works;
                writes.plan(Fate::Works, 0);
                EXPECT_EQ(end.state, worked ? RunState::Done : RunState::Failed) << number;
                EXPECT_EQ(end.hasFileFailed, !worked) << number;
                EXPECT_TRUE(worked || !end.failures.empty());
                if (fate == Fate::FailsOnce && !worked) {
                    EXPECT_EQ(Reading(file).text("/", "state"), "failed") << number;
                }
                expectWhole(file);
            } catch (const std::runtime_error& error) {
                writes.plan(Fate::Works, 0);
                EXPECT_NE(std::string(error.what()).find(file + ": cannot be written: "), std::string::npos);
                EXPECT_TRUE(std::filesystem::is_empty(std::filesystem::path(file).parent_path())) << number;
            }
        }
}

TEST(RecordingFailureTest, AProgramThatIsKilledInAnyWriteLeavesAFileThatIsWhole)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    std::size_t most = 0;
    int files = 0;
    for (int number = 0, status = 1; status != 0; ++number) {
        ASSERT_LT(number, 1000);
        std::filesystem::remove(file);
        const pid_t child = fork();
        if (child == 0) {
            const auto instruments = instrumentsOf(twoInstruments);
            RecordingPlan plan = armed(instruments);
            writes.plan(Fate::Kills, number);
            auto run = std::make_unique<RecordingRun>(instruments, std::move(plan), flushing(file));
            const bool isDone = markedToTheEnd(*run).state == RunState::Done;
            run.reset();
            _exit(isDone ? 0 : 1);
        }
        waitpid(child, &status, 0);
        ASSERT_TRUE(status == 0 || WIFSIGNALED(status)) << status;
        if (!std::filesystem::exists(file))
            continue;
        ++files;
        const std::size_t held = expectWhole(file);
        EXPECT_TRUE(status != 0 || heldIn(file).state == "complete");
        most = std::max(most, held);
    }
    EXPECT_GT(files, 30);
    EXPECT_EQ(most, 100352U + 10240U);
}

} // namespace
} // namespace ko
