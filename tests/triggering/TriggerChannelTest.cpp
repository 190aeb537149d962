#include "TriggerArea.h"

namespace ko::test {
namespace {

TEST_F(TriggerArea, SwitchingOnAndOffShowsAndHidesTheAreaAndWarnsOnceEachTime)
{
    driver.parameters = {{}};
    driver.groups[0].channels[1].enabled = 0;
    page.TriggerSlot = 0;
    page.TriggerChannel = 1;
    const std::initializer_list<Control*> controls{&page.cmdChannel, &page.txtChannel, &page.lblChannel, &grid};
    for (int round = 0; round < 2; ++round) {
        area.enableTriggering(true);
        area.enableTriggering(true);
        EXPECT_EQ(host.takeMessages(), Texts{"Warning: " + support.text(1161) + " (64)"});
        EXPECT_EQ(page.txtChannel.text(), "Crank");
        EXPECT_TRUE(driver.groups[0].channels[1].triggerSource);
        for (const Control* control : controls)
            EXPECT_TRUE(control->enabled() && control->visible()) << control->name();
        area.disableTriggering(true);
        EXPECT_TRUE(grid.visible()) << "it changes nothing";
        area.disableTriggering(false);
        for (const Control* control : controls)
            EXPECT_FALSE(control->enabled() || control->visible()) << control->name();
        EXPECT_EQ(page.txtChannel.text(), "Crank");
    }
    page.optOnTrigger.showSelected();
    for (const auto& [index, dynamic, readOnly] :
         {std::tuple{0, true, false}, {-1, true, false}, {0, false, false}, {0, true, true}}) {
        page.dynamicDriverIndex = index;
        page.hasDynamicDrivers = dynamic;
        page.readOnly = readOnly;
        area.disableTriggering(true);
        EXPECT_EQ(page.optOnTrigger.enabled(), index == 0 && dynamic && !readOnly);
    }
}

TEST_F(TriggerArea, WithoutAStoredChannelTheMarkedOneIsTaken)
{
    driver.parameters = {{}};
    area.enableTriggering(true);
    area.clearTriggerSource();
    EXPECT_EQ(page.txtChannel.text(), "Digitizer");
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_FALSE(grid.enabled());
    for (const char* call : {"GetTriggerParamCount", "ChannelAttribute", "setTriggerEnabled"})
        EXPECT_EQ(driver.calls.count(call), 0U) << call;
    area.disableTriggering(false);
    EXPECT_EQ(page.txtChannel.text(), "");
    for (const bool isLoading : {true, false}) {
        page.isLoading = isLoading;
        page.TriggerSlot = page.TriggerChannel = -1;
        driver.groups[0].channels = {{}, {.triggerSource = true}, {.triggerSource = true}};
        driver.writes.clear();
        area.enableTriggering(true);
        EXPECT_EQ(page.TriggerChannel, 1);
        EXPECT_EQ(grid.rowCount(), 1);
        EXPECT_EQ(driver.groups[0].channels[2].triggerSource, isLoading)
            << "a page that is built leaves the other source alone";
        driver.writes.clear();
        area.enableTriggering(true);
        EXPECT_EQ(driver.writes, Texts{"setTriggerEnabled 0 1 on"});
    }
    driver.hasParameters = false;
    area.enableTriggering(true);
    EXPECT_EQ(grid.rowCount(), 0);
}

TEST_F(TriggerArea, WithoutAChannelThePageSaysHowToChooseOneAndTheTreeWhatIsMissing)
{
    addDriver().name = "Other";
    addDriver().failing = {"DriverName"};
    area.enableTriggering(true);
    EXPECT_TRUE(page.lblChooseChannel.visible() && page.grdParam.visible());
    Texts notes;
    host.inModalForm = [&](Form&) { notes = dialog.chsNavigate.notes(); };
    page.cmdChannel.userClicked();
    EXPECT_EQ(notes, Texts{"Other: not listed, because it does not drive the start trigger"});
    EXPECT_EQ(host.takeReports().size(), 1U);
    driver.groups.clear();
    page.cmdChannel.userClicked();
    EXPECT_EQ(notes.front(), "Digitizer: none of its channels can be the trigger channel");
    EXPECT_EQ(host.takeReports().size(), 1U);
    driver.groups = {{"Inputs", {{.address = "0:3:1"}, {.name = "Crank"}}}};
    switchOn();
    EXPECT_FALSE(page.lblChooseChannel.visible());
    area.disableTriggering(false);
    EXPECT_FALSE(page.lblChooseChannel.visible());
}

TEST_F(TriggerArea, AChannelThatTheStartMasterLacksIsForgotten)
{
    driver.parameters = {{}};
    switchOn();
    driver.failing = {"ChannelCount"};
    area.followStartMaster();
    EXPECT_EQ(page.TriggerChannel, 1) << "a driver that fails does not lack it";
    EXPECT_EQ(host.takeReports().size(), 1U);
    addDriver().groups = {{"Inputs", {{}, {}}}};
    page.dynamicDriverIndex = 1;
    area.followStartMaster();
    EXPECT_EQ(page.TriggerChannel, 1);
    EXPECT_EQ(grid.rowCount(), 0) << "but the rows were the other driver's";
    EXPECT_FALSE(grid.enabled());
    fakes[1]->groups[0].channels.pop_back();
    area.followStartMaster();
    EXPECT_EQ(page.TriggerSlot, -1);
    EXPECT_EQ(page.TriggerChannel, -1);
    EXPECT_EQ(page.txtChannel.text(), "");
}

TEST_F(TriggerArea, ChoosingAChannelMovesTheDriversSwitch)
{
    dialog.FilterCanTrigger(true);
    driver.parameters = {{}};
    switchOn();
    host.inModalForm = [&](Form&) {
        EXPECT_TRUE(page.isDialogOpen);
        dialog.chsNavigate.userPicked({2});
        dialog.cmdOK.userClicked();
    };
    page.cmdChannel.userClicked();
    EXPECT_EQ(driver.writes, (Texts{"setTriggerEnabled 0 1 off", "setTriggerEnabled 0 0 on"}));
    EXPECT_EQ(page.txtChannel.text(), "Mainframe: 0 Slot: 3 Channel: 1");
    EXPECT_EQ(page.TriggerChannel, 0);
    EXPECT_EQ(marks, 1);
    int shown = 0;
    host.inModalForm = [&](Form&) {
        EXPECT_EQ(dialog.chsNavigate.selected(), ChannelSelector::Lines{2}) << "the previous channel again";
        dialog.chsNavigate.userPicked({});
        (++shown < 3 ? dialog.cmdOK : dialog.cmdCancel).userClicked();
    };
    page.cmdChannel.userClicked();
    EXPECT_EQ(host.takeMessages(), Texts(2, "Error: " + support.text(1159) + " (64)"));
    EXPECT_EQ(page.TriggerChannel, 0);
    EXPECT_EQ(marks, 1);
    host.inModalForm = [&](Form&) { dialog.chsNavigate.userActivated(0); };
    page.cmdChannel.userClicked();
    EXPECT_EQ(page.TriggerSlot, -1);
    EXPECT_EQ(page.txtChannel.text(), "Digitizer") << "the whole device";
    EXPECT_EQ(grid.rowCount(), 0);
    EXPECT_EQ(driver.writes.back(), "setTriggerEnabled 0 0 off");
}

TEST_F(TriggerArea, ThePageShowsTheSourceThatTheDriverHasKept)
{
    constexpr std::int32_t refusing = 1, marksNone = 2;
    const struct {
        const char* failing;
        std::int32_t keeps, marked, stored, chosen, shown;
        const char* writes;
        std::size_t reports;
    } cases[] = {
        {"", 0, 1, 1, 0, 0, "1 off, 0 on, ", 0},
        {"TriggerEnabled", 0, 1, 1, 0, 0, "1 off, 0 on, ", 2}, // what cannot be read back counts as written
        {"setTriggerEnabled", 0, 1, 1, 0, 1, "", 2},
        {"queryTriggerParameters", 0, 1, 1, 0, 1, "", 2}, // the grid asks for them, too
        {"", refusing, 1, 1, 0, 1, "1 off, 0 on, ", 0},
        {"", refusing, 2, 1, 0, 2, "1 off, 2 off, 0 on, ", 0}, // the driver had another source than the page
        {"", refusing | marksNone, 1, 1, 0, 1, "1 off, 0 on, 1 on, ", 0},
        {"", refusing | marksNone, 1, -1, 0, -1, "0 on, ", 0},
        {"", refusing, 1, 1, -1, 1, "1 off, ", 0},
        {"", refusing, 1, 1, 1, 1, "", 0},
    };
    driver.groups[0].channels.resize(3);
    for (const auto& c : cases) {
        driver.failing = {};
        driver.refuses = false;
        page.TriggerSlot = c.stored < 0 ? -1 : 0;
        page.TriggerChannel = c.stored;
        for (std::int32_t channel = 0; channel < 3; ++channel)
            driver.groups[0].channels[static_cast<std::size_t>(channel)].triggerSource =
                channel == c.marked && !(c.keeps & marksNone);
        driver.writes.clear();
        marks = 0;
        host.inModalForm = [&](Form&) {
            dialog.chsNavigate.userPicked({c.chosen < 0 ? 0 : *dialog.chsNavigate.lineOf(nullptr, 0, c.chosen)});
            driver.failing = {c.failing};
            driver.refuses = c.keeps & refusing;
            dialog.cmdOK.userClicked();
        };
        area.enableTriggering(false);
        page.cmdChannel.setVisible(true);
        page.cmdChannel.setEnabled(true);
        page.cmdChannel.userClicked();
        std::string writes;
        for (const std::string& write : driver.writes)
            writes += write.substr(std::string("setTriggerEnabled 0 ").size()) + ", ";
        EXPECT_EQ(writes, c.writes) << &c - cases;
        EXPECT_EQ(page.TriggerChannel, c.shown) << &c - cases;
        EXPECT_EQ(marks, c.shown == c.chosen) << &c - cases;
        EXPECT_EQ(host.takeReports().size(), c.reports) << &c - cases;
    }
    page.TriggerSlot = page.TriggerChannel = 0;
    area.enableTriggering(true);
    EXPECT_EQ(page.TriggerChannel, 1) << "the driver has kept its own";
}

} // namespace
} // namespace ko::test
