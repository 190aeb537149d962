#include "Recorded.h"
#include "fakes/Sampled.h"
#include "host/recording/HeldRecording.h"
#include "host/recording/UnfinishedFile.h"
#include "host/support/TemporaryFile.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>

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

namespace ko::test {
namespace {

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

TEST(WriteFailureTest, EveryWriteMayFailAndWhatWasRecordedIsWhole)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    for (const Fate fate : {Fate::FailsOnce, Fate::FailsFromThenOn})
        for (int number = 0, worked = 0; worked == 0; number += sampledOneIn(1)) {
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

TEST(WriteFailureTest, AProgramThatIsKilledInAnyWriteLeavesAFileThatIsWhole)
{
    const Folder folder;
    const std::string file = folder.file("out.h5");
    std::size_t most = 0;
    int files = 0;
    for (int number = 0, status = 1; status != 0; number += sampledOneIn(1)) {
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
    EXPECT_GT(files, 30 / sampledOneIn(1));
    EXPECT_EQ(most, 100352U + 10240U);
}

} // namespace
} // namespace ko::test
