#include "FrameTest.h"
#include "host/docks/Reports.h"
#include "host/support/InputError.h"

#include <QTemporaryDir>
#include <csignal>

namespace ko::test {
namespace {

namespace fs = std::filesystem;

const char* const commented = R"({
  // the comment of the file
  "drivers": [{"name": "A", "timebase": {"startMode": 0}}]
})";

/// Windows that share a memory, as those of one user do. A window that is destroyed without being closed leaves its
/// copy as a program that crashes.
class AutosaveTest : public testing::Test {
protected:
    /// A program that is killed has the folder of the test.
    static constexpr const char* folderVariable = "KO_AUTOSAVE_FOLDER";
    QTemporaryDir own;
    const fs::path folder = qEnvironmentVariable(folderVariable, own.path()).toStdString();
    const std::string bench = (folder / "bench.json").string();
    Decided user;

    AutosaveTest() { write(bench, commented); }
    static void write(const std::string& file, const std::string& content) { std::ofstream(file) << content; }
    std::unique_ptr<FrameWindow> start(const std::string& file = {})
    {
        auto window = std::make_unique<FrameWindow>("", (folder / "memory" / "window.json").string());
        window->files().setQuestions(std::make_unique<DecidedQuestions>(user));
        window->autosave().setDelay(0);
        if (!file.empty())
            window->open(file);
        return window;
    }
    [[nodiscard]] std::vector<fs::path> copies(const char* ending = ".unsaved") const
    {
        std::vector<fs::path> found;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(folder / "memory", none))
            if (entry.path().extension() == ending)
                found.push_back(entry.path());
        return found;
    }
    bool waitForCopies(std::size_t count)
    {
        return QTest::qWaitFor([&] { return copies().size() == count; });
    }
    /// Offers the copies in a new window.
    std::unique_ptr<FrameWindow> restart(Recovery recovery, const std::string& file = {})
    {
        user.offeredCopy.clear();
        user.recovery = recovery;
        auto window = start(file);
        window->autosave().offer(window->files().questions());
        return window;
    }
    static std::int32_t startModeOf(FrameWindow& window)
    {
        return window.session().drivers().at(0)->held().timebase->startMode;
    }
};

TEST_F(AutosaveTest, AProgramThatIsKilledLeavesItsChangesToTheNextOne)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    qputenv(folderVariable, folder.string().c_str());
    EXPECT_EXIT(
        {
            // The next program may start in another folder.
            fs::current_path(folder);
            const auto window = start("bench.json");
            change(*window);
            waitForCopies(1);
            std::raise(SIGKILL);
        },
        testing::KilledBySignal(SIGKILL), "");
    qunsetenv(folderVariable);
    EXPECT_EQ(restart(Recovery::Later)->session().name(), "");
    EXPECT_EQ(user.offeredCopy, bench);
    const auto window = restart(Recovery::Restore);
    EXPECT_EQ(window->session().file(), bench);
    EXPECT_EQ(startModeOf(*window), startMode::atTime);
    EXPECT_TRUE(window->isWindowModified());
    EXPECT_EQ(readFile(bench), commented);
    EXPECT_EQ(copies().size(), 1U);
    window->files().save();
    EXPECT_NE(readFile(bench).find("the comment of the file"), std::string::npos);
    EXPECT_EQ(loadSetup(bench).instruments.at(0).timebase->startMode, startMode::atTime);
    EXPECT_TRUE(copies().empty());
    EXPECT_TRUE(copies(".lock").empty());
}

