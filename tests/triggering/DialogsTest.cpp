#include "fakes/SectionTest.h"
#include "triggering/AdvancedTrig.h"
#include "triggering/SelectChannel.h"

namespace ko::test {
namespace {

class TriggerDialogs : public SectionTest {
protected:
    AdvancedTrig lines{support};
    SelectChannel channels{support};

    ChannelSelector& selector() { return channels.chsNavigate; }
    /// Adds a driver with two groups: Crank and a channel that cannot trigger; a channel without a name.
    FakeDriver& offerDriver()
    {
        FakeDriver& driver = addDriver();
        driver.name = "Digitizer";
        driver.groups = {{"Inputs", {{.address = "0:3:1", .name = "Crank"}, {.address = "0:3:2", .canTrigger = false}}},
                         {"More", {{.address = "4:1"}}},
                         {"Silent", {{.address = "5:1", .canTrigger = false}}}};
        channels.UpdateDrivers(page.drivers, page.numDrivers);
        return driver;
    }
    Texts listed()
    {
        Texts texts;
        for (const ChannelSelector::Entry& entry : selector().entries())
            texts.push_back(std::string(static_cast<std::size_t>(entry.depth()), ' ') + entry.text);
        return texts;
    }
    void pick(std::int32_t slot, std::int32_t channel)
    {
        const auto line = selector().lineOf(nullptr, slot, channel);
        ASSERT_TRUE(line);
        EXPECT_EQ(selector().userPicked({*line}), Outcome::Done);
    }
};

TEST_F(TriggerDialogs, WithoutALineNothingIsFreedAndOkWithoutAChoiceChangesNothing)
{
    const LinePlan plan({{true}, {}}, {-1, -1});
    host.inModalForm = [&](Form&) {
        EXPECT_TRUE(lines.lblNoScanLine.visible());
        EXPECT_FALSE(lines.lblNoStartLine.visible());
        EXPECT_EQ(lines.tabTrigger.userChoseTab(AdvancedTrig::scanTab), Outcome::Inert);
        EXPECT_EQ(lines.optStartTrig[7]->caption(), "Line 7");
        lines.btnOK.userClicked();
    };
    EXPECT_EQ(lines.Display(plan, {.hasMaster = {true, false}}), std::nullopt);
    host.inModalForm = [&](Form&) {
        lines.optStartTrig[0]->userClicked();
        EXPECT_FALSE(lines.optStartTrig[1]->enabled());
        lines.btnOK.userClicked();
    };
    EXPECT_EQ(lines.Display(plan), LinePlan({{true}, {}}, {0, -1})) << "no line was freed";
    host.inModalForm = [&](Form&) { EXPECT_FALSE(lines.lblNoStartLine.visible()) << "the line is in use"; };
    lines.Display(LinePlan({}, {0, -1}));
    EXPECT_EQ(lines.tabTrigger.tabs()[1].caption, "Sync Trigger Line");
    EXPECT_EQ(lines.caption(), "Trigger Lines");
}

TEST_F(TriggerDialogs, TheBrowserListsWhatItsFiltersLetThrough)
{
    FakeDriver& driver = offerDriver();
    EXPECT_EQ(listed(),
              (Texts{"Digitizer", " Inputs", "  Crank (0:3:1)", "  0:3:2", " More", "  4:1", " Silent", "  5:1"}));
    channels.FilterCanTrigger(true);
    EXPECT_EQ(listed(), (Texts{"Digitizer", " Inputs", "  Crank (0:3:1)", " More", "  4:1"}));
    struct Case {
        std::int32_t type, direction;
        bool single, multi;
        std::size_t dynamicLines, staticLines;
    };
    for (const Case& c : {Case{0, 0, false, false, 5, 5}, Case{1, 0, false, false, 5, 0},
                          Case{2, 0, false, false, 0, 5}, Case{0, 1, false, false, 0, 0}, Case{0, 0, true, false, 0, 5},
                          Case{0, 0, true, true, 5, 5}, Case{0, 0, false, true, 5, 0}}) {
        channels.DriverType(c.type);
        channels.FilterDirection(c.direction);
        channels.FilterSingleValue(c.single);
        channels.FilterMultiValue(c.multi);
        for (const std::int32_t mode : {1, 2}) {
            driver.samplingMode = mode;
            channels.UpdateDrivers(page.drivers, page.numDrivers);
            EXPECT_EQ(selector().entries().size(), mode == 1 ? c.dynamicLines : c.staticLines);
        }
    }
    driver.failing = {"GroupName"};
    channels.UpdateDrivers(page.drivers, page.numDrivers);
    EXPECT_EQ(host.takeReports().size(), 0U) << "the last filter lists no static driver";
    channels.FilterMultiValue(false);
    EXPECT_EQ(host.takeReports(), Texts(2, "KoTimebaseEditor:UpdateDrivers 1000: GroupName failed"));
    EXPECT_EQ(selector().entries().size(), 5U);
}

TEST_F(TriggerDialogs, DisplayHandsBackOneChannelOrArrays)
{
    offerDriver();
    std::shared_ptr<Driver> driver = page.drivers[0];
    std::int32_t slot = 0, channel = 0;
    host.inModalForm = [&](Form&) {
        EXPECT_EQ(selector().selected(), ChannelSelector::Lines{2}) << "the given channel is preselected";
        selector().userPicked({});
        channels.cmdOK.userClicked();
    };
    ASSERT_TRUE(channels.Display(driver, slot, channel));
    EXPECT_EQ(driver, nullptr);
    EXPECT_EQ(slot, -1);
    EXPECT_EQ(channel, -1);
    ChannelSelections many{{page.drivers[0]}, {0}, {0}};
    ASSERT_TRUE(channels.Display(many));
    EXPECT_EQ(many, (ChannelSelections{{nullptr}, {-1}, {-1}}));

    channels.MaxSelections(2);
    host.inModalForm = [&](Form&) {
        selector().userPicked({5, 2, 3});
        channels.cmdOK.userClicked();
    };
    ASSERT_TRUE(channels.Display(many));
    EXPECT_EQ(many, (ChannelSelections{{page.drivers[0], page.drivers[0]}, {0, 1}, {0, 0}})) << "in the tree's order";
    driver = page.drivers[0];
    channels.MaxSelections(1);
    host.inModalForm = [&](Form&) { selector().userActivated(*selector().lineOf(nullptr, 1, 0)); };
    ASSERT_TRUE(channels.Display(driver, slot, channel));
    EXPECT_EQ(slot, 1);
    host.inModalForm = [&](Form&) {
        pick(0, 0);
        channels.cmdCancel.userClicked();
    };
    EXPECT_FALSE(channels.Display(driver, slot, channel));
    EXPECT_FALSE(channels.Display(many));
    EXPECT_EQ(slot, 1);
    EXPECT_EQ(selector().userPicked({99}), Outcome::Inert);
}

TEST_F(TriggerDialogs, ResizingKeepsTheMarginsAndShowingPlacesTheDialogUnderTheCursor)
{
    channels.resize(6000, 4000);
    EXPECT_EQ(channels.cmdHelp.bounds(), (Bounds{4665, 3505, 1215, 375}));
    EXPECT_EQ(channels.cmdCancel.bounds(), (Bounds{3330, 3505, 1215, 375}));
    EXPECT_EQ(channels.cmdOK.bounds(), (Bounds{1995, 3505, 1215, 375}));
    EXPECT_EQ(selector().bounds(), (Bounds{120, 120, 5760, 3265}));
    host.cursor = {400, 100};
    std::shared_ptr<Driver> driver;
    std::int32_t slot = -1, channel = -1;
    channels.Display(driver, slot, channel);
    EXPECT_EQ(channels.bounds(), (Bounds{3000, 1500, 6000, 4000}));
    lines.Display({});
    EXPECT_EQ(lines.bounds().left, 6000);
}

} // namespace
} // namespace ko::test
