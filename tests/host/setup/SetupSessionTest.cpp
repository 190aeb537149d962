#include "fakes/Folder.h"
#include "host/setup/Answers.h"
#include "host/support/InputError.h"
#include "interfaces/Timebase.h"

namespace ko::test {
namespace {

namespace fs = std::filesystem;

class SetupSessionTest : public testing::Test {
protected:
    const Folder folder;
    SetupSession session;
    Answers user;
    bool pageAllows = true;
    int titles = 0;

    void SetUp() override
    {
        session.mayLeavePage = [this] { return pageAllows; };
        session.titleChanged = [this] { ++titles; };
    }
    std::string file(const std::string& name, const std::string& content = {})
    {
        return content.empty() ? folder.file(name) : folder.file(name, content);
    }
    std::string bench(const std::string& name = "bench.json")
    {
        return file(name, R"({"title": "Bench", "clock": "2026-11-21 09:30:00",
                              "drivers": [{"name": "A", "timebase": {}}]})");
    }
    void change()
    {
        session.drivers().front()->queryTimebase()->setDuration(25);
        session.setChanged(true);
    }
};

TEST_F(SetupSessionTest, AnAnswerCountsForNoOtherSetUpThanItWasAskedAbout)
{
    const std::string other = bench("other.json");
    user.unsaved = Unsaved::Discard;
    user.conflict = Conflict::Overwrite;
    user.saveAs = file("copy.json");
    user.meanwhile = [&] { session.load(other); };
    const std::pair<const char*, std::function<bool()>> deeds[] = {
        {"changes ", [&] { return session.open(bench("third.json"), user); }},
        {"file ", [&] { return session.saveAs(user); }},
        {"conflict ", [&] {
             std::ofstream(session.file()) << "{}";
             return session.save(user);
         }}};
    for (const auto& [asked, deed] : deeds) {
        session.load(bench());
        change();
        user.asked.clear();
        EXPECT_FALSE(deed());
        EXPECT_EQ(user.asked, asked);
        EXPECT_EQ(session.name(), "other.json");
    }
    EXPECT_FALSE(fs::exists(file("copy.json")));
}

TEST_F(SetupSessionTest, SavingUnderAnotherNameMovesTheSessionThereUnlessItIsRefused)
{
    session.load(bench());
    change();
    EXPECT_FALSE(session.saveAs(user)) << "no file was named";
    user.saveAs = file("nowhere/copy.json");
    EXPECT_FALSE(session.saveAs(user));
    EXPECT_EQ(user.asked.find("file file not saved: " + user.saveAs), 0U) << user.asked;
    EXPECT_EQ(session.name(), "bench.json");
    EXPECT_TRUE(session.isChanged());
    user.saveAs = file("copy.json");
    titles = 0;
    EXPECT_TRUE(session.saveAs(user));
    EXPECT_EQ(session.name(), "copy.json");
    EXPECT_EQ(titles, 1);
    EXPECT_EQ(loadSetup(file("bench.json")).instruments.at(0).timebase->duration, 10);
    EXPECT_EQ(loadSetup(file("copy.json")).instruments.at(0).timebase->duration, 25);
}

TEST_F(SetupSessionTest, LeavingAsksThePageAndThenForTheChanges)
{
    const struct {
        bool pageAllows, changed;
        Unsaved answer;
        bool leaves;
        const char* asked;
        float saved;
    } cases[]{
        {false, true, Unsaved::Save, false, "", 10},          {true, false, Unsaved::Cancel, true, "", 10},
        {true, true, Unsaved::Cancel, false, "changes ", 10}, {true, true, Unsaved::Discard, true, "changes ", 10},
        {true, true, Unsaved::Save, true, "changes ", 25},
    };
    for (const auto& c : cases) {
        session.load(bench());
        if (c.changed)
            change();
        user.asked.clear();
        user.unsaved = c.answer;
        pageAllows = c.pageAllows;
        EXPECT_EQ(session.mayLeave(user), c.leaves) << c.asked;
        EXPECT_EQ(user.asked, c.asked);
        EXPECT_EQ(loadSetup(session.file()).instruments.at(0).timebase->duration, c.saved);
    }
    session.mayLeavePage = [this] {
        session.setChanged(true);
        return true;
    };
    user.unsaved = Unsaved::Cancel;
    EXPECT_FALSE(session.mayLeave(user)) << "a change that leaving the page makes";
}

TEST_F(SetupSessionTest, SavingKeepsTheCommentsOfTheFileAndSavingElsewhereTakesThemAlong)
{
    const std::string name = file("hand.json", "{\"drivers\": [{\"name\": \"A\", \"timebase\": {\n"
                                               "  \"duration\": 10.0, // s\n  \"stopMode\": 0}}]} // end\n");
    session.load(name);
    const std::string before = readFile(name);
    user.saveAs = file("copy.json");
    for (const char* const duration : {"25.0", "26.0"}) {
        session.drivers().front()->queryTimebase()->setDuration(std::stof(duration));
        EXPECT_TRUE(duration[1] == '5' ? session.save(user) : session.saveAs(user));
        std::string expected = before;
        expected.replace(expected.find("10.0"), 4, duration);
        EXPECT_EQ(readFile(session.file()), expected);
    }
}

TEST_F(SetupSessionTest, AFileThatAnotherProgramHasChangedIsOverwrittenOnlyWhenTheUserSaysSo)
{
    const std::string theirs = R"({"title": "Band", "drivers": [{"name": "B"}]})";
    const struct {
        Conflict answer;
        const char* asked;
        bool isSaved, isMarked;
        const char *instrument, *inFile;
    } cases[]{{Conflict::Cancel, "conflict ", false, true, "A", "Band"},
              {Conflict::Overwrite, "conflict ", true, false, "A", "Bench"},
              {Conflict::SaveElsewhere, "conflict file ", true, false, "A", "Band"},
              {Conflict::Reload, "conflict ", false, false, "B", "Band"}};
    for (const auto& c : cases) {
        session.load(bench());
        change();
        // Same size and modification time as the replaced file.
        const auto time = fs::last_write_time(session.file());
        file("bench.json", theirs);
        fs::last_write_time(session.file(), time);
        user.conflict = c.answer;
        user.saveAs = file("copy.json");
        user.asked.clear();
        EXPECT_EQ(session.save(user), c.isSaved) << c.asked;
        EXPECT_EQ(user.asked, c.asked);
        EXPECT_EQ(session.isChanged(), c.isMarked);
        EXPECT_EQ(session.drivers().front()->name(), c.instrument);
        EXPECT_EQ(loadSetup(file("bench.json")).title, c.inFile);
        user.asked.clear();
        EXPECT_TRUE(!c.isSaved || session.save(user));
        EXPECT_EQ(user.asked, "") << "what was written here is known";
    }
    session.load(bench());
    fs::remove(session.file());
    user.conflict = Conflict::Cancel;
    user.asked.clear();
    EXPECT_FALSE(session.save(user));
    EXPECT_EQ(user.asked, "conflict ") << "a file that is gone is not what was read";
    EXPECT_FALSE(fs::exists(session.file()));
    user.conflict = Conflict::Overwrite;
    EXPECT_TRUE(session.save(user));
}

TEST_F(SetupSessionTest, ReloadingIsOfferedOnceForEachWholeSetupWhileNothingHasChangedHere)
{
    session.load(bench());
    const auto offered = [&](const std::string& content) {
        file("bench.json", content);
        user.asked.clear();
        session.offerReload(user);
        return user.asked;
    };
    const std::string first = R"({"drivers": [{"name": "B"}]})";
    EXPECT_EQ(offered(R"({"drivers": )"), "") << "is still being written";
    EXPECT_EQ(offered(first), "reload ");
    EXPECT_EQ(offered(first), "");
    user.conflict = Conflict::Overwrite;
    EXPECT_TRUE(session.save(user));
    EXPECT_EQ(offered(first), "reload ") << "written again after it was overwritten here";
    session.setChanged(true);
    EXPECT_EQ(offered(R"({"drivers": [{"name": "C"}]})"), "");
    session.setChanged(false);
    user.wantsReload = true;
    EXPECT_EQ(offered(R"({"drivers": [{"name": "C"}]})"), "reload ");
    EXPECT_EQ(session.drivers().front()->name(), "C");
    session.offerReload(user);
    EXPECT_EQ(user.asked, "reload ");
}

} // namespace
} // namespace ko::test