TEST_F(AutosaveTest, EachWayInWhichNothingIsUnsavedAnyMoreRemovesTheCopy)
{
    const struct {
        const char* name;
        void (*act)(FrameWindow&);
        std::size_t left;
    } ways[]{{"saved", [](FrameWindow& window) { window.files().save(); }, 0},
             {"undone", [](FrameWindow& window) { window.history().revertToSaved(); }, 0},
             {"discarded for another", [](FrameWindow& window) { window.files().beginNew("empty"); }, 0},
             {"closed", [](FrameWindow& window) { window.files().close(); }, 0},
             {"window closed", [](FrameWindow& window) { window.close(); }, 0},
             {"changed again",
              [](FrameWindow& window) {
                  change(window);
                  change(window);
              },
              1}};
    user.unsaved = Unsaved::Discard;
    for (const auto& way : ways) {
        SCOPED_TRACE(way.name);
        auto window = start(bench);
        change(*window);
        EXPECT_TRUE(waitForCopies(1));
        way.act(*window);
        EXPECT_TRUE(waitForCopies(way.left));
        window.reset();
        restart(Recovery::Discard);
        EXPECT_EQ(user.offeredCopy.empty(), way.left == 0);
        EXPECT_TRUE(copies().empty());
    }
    auto window = start(bench);
    change(*window);
    EXPECT_TRUE(waitForCopies(1));
    saveSetup(bench, window->session().unsaved().setup);
    window.reset();
    restart(Recovery::Later);
    EXPECT_EQ(user.offeredCopy, "") << "another program has saved the same";
    EXPECT_TRUE(copies().empty());
}

TEST_F(AutosaveTest, ARestoredCopyTakesThePlaceOfThatOfTheSetupWhichIsLeftAlsoWhileItIsWritten)
{
    user.unsaved = Unsaved::Discard;
    for (const bool isWriting : {false, true}) {
        auto left = start(bench);
        change(*left);
        EXPECT_TRUE(waitForCopies(1));
        left.reset();
        const auto window = start();
        window->files().beginNew("vibration");
        change(*window);
        EXPECT_TRUE(isWriting || waitForCopies(2));
        if (isWriting)
            QCoreApplication::processEvents(QEventLoop::AllEvents);
        user.recovery = Recovery::Restore;
        window->autosave().offer(window->files().questions());
        EXPECT_EQ(window->session().file(), bench);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] { return copies().size() == 1 && parseCopy(readFile(copies()[0].string()), "").file == bench; }));
        window->close();
        EXPECT_TRUE(copies().empty());
    }
}

TEST_F(AutosaveTest, ProgramsThatRunAtOnceKeepTheirOwnCopies)
{
    const auto first = start(bench);
    auto second = start();
    second->files().beginNew("vibration");
    change(*first);
    change(*second);
    EXPECT_TRUE(waitForCopies(2));
    restart(Recovery::Restore);
    EXPECT_EQ(user.offeredCopy, "");
    second.reset();
    const auto third = restart(Recovery::Restore, bench);
    EXPECT_EQ(third->session().name(), "vibration");
    EXPECT_FALSE(third->session().isOpen());
    EXPECT_TRUE(third->isWindowModified());
    restart(Recovery::Restore);
    EXPECT_EQ(user.offeredCopy, "");
    EXPECT_EQ(copies().size(), 2U);
}

TEST_F(AutosaveTest, ACopyThatCannotBeWrittenIsReportedOnceAndTheNextOneIsWritten)
{
    write((folder / "memory").string(), "no folder");
    const auto window = start(bench);
    auto& reports = *window->docks().reports().findChild<QTreeWidget*>();
    change(*window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reports.topLevelItemCount() == 1; }));
    change(*window);
    change(*window);
    QTest::qWait(20);
    EXPECT_EQ(reports.topLevelItemCount(), 1);
    EXPECT_TRUE(window->isWindowModified());
    fs::remove(folder / "memory");
    EXPECT_TRUE(waitForCopies(1));
    const fs::path copy = copies().at(0);
    QTest::qWait(50);
    fs::remove(copy);
    fs::create_directory(copy);
    EXPECT_EQ(reports.topLevelItemCount(), 1);
    change(*window);
    EXPECT_TRUE(QTest::qWaitFor([&] { return reports.topLevelItemCount() == 2; })) << "again, after it has worked";
}

