#include "TriggerLines.h"

namespace ko::test {
namespace {

class TriggerLinesOf : public LineChoice {
protected:
    /// Makes the list of two drivers: the start master and the sync master.
    std::pair<FakeDriver&, FakeDriver&> addMasters()
    {
        page.drivers.clear();
        fakes.clear();
        FakeDriver& start = addDriver();
        FakeDriver& scan = addDriver();
        start.startRank = scan.scanRank = 5;
        return {start, scan};
    }
    /// Returns the start and sync line as the page shows them.
    std::string lines() const
    {
        return std::to_string(page.lines.line(LineTrigger::start)) + " " +
               std::to_string(page.lines.line(LineTrigger::scan));
    }
    void expectComplaint(const std::string& caption)
    {
        EXPECT_EQ(page.lblNoTriggerLine.caption(), caption);
        EXPECT_EQ(page.lblNoTriggerLine.visible(), !caption.empty());
    }
    static constexpr const char* noSync = "No trigger line is left for the sync trigger.";
};

TEST_F(TriggerLinesOf, TheTwoTriggersNeverShareALine)
{
    const struct {
        std::int32_t wiredStart, wiredScan;
        LineList startLines, scanLines;
        const char *shows, *availableStart, *availableScan, *says;
    } cases[]{
        {-1, -1, {}, {}, "0 1", "0234567", "1234567", ""}, {-1, 0, {}, {}, "1 0", "1234567", "0234567", ""},
        {3, -1, {}, {}, "3 0", "1234567", "0124567", ""},  {3, 3, {}, {}, "3 0", "1234567", "0124567", ""},
        {-1, -1, {2}, {2}, "2 -1", "2", "", noSync},       {-1, -1, {2, 4}, {2, 4}, "2 4", "2", "4", ""},
    };
    const auto [start, scan] = addMasters();
    for (const auto& c : cases) {
        start.startLine = c.wiredStart;
        scan.scanLine = c.wiredScan;
        start.startMasterLines = c.startLines;
        scan.scanMasterLines = c.scanLines;
        survey();
        EXPECT_EQ(lines(), c.shows);
        EXPECT_EQ(shown(page.lines.available(LineTrigger::start)), c.availableStart) << c.shows;
        EXPECT_EQ(shown(page.lines.available(LineTrigger::scan)), c.availableScan) << c.shows;
        expectComplaint(c.says);
        EXPECT_EQ(std::to_string(start.startLine) + " " + std::to_string(scan.scanLine), c.shows) << "held";
        EXPECT_EQ(std::to_string(scan.startInput) + " " + std::to_string(start.scanInput), c.shows) << "listened to";
    }
}

TEST_F(TriggerLinesOf, WithoutTwoMastersNoLineIsTakenButAWiredOneStays)
{
    FakeDriver& driver = addDriver();
    FakeDriver& other = addDriver();
    driver.startRank = 0;
    survey();
    EXPECT_FALSE(page.mnuTimebaseTriggerLines.enabled());
    EXPECT_EQ(driver.writes, Texts{"setStartTriggerLine -1"}) << "the first driver that can be start master";
    driver.startRank = 4;
    driver.startLine = 6;
    survey();
    EXPECT_EQ(lines(), "6 -1");
    EXPECT_EQ(other.startInput, 6);
    EXPECT_FALSE(page.mnuTimebaseTriggerLines.enabled());
}

TEST_F(TriggerLinesOf, TheDialogWritesWhatTheUserChangesAndNothingElse)
{
    const auto [start, scan] = addMasters();
    start.name = "Digitizer";
    scan.name = "Logger";
    survey();
    start.writes.clear();
    for (CommandButton* button : {&dialog.btnCancel, &dialog.btnOK}) {
        EXPECT_EQ(start.writes, Texts());
        EXPECT_EQ(marks, 0);
        inDialog([&] {
            EXPECT_TRUE(page.isDialogOpen);
            EXPECT_EQ(dialog.optStartTrig[0]->toolTipText(), "Digitizer drives the start trigger on this line.");
            EXPECT_EQ(dialog.optStartTrig[1]->toolTipText(), "Logger drives the sync trigger on this line.");
            EXPECT_EQ(dialog.optScanTrig[2]->userClicked(), Outcome::Done);
            button->userClicked();
        });
        EXPECT_FALSE(page.isDialogOpen);
    }
    EXPECT_EQ(start.writes, Texts{"setScanTriggerInput 2"});
    EXPECT_EQ(scan.scanLine, 2);
    EXPECT_EQ(lines(), "0 2");
    EXPECT_EQ(shown(page.lines.available(LineTrigger::start)), "0134567") << "the line that was left is free again";
    EXPECT_EQ(marks, 1);
    inDialog([&] {
        dialog.optStartTrig[5]->userClicked();
        support.errors.events.supersede(std::exchange(page.drivers, {}));
        dialog.btnOK.userClicked();
    });
    EXPECT_EQ(page.lines.line(LineTrigger::start), 0) << "another list came meanwhile";
}

TEST_F(TriggerLinesOf, ThePageShowsTheLinesThatTheMastersHaveKept)
{
    struct Case {
        const char *failing, *shows;
        bool keeps;
        const char* listenedTo;
        int marks;
    };
    // The user swaps lines 0 and 1.
    const Case cases[] = {
        {"", "1 0", false, "1 0", 2},
        {"", "0 1", true, "0 1", 1}, // the sync trigger keeps its line beside it
        {"setStartTriggerLine", "0 1", false, "0 1", 0},
        {"StartTriggerLine", "1 0", false, "1 0", 2},
        {"setScanTriggerInput", "1 0", false, "1 1", 2},
    };
    for (const Case& c : cases) {
        const auto [start, scan] = addMasters();
        survey();
        inDialog([&, &start = start, &scan = scan] {
            for (OptionButton* option :
                 {dialog.optStartTrig[2].get(), dialog.optScanTrig[0].get(), dialog.optStartTrig[1].get()})
                option->userClicked();
            start.refuses = c.keeps;
            start.failing = scan.failing = {c.failing};
            dialog.btnOK.userClicked();
        });
        EXPECT_EQ(lines(), c.shows) << c.failing;
        EXPECT_EQ(std::to_string(start.startLine) + " " + std::to_string(scan.scanLine), c.shows) << c.failing;
        EXPECT_EQ(std::to_string(scan.startInput) + " " + std::to_string(start.scanInput), c.listenedTo) << c.failing;
        EXPECT_EQ(marks, c.marks) << c.failing;
        const Texts reports = host.takeReports();
        ASSERT_EQ(reports.size(), *c.failing ? 1U : 0U) << c.failing;
        EXPECT_TRUE(!*c.failing || reports[0].ends_with(std::string(c.failing) + " failed")) << reports[0];
    }
}

TEST_F(TriggerLinesOf, ALineThatIsNotTakenLeavesTheOffersAsTheyWereAndOneThatIsFreesItsOldOne)
{
    const auto [start, scan] = addMasters();
    start.startMasterLines = {1, 2, 3};
    scan.scanMasterLines = {1};
    for (const std::vector<std::size_t>& clicks : {std::vector<std::size_t>{2}, {2, 3}, {3, 2, 1, 3}, {}}) {
        start.failing = {};
        start.startLine = 1;
        scan.scanLine = -1;
        survey();
        expectComplaint(noSync);
        const LinePlan before = page.lines;
        inDialog([&, &start = start] {
            EXPECT_TRUE(dialog.lblNoScanLine.visible());
            for (const std::size_t line : clicks)
                dialog.optStartTrig[line]->userClicked();
            if (clicks.empty()) {
                dialog.optStartTrig[2]->userClicked();
                EXPECT_FALSE(dialog.lblNoScanLine.visible()) << "line 1 is free now";
            } else {
                EXPECT_EQ(dialog.optScanTrig[1]->userClicked(), Outcome::Done);
                start.failing = {"setStartTriggerLine"};
            }
            dialog.btnOK.userClicked();
        });
        EXPECT_EQ(scan.scanLine, -1);
        EXPECT_EQ(page.lines == before, !clicks.empty()) << clicks.size();
        EXPECT_EQ(shown(page.lines.available(LineTrigger::scan)), clicks.empty() ? "1" : "");
        expectComplaint(clicks.empty() ? "" : noSync);
        EXPECT_EQ(host.takeReports().size(), clicks.empty() ? 0U : 1U);
        EXPECT_EQ(marks, clicks.empty() ? 1 : 0);
    }
}

} // namespace
} // namespace ko::test
