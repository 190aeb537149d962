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
        choice.build(masters);
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
        PerTrigger<std::int32_t> masters, driven;
    };
    const PerTrigger<std::int32_t> none{-1, -1};
    const Case cases[] = {
        {{}, none, none},
        {{{0, -1, 0, -1}, {-1, -1, -3, -1}}, none, none},
        {{{7, -1, 3, -1}, {7, -1, 4, -1}}, {0, 1}, none},
        {{{10, -1, 1, -1}, {10, -1, 10, -1}, {5, -1, 10, -1}}, {0, 1}, none},
        {{{10, -1, 10, -1}, {1, 4, -1, 5}}, {1, 1}, {4, 5}},
        {{{9, -1, 9, -1}, {0, 4, 0, 5}}, {0, 1}, {-1, 5}}, // rank 0 is no wired start master, but a wired scan master
        {{{3, -1, 5, -1}, {2, -7, 6, 8}}, {0, 0}, none},   // line 8 does not exist
    };
    for (const Case& c : cases) {
        page.drivers.clear();
        for (const Wired& wired : c.drivers) {
            FakeDriver& driver = addDriver();
            std::tie(driver.startRank, driver.startLine, driver.scanRank, driver.scanLine) =
                std::tie(wired.startRank, wired.startLine, wired.scanRank, wired.scanLine);
        }
        page.numDrivers = static_cast<std::int32_t>(page.drivers.size());
        EXPECT_EQ(triggering.findTriggerMasters(page.currentDrivers()), (TriggerMasters{c.masters, c.driven}))
            << &c - cases;
    }
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:findTriggerMasters 9: Subscript out of range"});
}

TEST_F(TriggerLinesOf, ADriverThatFailsInTheSurveyIsReportedOnceAndTakesNoPart)
{
    FakeDriver& failing = addDriver();
    failing.startRank = failing.scanRank = 10;
    failing.failing = {"ScanMasterRank"};
    addDriver().startRank = 1;
    EXPECT_EQ(triggering.findTriggerMasters(page.currentDrivers()), (TriggerMasters{{1, -1}}));
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:findTriggerMasters 1000: ScanMasterRank failed"});
}

TEST_F(TriggerLinesOf, ListsOfTheMasterAndTheListenersNarrowTheLinesDown)
{
    struct Case {
        LineList master, first, second;
        const char* left;
        std::size_t reports;
    };
    const Case cases[] = {
        {{}, {}, {}, "01234567", 0},         {{1, 2, 3}, {}, {}, "123", 0}, {{1, 2, 3}, {2, 3, 4}, {}, "23", 0},
        {{1, 2, 3}, {2, 3}, {3, 7}, "3", 0}, {{}, {6}, {7}, "", 0},         {{1, 9, -1}, {}, {1, 2}, "1", 1},
        {{}, {3, 8}, {3, 4}, "3", 1},
    };
    FakeDriver& first = addDriver();
    FakeDriver& master = addDriver();
    FakeDriver& second = addDriver();
    addDriver().hasLines = false;
    const auto left = [&](std::int32_t byDriver) {
        return shown(commonLines(triggering.buildTriggerList(LineTrigger::start, page.currentDrivers(), byDriver)));
    };
    for (const Case& c : cases) {
        master.startMasterLines = c.master;
        first.startListenerLines = c.first;
        second.startListenerLines = c.second;
        EXPECT_EQ(left(1), c.left) << &c - cases;
        EXPECT_EQ(host.takeReports().size(), c.reports) << &c - cases;
    }
    EXPECT_EQ(left(3), "01234567") << "no interface";
    EXPECT_EQ(left(-1), "01234567") << "no master";
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
        EXPECT_EQ(page.lines.line(LineTrigger::start), c.start) << &c - cases;
        EXPECT_EQ(page.lines.line(LineTrigger::scan), c.scan) << &c - cases;
        EXPECT_EQ(shown(page.lines.available(LineTrigger::start)), c.availableStart) << &c - cases;
        EXPECT_EQ(shown(page.lines.available(LineTrigger::scan)), c.availableScan) << &c - cases;
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
    EXPECT_EQ(page.lines.line(LineTrigger::start), 6);
    EXPECT_EQ(page.lines.line(LineTrigger::scan), -1);
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
    EXPECT_EQ(page.lines.line(LineTrigger::scan), 2);
    EXPECT_EQ(shown(page.lines.available(LineTrigger::start)), "0134567")
        << "the line that the sync trigger left is free again";
    EXPECT_EQ(marks, 1);
    EXPECT_FALSE(page.isDialogOpen);

    host.inModalForm = [&](Form&) {
        dialog.optStartTrig[5]->userClicked();
        support.errors.events.supersede(std::exchange(page.drivers, {}));
        dialog.btnOK.userClicked();
    };
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(page.lines.line(LineTrigger::start), 0) << "another list came meanwhile";
}

