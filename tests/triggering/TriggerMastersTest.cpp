#include "TriggerLines.h"

namespace ko::test {
namespace {

/// The module that reads the drivers' trigger lines and writes them.
class TriggerMastersOf : public SectionTest {
protected:
    Triggering triggering{support};
};

TEST_F(TriggerMastersOf, TheSurveyPrefersWiredDriversThenTheBestRankThenTheEarlierDriver)
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

TEST_F(TriggerMastersOf, ADriverThatFailsInTheSurveyIsReportedOnceAndTakesNoPart)
{
    FakeDriver& failing = addDriver();
    failing.startRank = failing.scanRank = 10;
    failing.failing = {"ScanMasterRank"};
    addDriver().startRank = 1;
    EXPECT_EQ(triggering.findTriggerMasters(page.currentDrivers()), (TriggerMasters{{1, -1}}));
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:findTriggerMasters 1000: ScanMasterRank failed"});
}

TEST_F(TriggerMastersOf, ListsOfTheMasterAndTheListenersNarrowTheLinesDown)
{
    const struct {
        LineList master, first, second;
        const char* left;
        std::size_t reports;
    } cases[]{
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
    for (const auto& c : cases) {
        master.startMasterLines = c.master;
        first.startListenerLines = c.first;
        second.startListenerLines = c.second;
        EXPECT_EQ(left(1), c.left) << &c - cases;
        EXPECT_EQ(host.takeReports().size(), c.reports) << &c - cases;
    }
    EXPECT_EQ(left(3), "01234567") << "no interface";
    EXPECT_EQ(left(-1), "01234567") << "no master";
}

TEST_F(TriggerMastersOf, ADriverThatFailsWhileTheLineIsWrittenDoesNotKeepItFromTheOthers)
{
    addDriver().startRank = 5;
    addDriver().failing = {"setStartTriggerInput"};
    FakeDriver& last = addDriver();
    triggering.setTriggerLine(LineTrigger::start, page.currentDrivers(), 0, 4, -1);
    EXPECT_EQ(last.startInput, 4);
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:setStartTriggerLine 1000: setStartTriggerInput failed"});
    triggering.setTriggerLine(LineTrigger::scan, page.currentDrivers(), -1, 4, -1);
    EXPECT_EQ(last.scanInput, -1);
}

} // namespace
} // namespace ko::test
