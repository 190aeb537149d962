#include "host/SetupSaving.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <iostream>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace ko {
namespace {

enum class End { Killed, Done, NotTraced };

/// Runs `work` in a process of its own and kills that at the `stop`-th time that it enters or leaves the system.
template <class Work> End killedAt(int stop, const Work& work)
{
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(1);
        raise(SIGSTOP);
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

class SavingKilledTest : public testing::Test {
protected:
    const std::filesystem::path folder_ = std::filesystem::path(testing::TempDir()) / "saving-killed";
    const std::string file_ = (folder_ / "bench.json").string();
    const ko::Setup old_ = named("old"), new_ = named(std::string(20000, 'n'));

    void SetUp() override { std::filesystem::create_directories(folder_); }
    void TearDown() override { std::filesystem::remove_all(folder_); }

    static ko::Setup named(const std::string& title)
    {
        return parseSetup(R"({"title": ")" + title + R"(", "drivers": []})", "");
    }
};

TEST_F(SavingKilledTest, WhereverSavingIsKilledTheOldOrTheNewFileIsThereWhole)
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
        // What a killed save has begun is never in the way of the next.
    }
    EXPECT_GT(foundOld, 4);
    EXPECT_GT(foundNew, 1);
    std::cout << "killed " << foundOld + foundNew - 1 << " times, the old file there after " << foundOld << "\n";
}

} // namespace
} // namespace ko