TEST_F(AutosaveTest, TheCopyIsWrittenAndLockedAgainAfterTheFoldersHaveGone)
{
    const fs::path work = folder / "work";
    fs::create_directory(work);
    fs::rename(bench, work / "bench.json");
    const fs::path here = fs::current_path();
    fs::current_path(work);
    const auto window = start("bench.json");
    fs::current_path(here);
    fs::remove_all(work);
    for (const std::string duration : {"1", "2", "3"}) {
        if (duration == "2")
            fs::remove_all(folder / "memory");
        if (duration == "3")
            fs::remove(copies(".lock").at(0));
        window->page().view().act([&] { window->document().page().txtDuration.userReplaced(duration, 1, 0); });
        EXPECT_TRUE(QTest::qWaitFor([&] { return copies().size() == 1 && copies(".lock").size() == 1; })) << duration;
    }
    restart(Recovery::Restore);
    EXPECT_EQ(user.offeredCopy, "") << "its program runs";
    fs::create_directory(work);
    user.conflict = Conflict::Overwrite;
    window->files().save();
    EXPECT_TRUE(fs::exists(work / "bench.json")) << user.told;
}

TEST_F(AutosaveTest, ADamagedCopyIsNamedAndKeptWhereverItEnds)
{
    {
        const auto window = start(bench);
        change(*window);
        EXPECT_TRUE(waitForCopies(1));
    }
    const std::string copy = copies().at(0).string();
    const std::string whole = readFile(copy);
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_THROW(parseCopy(whole.substr(0, length), copy), InputError) << length;
    write(copy, whole.substr(0, whole.size() / 2));
    EXPECT_FALSE(restart(Recovery::Restore)->session().hasSetup());
    EXPECT_EQ(user.told, copy + ".damaged");
    EXPECT_EQ(readFile(user.told), whole.substr(0, whole.size() / 2));
    user.told.clear();
    restart(Recovery::Restore);
    EXPECT_EQ(user.told, "");
}

TEST_F(AutosaveTest, NothingElseIsWrittenToAFileThatTheWindowItselfUses)
{
    write(bench, R"({"drivers": [{"name": "A", "timebase": {"duration": 1000},
        "groups": [{"name": "g", "channels": [{"address": "1:1"}]}]}]})");
    const auto window = start(bench);
    change(*window);
    ASSERT_TRUE(waitForCopies(1));
    const std::string memory = (folder / "memory" / "window.json").string();
    user.pastStart = PastStart::Now;
    for (const std::string& file : {memory, bench}) {
        user.record = file;
        user.told.clear();
        window->recording().record();
        EXPECT_TRUE(user.told.starts_with(file + ": is ")) << user.told;
    }
    const std::string scenario = (folder / "run.scenario").string();
    window->capture().startFromHere(scenario);
    user.record = (folder / "run.h5").string();
    window->recording().record();
    ASSERT_TRUE(QTest::qWaitFor([&] { return fs::exists(user.record); }));

    const std::pair<std::string, const char*> used[]{{memory, "where the window keeps its state"},
                                                     {copies().at(0).string(), "the copy of the unsaved changes"},
                                                     {scenario, "the scenario that is captured"},
                                                     {user.record, "being recorded"},
                                                     {bench, "the set-up that is open"}};
    for (const auto& [file, use] : used) {
        const std::string reason = file + ": is " + use;
        QString told;
        const InDialog accept([&](QMessageBox& box) {
            told = box.informativeText();
            box.accept();
        });
        user.sheet = user.saveAs = file;
        window->printing().exportSheet(window->files().questions());
        EXPECT_EQ(fromQt(told), reason);
        EXPECT_THROW(window->services().printers.savePdf(toQt(file), "pdf"), InputError);
        EXPECT_THROW(window->capture().startFromHere(file), InputError);
        if (file == bench)
            continue;
        window->files().saveAs();
        EXPECT_EQ(user.told, reason);
        EXPECT_EQ(window->session().file(), bench);
        EXPECT_TRUE(window->session().isChanged());
    }
}

} // namespace
} // namespace ko::test
