#include "ChangedWindow.h"
#include "FailingCalls.h"
#include "FileKinds.h"
#include "fakes/Sampled.h"

#include <QProcess>
#include <iostream>

namespace ko::test {

void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

namespace {

namespace fs = std::filesystem;

/// The program `failing_host`, which is `korvell-host` with calls that fail, started on a set-up in another folder or
/// on the one that it saves.
class Program {
public:
    Program(fs::path folder, QStringList arguments) : folder_(std::move(folder)), arguments_(std::move(arguments))
    {
        std::ofstream(elsewhere("set-up.json")) << fileBench;
        arguments_.replaceInStrings("SETUP", toQt(elsewhere("set-up.json")));
        arguments_.replaceInStrings("FOLDER", toQt(folder_.string()));
    }
    /// Runs with the n-th call failing or, if `kills`, killing the program; negative: none.
    Outcome run(int number, bool kills = false)
    {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(failingCalls::numberVariable, QString::number(number));
        environment.insert(failingCalls::folderVariable, toQt(folder_.string()));
        environment.insert(failingCalls::reportVariable, toQt(elsewhere("failed")));
        environment.insert(failingCalls::killVariable, kills ? "1" : "");
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(KO_FAILING_HOST, arguments_);
        EXPECT_TRUE(process.waitForFinished(60000));
        wasKilled_ = process.exitStatus() == QProcess::CrashExit;
        const int status = wasKilled_ ? 2 : process.exitCode();
        EXPECT_TRUE(status == 0 || status == 2) << status;
        return {status == 0, process.readAllStandardError().toStdString()};
    }
    [[nodiscard]] bool wasKilled() const { return wasKilled_; }
    /// Returns the call that has failed in the last run.
    [[nodiscard]] std::string failed() const
    {
        const std::string report = elsewhere("failed");
        const std::string call = fs::exists(report) ? readFile(report) : std::string();
        fs::remove(report);
        return call;
    }

private:
    [[nodiscard]] std::string elsewhere(const char* name) const { return fromQt(elsewhere_.filePath(name)); }

    fs::path folder_;
    QStringList arguments_;
    QTemporaryDir elsewhere_;
    bool wasKilled_ = false;
};

class FilesTest : public testing::TestWithParam<Kind> {
protected:
    std::optional<QTemporaryDir> temporary_;

    fs::path folder() { return fs::path(fromQt(temporary_->path())); }
    std::string file() { return (folder() / GetParam().file).string(); }
    void makeFolder()
    {
        temporary_.emplace();
        fs::create_directories(fs::path(file()).parent_path());
        std::ofstream(file()) << GetParam().old;
    }
    bool isOld() { return holdsOld(file()); }
    static bool holdsOld(const std::string& file) { return fs::exists(file) && readFile(file) == GetParam().old; }
    void expectNothingElse()
    {
        for (const auto& entry : fs::recursive_directory_iterator(folder()))
            EXPECT_TRUE(entry.path() == file() || GetParam().beside.contains(entry.path().lexically_relative(folder())))
                << entry.path();
    }
    /// Whether an earlier recording is where it was, or under its other name.
    bool isOldKept() { return isOld() || holdsOld(file() + "~"); }
    void expectKept(const Outcome& outcome, const std::string& call)
    {
        const bool isNew = !isOld();
        EXPECT_TRUE(!isNew || GetParam().isWhole(file()));
        EXPECT_TRUE(!outcome.isDone || isNew);
        EXPECT_TRUE(outcome.isDone || !isNew || GetParam().grows || call == "synchronize the folder");
        EXPECT_TRUE(outcome.isDone || outcome.message.find(fs::path(file()).filename()) != std::string::npos);
        EXPECT_TRUE(!GetParam().beside.contains("x.h5~") || isOldKept());
        expectNothingElse();
    }
};

TEST_P(FilesTest, WhicheverCallFailsTheOldOrTheNewFileIsThereWholeAndTheUserKnows)
{
    std::multiset<std::string> reported;
    for (int number = 0;; ++number) {
        makeFolder();
        Outcome outcome;
        std::string call;
        if (GetParam().begin) {
            const Act act = GetParam().begin(folder());
            failingCalls::plan(number, folder().string());
            outcome = act();
            call = failingCalls::end();
        } else {
            Program program(folder(), GetParam().arguments);
            outcome = program.run(number);
            call = program.failed();
        }
        SCOPED_TRACE(std::to_string(number) + ": " + call + "; " + outcome.message);
        expectKept(outcome, call);
        EXPECT_TRUE(outcome.isDone || !call.empty());
        if (!outcome.isDone)
            reported.insert(call);
        if (call.empty() || HasFailure()) {
            std::cout << GetParam().name << ": " << number << " calls, " << reported.size() << " failures\n";
            break;
        }
    }
    for (const char* const made : {"open", "write", "synchronize", "rename", "synchronize the folder"})
        EXPECT_TRUE(reported.contains(made)) << made;
}

class KilledProgramTest : public FilesTest {};

TEST_P(KilledProgramTest, WhereverItIsKilledTheOldOrTheNewFileIsThereWholeAndTheNextRunCleansUp)
{
    bool wasKilled = true;
    for (int number = 0; wasKilled && !HasFailure(); number += sampledOneIn(1)) {
        SCOPED_TRACE(number);
        makeFolder();
        Program program(folder(), GetParam().arguments);
        program.run(number, true);
        wasKilled = program.wasKilled();
        EXPECT_TRUE(isOldKept() || (GetParam().isWhole(file())));
        const Outcome again = program.run(-1);
        EXPECT_TRUE(again.isDone) << again.message;
        EXPECT_TRUE(GetParam().isWhole(file()));
        for (const auto& entry : fs::directory_iterator(folder()))
            EXPECT_FALSE(entry.path().filename().string().starts_with(".korvell-")) << entry.path();
    }
}

std::string nameOf(const testing::TestParamInfo<Kind>& of)
{
    return of.param.name;
}

std::vector<Kind> writtenByProgram()
{
    std::vector<Kind> chosen = fileKinds();
    std::erase_if(chosen, [](const Kind& kind) { return kind.begin != nullptr; });
    return chosen;
}

INSTANTIATE_TEST_SUITE_P(Kinds, FilesTest, testing::ValuesIn(fileKinds()), nameOf);
INSTANTIATE_TEST_SUITE_P(Kinds, KilledProgramTest, testing::ValuesIn(writtenByProgram()), nameOf);

} // namespace
} // namespace ko::test