TEST_F(TriggerLinesOf, AHintWithoutAPlaceForItsValueIsShownWithoutIt)
{
    Support translated{host.platform, "3020 \"belegt\"\n3021 \"%1 %2\""};
    AdvancedTrig translatedDialog{translated};
    TriggerLineChoice translatedChoice{page, translated, *this, triggering,
                                       [&]() -> AdvancedTrig& { return translatedDialog; }};
    addDriver().startRank = 5;
    FakeDriver& scan = addDriver();
    scan.scanRank = 5;
    scan.name = "Logger";
    page.dynamicDriverIndex = 0;
    page.staticDriverIndex = 1;
    translatedChoice.build(triggering.findTriggerMasters(page.currentDrivers()));
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(translatedDialog.optStartTrig[0]->toolTipText(), "belegt");
    EXPECT_EQ(translatedDialog.optScanTrig[1]->toolTipText(), "Logger %2");
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
        EXPECT_TRUE(dialog.lblNoScanLine.visible());
        dialog.optStartTrig[4]->userClicked();
        EXPECT_FALSE(dialog.lblNoScanLine.visible()) << "line 2 is free now";
        dialog.btnOK.userClicked();
    };
    page.mnuTimebaseTriggerLines.userClicked();
    EXPECT_EQ(scan.scanLine, -1) << "the user has not chosen it";
    EXPECT_FALSE(page.lblNoTriggerLine.visible());
    EXPECT_EQ(page.lblNoTriggerLine.caption(), "");
}

TEST_F(TriggerLinesOf, ThePageShowsTheLinesThatTheMastersHaveKept)
{
    struct Case {
        const char *failing, *shows, *says;
        bool keeps;
        std::int32_t start, scan, startInput, scanInput;
        int marks;
    };
    // From lines 0 and 1 the user goes to 1 and 0.
    const Case cases[] = {
        {"", "1 0", "", false, 1, 0, 1, 0, 2},
        {"", "0 1", "", true, 0, 1, 0, 1, 1}, // the sync trigger keeps its line beside it
        {"setStartTriggerLine", "0 1", "setStartTriggerLine", false, 0, 1, 0, 1, 0},
        {"StartTriggerLine", "1 0", "StartTriggerLine", false, 1, 0, 1, 0, 2},
        {"setScanTriggerInput", "1 0", "setScanTriggerInput", false, 1, 0, 1, 1, 2},
    };
    for (const Case& c : cases) {
        page.drivers.clear();
        FakeDriver& start = addDriver();
        FakeDriver& scan = addDriver();
        page.drivers = {fakes[fakes.size() - 2], fakes.back()};
        page.numDrivers = 2;
        start.startRank = scan.scanRank = 5;
        survey();
        marks = 0;
        host.inModalForm = [&](Form&) {
            for (const auto& [options, line] :
                 {std::pair{&dialog.optStartTrig, 2}, {&dialog.optScanTrig, 0}, {&dialog.optStartTrig, 1}})
                (*options)[static_cast<std::size_t>(line)]->userClicked();
            start.refuses = c.keeps;
            start.failing = scan.failing = {c.failing};
            dialog.btnOK.userClicked();
        };
        page.mnuTimebaseTriggerLines.userClicked();
        const int at = static_cast<int>(&c - cases);
        EXPECT_EQ(std::to_string(page.lines.line(LineTrigger::start)) + " " +
                      std::to_string(page.lines.line(LineTrigger::scan)),
                  c.shows)
            << at;
        EXPECT_EQ(std::tie(start.startLine, scan.scanLine, scan.startInput, start.scanInput),
                  std::tie(c.start, c.scan, c.startInput, c.scanInput))
            << at;
        EXPECT_EQ(marks, c.marks) << at;
        const Texts reports = host.takeReports();
        EXPECT_EQ(reports.size(), *c.failing ? 1U : 0U) << at;
        for (const std::string& report : reports)
            EXPECT_NE(report.find(std::string(c.says) + " failed"), std::string::npos) << report;
    }
}

TEST_F(TriggerLinesOf, ALineThatIsNotTakenLeavesTheOffersAsTheyWere)
{
    FakeDriver& start = addDriver();
    FakeDriver& scan = addDriver();
    start.startRank = scan.scanRank = 5;
    start.startMasterLines = {1, 2, 3};
    scan.scanMasterLines = {1};
    for (const std::vector<std::int32_t>& clicks : {std::vector<std::int32_t>{2}, {2, 3}, {3, 2, 1, 3}}) {
        start.failing = {};
        start.startLine = 1;
        scan.scanLine = -1;
        survey();
        const LinePlan before = page.lines;
        host.inModalForm = [&](Form&) {
            for (const std::int32_t line : clicks)
                dialog.optStartTrig[static_cast<std::size_t>(line)]->userClicked();
            EXPECT_EQ(dialog.optScanTrig[1]->userClicked(), Outcome::Done);
            start.failing = {"setStartTriggerLine"};
            dialog.btnOK.userClicked();
        };
        page.mnuTimebaseTriggerLines.userClicked();
        EXPECT_EQ(page.lines, before) << clicks.size();
        EXPECT_EQ(shown(page.lines.available(LineTrigger::scan)), "") << "the sync master can drive line 1 only";
        EXPECT_EQ(page.lblNoTriggerLine.caption(), "No trigger line is left for the sync trigger.");
        EXPECT_TRUE(page.lblNoTriggerLine.visible());
        EXPECT_EQ(host.takeReports().size(), 1U);
    }
    EXPECT_EQ(marks, 0);
}

TEST_F(TriggerLinesOf, ADriverThatFailsWhileTheLineIsWrittenDoesNotKeepItFromTheOthers)
{
    addDriver().startRank = 5;
    FakeDriver& failing = addDriver();
    failing.failing = {"setStartTriggerInput"};
    FakeDriver& last = addDriver();
    triggering.setTriggerLine(LineTrigger::start, page.currentDrivers(), 0, 4, -1);
    EXPECT_EQ(last.startInput, 4);
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:setStartTriggerLine 1000: setStartTriggerInput failed"});
    triggering.setTriggerLine(LineTrigger::scan, page.currentDrivers(), -1, 4, -1);
    EXPECT_EQ(last.scanInput, -1);
}

} // namespace
} // namespace ko::test
