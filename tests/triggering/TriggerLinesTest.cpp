#include "fakes/SectionTest.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/TriggerLineChoice.h"
#include "triggering/Triggering.h"

namespace ko::test {
namespace {

class TriggerLinesOf : public SectionTest {
protected:
    Triggering triggering{support};
    AdvancedTrig dialog{support};
    TriggerLineChoice choice{page, support, *this, triggering, [this]() -> AdvancedTrig& { return dialog; }};

    void survey()
    {
        const TriggerMasters masters = triggering.findTriggerMasters(page.currentDrivers());
        page.dynamicDriverIndex = masters.start;
        page.staticDriverIndex = masters.scan;
        choice.build(masters.found());
    }
};

std::string shown(const LineMask& lines)
{
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (lines[i])
            text += std::to_string(i);
    return text;
}

TEST_F(TriggerLinesOf, TheSurveyPrefersWiredDriversThenTheBestRankThenTheEarlierDriver)
{
    struct Wired {
        std::int32_t startRank, startLine, scanRank, scanLine;
    };
    struct Case {
        std::vector<Wired> drivers;
        TriggerMasters masters;
    };
    const Case cases[] = {
        {{}, {-1, -1}},
        {{{0, -1, 0, -1}, {-1, -1, -3, -1}}, {-1, -1}},
        {{{7, -1, 3, -1}, {7, -1, 4, -1}}, {0, 1}},
        {{{10, -1, 1, -1}, {10, -1, 10, -1}, {5, -1, 10, -1}}, {0, 1}},
        {{{10, -1, 10, -1}, {1, 4, -1, 5}}, {1, 1}},
        {{{9, -1, 9, -1}, {0, 4, 0, 5}}, {0, 1}},  // rank 0 is no wired start master, but a wired scan master
        {{{3, -1, 5, -1}, {2, -1, 6, 8}}, {0, 0}}, // line 8 does not exist
    };
    for (const Case& c : cases) {
        page.drivers.clear();
        for (const Wired& wired : c.drivers) {
            FakeDriver& driver = addDriver();
            std::tie(driver.startRank, driver.startLine, driver.scanRank, driver.scanLine) =
                std::tie(wired.startRank, wired.startLine, wired.scanRank, wired.scanLine);
        }
        page.numDrivers = static_cast<std::int32_t>(page.drivers.size());
        EXPECT_EQ(triggering.findTriggerMasters(page.currentDrivers()), c.masters) << &c - cases;
    }
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:findTriggerMasters 9: Subscript out of range"});
}

TEST_F(TriggerLinesOf, ADriverThatFailsInTheSurveyIsReportedOnceAndTakesNoPart)
{
    FakeDriver& failing = addDriver();
    failing.startRank = failing.scanRank = 10;
    failing.failing = {"ScanMasterRank"};
    addDriver().startRank = 1;
    EXPECT_EQ(triggering.findTriggerMasters(page.currentDrivers()), (TriggerMasters{1, -1}));
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:findTriggerMasters 1000: ScanMasterRank failed"});
}

TEST_F(TriggerLinesOf, ListsOfTheMasterAndTheListenersNarrowTheLinesDown)
{
    struct Case {
        LineList master, first, second;
        std::int32_t scanLine;
        const char* left;
        std::size_t reports;
    };
    const Case cases[] = {
        {{}, {}, {}, -1, "01234567", 0},       {{}, {}, {}, 5, "0123467", 0},
        {{1, 2, 3}, {}, {}, -1, "123", 0},     {{1, 2, 3}, {2, 3, 4}, {}, -1, "23", 0},
        {{1, 2, 3}, {2, 3}, {3, 7}, 3, "", 0}, {{}, {6}, {7}, -1, "", 0},
        {{1, 9, -1}, {}, {1, 2}, -1, "1", 1},  {{}, {3, 8}, {3, 4}, -1, "3", 1},
    };
    FakeDriver& first = addDriver();
    FakeDriver& master = addDriver();
    FakeDriver& second = addDriver();
    addDriver().hasLines = false;
    for (const Case& c : cases) {
        master.startMasterLines = c.master;
        first.startListenerLines = c.first;
        second.startListenerLines = c.second;
        std::int32_t scanLine = c.scanLine;
        EXPECT_EQ(shown(triggering.buildStartTriggerList(page.currentDrivers(), 1, scanLine)), c.left) << &c - cases;
        EXPECT_EQ(scanLine, c.scanLine);
        EXPECT_EQ(host.takeReports().size(), c.reports) << &c - cases;
    }
    std::int32_t none = -1;
    EXPECT_EQ(shown(triggering.buildScanTriggerList(page.currentDrivers(), 3, none)), "01234567") << "no interface";
}

TEST_F(TriggerLinesOf, TheTwoTriggersNeverShareALine)
{
    struct Case {
        std::int32_t wiredStart, wiredScan;
        LineList startLines, scanLines;
        std::int32_t start, scan;
        const char *availableStart, *availableScan, *says;
    };
    const char* noSync = "No trigger line is left for the sync trigger.";
    const Case cases[] = {
        {-1, -1, {}, {}, 0, 1, "0234567", "1234567", ""}, {-1, 0, {}, {}, 1, 0, "1234567", "0234567", ""},
        {3, -1, {}, {}, 3, 0, "1234567", "0124567", ""},  {3, 3, {}, {}, 3, 0, "1234567", "0124567", ""},
        {-1, -1, {2}, {2}, 2, -1, "2", "", noSync},       {-1, -1, {2, 4}, {2, 4}, 2, 4, "2", "4", ""},
    };
    FakeDriver& start = addDriver();
    FakeDriver& scan = addDriver();
    start.startRank = 5;
    scan.scanRank = 5;
    for (const Case& c : cases) {
        start.startLine = c.wiredStart;
        scan.scanLine = c.wiredScan;
        start.startMasterLines = c.startLines;
        scan.scanMasterLines = c.scanLines;
        survey();
        EXPECT_EQ(page.startTriggerLine, c.start) << &c - cases;
        EXPECT_EQ(page.scanTriggerLine, c.scan) << &c - cases;
        EXPECT_EQ(shown(page.availStartLines), c.availableStart) << &c - cases;
        EXPECT_EQ(shown(page.availScanLines), c.availableScan) << &c - cases;
        EXPECT_EQ(page.lblNoTriggerLine.caption(), c.says) << &c - cases;
        EXPECT_EQ(page.lblNoTriggerLine.visible(), *c.says != 0);
        EXPECT_EQ(start.startLine, c.start);
        EXPECT_EQ(scan.startInput, c.start);
        EXPECT_EQ(scan.scanLine, c.scan);
        EXPECT_EQ(start.scanInput, c.scan);
    }
    EXPECT_EQ(marks, 0);
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
    EXPECT_EQ(page.startTriggerLine, 6);
    EXPECT_EQ(page.scanTriggerLine, -1);
    EXPECT_EQ(other.startInput, 6);
    EXPECT_FALSE(page.mnuTimebaseTriggerLines.enabled());
}

TEST_F(TriggerLinesOf, TheDialogWritesWhatTheUserChangesAndNothingElse)
{
    FakeDriver& start = addDriver();
    FakeDriver& scan = addDriver();
    start.name = "Digitizer";
    scan.name = "Logger";
    start.startRank = scan.scanRank = 5;
    survey();
    start.writes.clear();
    bool accept = false;
    host.inModalForm = [&](Form&) {
        EXPECT_TRUE(page.isDialogOpen);
        EXPECT_EQ(dialog.optStartTrig[0]->toolTipText(), "Digitizer drives the start trigger on this line.");
        EXPECT_EQ(dialog.optStartTrig[1]->toolTipText(), "Logger drives the sync trigger on this line.");
        EXPECT_EQ(dialog.optScanTrig[2]->userClicked(), Outcome::Done);
        (accept ? dialog.btnOK : dialog.btnCancel).userClicked();
    };
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(start.writes, Texts());
    EXPECT_EQ(marks, 0);
    accept = true;
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(start.writes, Texts{"setScanTriggerInput 2"});
    EXPECT_EQ(scan.scanLine, 2);
    EXPECT_EQ(page.scanTriggerLine, 2);
    EXPECT_EQ(shown(page.availStartLines), "0134567") << "the line that the sync trigger left is free again";
    EXPECT_EQ(marks, 1);
    EXPECT_FALSE(page.isDialogOpen);

    host.inModalForm = [&](Form&) {
        dialog.optStartTrig[5]->userClicked();
        page.drivers.pop_back();
        dialog.btnOK.userClicked();
    };
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(page.startTriggerLine, 0) << "another list came meanwhile";
}

TEST_F(TriggerLinesOf, TheComplaintThatNoLineIsLeftGoesWithItsReason)
{
    FakeDriver& scan = addDriver();
    FakeDriver& start = addDriver();
    start.startRank = scan.scanRank = 5;
    start.startMasterLines = {2, 4};
    scan.scanMasterLines = {2};
    survey();
    EXPECT_EQ(page.lblNoTriggerLine.caption(), "No trigger line is left for the sync trigger.");
    host.inModalForm = [&](Form&) {
        dialog.optStartTrig[4]->userClicked();
        dialog.optScanTrig[2]->userClicked();
        dialog.btnOK.userClicked();
    };
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(scan.scanLine, 2);
    for (const auto& tab : dialog.tabTrigger.tabs())
        EXPECT_TRUE(tab.enabled) << tab.caption;
    EXPECT_FALSE(page.lblNoTriggerLine.visible());
    EXPECT_EQ(page.lblNoTriggerLine.caption(), "");
}

TEST_F(TriggerLinesOf, ADriverThatFailsWhileTheLineIsWrittenDoesNotKeepItFromTheOthers)
{
    addDriver().startRank = 5;
    FakeDriver& failing = addDriver();
    failing.failing = {"setStartTriggerInput"};
    FakeDriver& last = addDriver();
    triggering.setStartTriggerLine(page.currentDrivers(), 0, 4);
    EXPECT_EQ(last.startInput, 4);
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:setStartTriggerLine 1000: setStartTriggerInput failed"});
    triggering.setScanTriggerLine(page.currentDrivers(), -1, 4);
    EXPECT_EQ(last.scanInput, -1);
}

} // namespace
} // namespace ko::test
