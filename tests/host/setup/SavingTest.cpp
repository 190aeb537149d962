#include "host/setup/SetupSaving.h"

#include "host/main/SettingsCommand.h"
#include "host/scenario/ScenarioCapture.h"
#include "host/settings/Settings.h"
#include "host/setup/Answers.h"
#include "host/support/FileWriter.h"
#include "host/support/InputError.h"
#include "interfaces/Timebase.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// Number of system calls that still succeed; negative: all.
int callsLeft = -1;

bool failsNow(int error)
{
    errno = error;
    return callsLeft >= 0 && callsLeft-- == 0;
}

} // namespace

// The linker redirects the program's system calls to these (--wrap).
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
int __real_open(const char* name, int flags, mode_t mode);
ssize_t __real_pwrite(int file, const void* bytes, size_t count, off_t at);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);

int __wrap_open(const char* name, int flags, mode_t mode)
{
    return failsNow(ENOSPC) ? -1 : __real_open(name, flags, mode);
}
ssize_t __wrap_pwrite(int file, const void* bytes, size_t count, off_t at)
{
    // Like a nearly full disk, writes only a part.
    return failsNow(ENOSPC) ? -1 : __real_pwrite(file, bytes, std::min<size_t>(count, 4000), at);
}
int __wrap_fsync(int file)
{
    return failsNow(EIO) ? -1 : __real_fsync(file);
}
int __wrap_rename(const char* from, const char* to)
{
    return failsNow(EIO) ? -1 : __real_rename(from, to);
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace ko::test {
namespace {

namespace fs = std::filesystem;

enum class End { Killed, Done, NotTraced };

/// Runs `work` in a child process, which is killed when it enters or leaves a system call for the `stop`-th time.
template <class Work> End killedAt(int stop, const Work& work)
{
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(1);
        std::raise(SIGSTOP);
        work();
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    for (int i = 0; i < stop && WIFSTOPPED(status); ++i) {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
    }
    if (WIFEXITED(status))
        return WEXITSTATUS(status) == 0 ? End::Done : End::NotTraced;
    kill(child, SIGKILL);
    waitpid(child, &status, 0);
    return End::Killed;
}

class SavingTest : public testing::Test {
protected:
    const fs::path folder_ =
        fs::path(testing::TempDir()) / testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::string file_ = (folder_ / "bench.json").string();
    const ko::Setup old_ = named("old"), new_ = named(std::string(20000, 'n'));

    void SetUp() override { fs::create_directories(folder_); }
    void TearDown() override { fs::remove_all(folder_); }

    static ko::Setup named(const std::string& title)
    {
        return parseSetup(R"({"title": ")" + title + R"(", "drivers": []})", "");
    }
    /// Calls `save` with its n-th system call failing, for each n until none fails. Returns the number of calls.
    int failEachCall(const std::string& file, const std::function<void()>& prepare, const std::function<bool()>& save)
    {
        for (int n = 0;; ++n) {
            prepare();
            const std::string before = readFile(file);
            const auto files = std::distance(fs::directory_iterator(folder_), {});
            callsLeft = n;
            const bool isSaved = save();
            const bool hasFailed = std::exchange(callsLeft, -1) < 0;
            EXPECT_EQ(isSaved, !hasFailed) << file << " " << n;
            EXPECT_EQ(readFile(file) == before, hasFailed) << file << " " << n;
            EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), files) << file << " " << n;
            if (!hasFailed || testing::Test::HasFailure())
                return n;
        }
    }
    static bool succeeds(const std::function<void()>& save)
    {
        try {
            save();
            return true;
        } catch (const InputError&) {
            return false;
        }
    }
};

TEST_F(SavingTest, WhicheverCallFailsTheSessionKeepsItsMarkAndTheFileItsContent)
{
    for (const ko::Setup* setup : {&old_, &new_}) {
        SetupSession session;
        Answers user;
        const auto prepare = [&] {
            std::ofstream(file_) << R"({"drivers": [{"name": "A", "timebase": {}}], "title": ")" << setup->title
                                 << "\"}";
            session.load(file_);
            session.drivers().front()->queryTimebase()->setDuration(25);
            session.setChanged(true);
            user.asked.clear();
        };
        const int calls = failEachCall(file_, prepare, [&] {
            const bool isSaved = session.save(user);
            EXPECT_EQ(session.isChanged(), !isSaved);
            EXPECT_EQ(user.asked.starts_with("not saved: " + file_), !isSaved) << user.asked;
            return isSaved;
        });
        EXPECT_EQ(calls, setup == &old_ ? 4 : 9);
    }
}

TEST_F(SavingTest, WhicheverCallFailsAnOldSheetOrScenarioStays)
{
    ScenarioOptions options{loadSetup(KO_DEMO_FOLDER "/engine-bench-demo.json"), {}, {}, {}};
    Form page("page");
    const Locale locale;
    const auto capture = [&](const std::string& file) {
        ScenarioCapture({file}, {page, {}, [] { return DateTime{}; }, locale});
    };
    const auto sheet = [&](const std::string& file) { writeSheet({file, "A4"}, options, "bench.json", false); };
    for (const auto& [name, save] : {std::pair<const char*, std::function<void(const std::string&)>>{"x.html", sheet},
                                     {"x.pdf", sheet},
                                     {"x.scenario", capture}}) {
        const std::string file = (folder_ / name).string();
        const int calls = failEachCall(
            file, [&] { std::ofstream(file) << "old"; }, [&, &save = save] { return succeeds([&] { save(file); }); });
        EXPECT_GT(calls, 3) << name;
    }
}

TEST_F(SavingTest, ALineThatCannotBeWrittenLeavesTheLinesBefore)
{
    std::optional<FileWriter> writer;
    const auto prepare = [&] {
        writer.reset();
        writer.emplace(file_);
        writer->write("0123456789", 0);
        writer->commit();
    };
    const int calls =
        failEachCall(file_, prepare, [&] { return succeeds([&] { writer->write(std::string(9000, 'x'), 5); }); });
    EXPECT_EQ(calls, 3);
}

TEST_F(SavingTest, AFileKeepsItsLinkAndItsPermissionsAndOneThatIsProtectedItsContent)
{
    const fs::path link = folder_ / "link.json", lost = folder_ / "lost.json";
    std::ofstream(file_) << "old";
    fs::permissions(file_, fs::perms(0640));
    fs::create_symlink("bench.json", link);
    fs::create_symlink("target.json", lost);
    for (const fs::path& name : {link, lost}) {
        writeWhole(name.string(), "new");
        EXPECT_TRUE(fs::is_symlink(name));
        EXPECT_EQ(readFile(name.string()), "new");
    }
    EXPECT_EQ(fs::status(file_).permissions(), fs::perms(0640));
    EXPECT_TRUE(isSameFile(link.string(), file_));
    EXPECT_TRUE(isSameFile((folder_ / "." / "none").string(), (folder_ / "none").string()));
    EXPECT_FALSE(isSameFile(link.string(), lost.string()));
    for (const std::string& name : {folder_.string(), std::string("/dev/null"), (folder_ / "none" / "x").string()})
        EXPECT_THROW(writeWhole(name, "new"), InputError) << name;
    if (::geteuid() != 0) {
        fs::permissions(file_, fs::perms(0440));
        EXPECT_THROW(writeWhole(file_, "newer"), InputError);
    }
}

TEST_F(SavingTest, TheCommandLineSavesOverAChangedFileOnlyWhenForced)
{
    SettingsCommand command;
    command.save = file_;
    const SettingsSource source{file_, "what was read", {new_, {}, {}, {}}, {}};
    saveSetup(file_, old_);
    HeadlessPage played(source.options);
    EXPECT_THROW(runSettings(command, source, played), InputError);
    EXPECT_EQ(loadSetup(file_), old_);
    command.force = true;
    runSettings(command, source, played);
    EXPECT_EQ(loadSetup(file_), new_);
}

TEST_F(SavingTest, WhereverSavingIsKilledTheOldOrTheNewFileIsThereWhole)
{
    int foundOld = 0;
    int foundNew = 0;
    End end = End::Killed;
    for (int stop = 1; end == End::Killed; ++stop) {
        saveSetup(file_, old_);
        end = killedAt(stop, [&] { saveSetup(file_, new_); });
        if (end == End::NotTraced)
            GTEST_SKIP() << "this machine lets no process trace another";
        const ko::Setup found = loadSetup(file_);
        EXPECT_TRUE(found == old_ || found == new_) << stop;
        ++(found == old_ ? foundOld : foundNew);
        // The temporary file of a killed save must not prevent the next save.
    }
    EXPECT_GT(foundOld, 4);
    EXPECT_GT(foundNew, 1);
    std::cout << "killed " << foundOld + foundNew - 1 << " times, the old file there after " << foundOld << "\n";
}

} // namespace
} // namespace ko::test
