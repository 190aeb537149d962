#include "fakes/DocumentTest.h"

namespace ko::test {
namespace {

class LifeCycle : public DocumentTest {};

TEST_F(LifeCycle, CreationLoadsTextsHintsAndTheGridsHeader)
{
    EXPECT_EQ(page().frmStart.caption(), "After the \"Record\" button is pressed, start recording:");
    EXPECT_EQ(page().optOnTrigger.caption(), "On T&rigger");
    EXPECT_EQ(page().mnuTimebaseTriggerLines.caption(), "&Trigger Lines...");
    EXPECT_EQ(page().txtScanRate.tag(), "Enter the desired scan rate");
    EXPECT_EQ(page().cmbInterval.items(),
              (std::vector<ComboBox::Item>{{"seconds", 1}, {"minutes", 60}, {"hours", 3600}, {"days", 86400}}));
    EXPECT_EQ(page().grdParam.cell(0, 0).value, "Parameter Name");
    EXPECT_EQ(page().grdParam.cell(0, 1).value, "Parameter Value");
    EXPECT_FALSE(page().mnuTimebaseTriggerLines.enabled());
    EXPECT_EQ(page().lblChannel.font().name, "DejaVu Sans");
    EXPECT_EQ(page().grdParam.standardStyle().font.name, "DejaVu Sans");
    EXPECT_EQ(page().grdParam.columnWidth(0) + page().grdParam.columnWidth(1), page().grdParam.innerWidth());
    EXPECT_EQ(shared.support.localeSettings, readLocaleSettings({}));
    EXPECT_EQ(page().cmdChannel.tag(), "Select the group containing the desired trigger channel");
    EXPECT_EQ(shared.dialogs.setDateTime().caption(), "Set Date & Time");
    EXPECT_EQ(shared.dialogs.advancedTrig().lblScanMap.caption(), "Instruments and lines:");
    EXPECT_EQ(shared.dialogs.selectChannel().caption(), "Select Trigger Channel");
    Texts tabs;
    for (const auto& tab : shared.dialogs.advancedTrig().tabTrigger.tabs())
        tabs.push_back(tab.caption);
    EXPECT_EQ(tabs, (Texts{"Start Trigger Line", "Sync Trigger Line"}));
}

TEST_F(LifeCycle, AnEmptyListShowsTheNoInstrumentScreenAndAListTheFrames)
{
    open();
    EXPECT_TRUE(page().imgNoInst.visible());
    for (const Frame* frame : {&page().frmStart, &page().frmStop, &page().frmDynamic, &page().frmStatic})
        EXPECT_FALSE(frame->visible());
    page().imgNoInst.userClicked();
    EXPECT_EQ(host.takeMessages(), Texts{"Timebase Editor: This is an information screen. Please follow instructions "
                                         "given in the screen. (64)"});

    addDriver();
    handOver();
    EXPECT_FALSE(page().imgNoInst.visible());
    EXPECT_TRUE(page().frmDynamic.visible());
    EXPECT_FALSE(page().frmStatic.visible());
    EXPECT_EQ(page().activeControl(), &page().optImmediate);
    EXPECT_FALSE(page().isLoading);

    addDriver(2);
    handOver();
    fakes.clear();
    handOver();
    EXPECT_TRUE(page().imgNoInst.visible());
    EXPECT_FALSE(page().frmStart.visible());
    EXPECT_EQ(page().activeControl(), nullptr);
    addDriver(2);
    handOver();
    document->drivers().setNumberOfDrivers(0);
    document->UserDocument_Show();
    EXPECT_FALSE(page().frmStatic.visible()) << "announced drivers are gone, whatever the list says";
}

TEST_F(LifeCycle, OnlyF1AloneOpensHelpAndIsSwallowed)
{
    document->mode().setClientSite(host.site());
    for (const std::int16_t shift : std::initializer_list<std::int16_t>{0, 1, 2, 4}) {
        KeyPress press{key::f1, shift};
        page().keyDown(press);
        EXPECT_EQ(press.keyCode, shift == 0 ? 0 : 112);
        press.keyCode = key::f1;
        shared.dialogs.setDateTime().keyDown(press);
        EXPECT_EQ(press.keyCode, shift == 0 ? 0 : 112);
    }
    KeyPress other{key::f1 + 1, 0};
    page().keyDown(other);
    shared.dialogs.setDateTime().keyDown(other);
    document->mode().setReadOnly(true);
    document->menu().OnCommand(command::help);
    EXPECT_EQ(host.topics, (std::vector<std::int32_t>{1007, 1005, 507}));
}

TEST_F(LifeCycle, EveryDocumentsEndTakesTheHelpFromTheDialogs)
{
    document->mode().setClientSite(host.site());
    EXPECT_TRUE(shared.dialogs.setDateTime().IHelp);
    EXPECT_TRUE(shared.dialogs.selectChannel().IHelp);
    EXPECT_EQ(shared.dialogs.selectChannel().cmdHelp.caption(), "Help");
    EXPECT_EQ(shared.dialogs.selectChannel().helpContextId, 1004);
    document.reset();
    EXPECT_FALSE(shared.dialogs.advancedTrig().IHelp);
    EXPECT_FALSE(shared.dialogs.selectChannel().IHelp);
}

TEST_F(LifeCycle, NoControlActsWhileThePageFillsItOrADialogIsOpen)
{
    for (const std::int32_t samplingMode : {1, 2}) {
        FakeDriver& driver = addDriver(samplingMode);
        driver.startRank = driver.scanRank = 5;
        driver.sampleChoices = driver.scanChoices = {0.1, 0.2};
        driver.blockChoices = {512, 1024};
        driver.startMode = startMode::onTrigger;
        driver.groups = {{"Inputs", {{.name = "Crank"}}}};
    }
    open();
    ASSERT_TRUE(page().cmdChannel.isUsable());
    for (const auto& driver : fakes)
        driver->writes.clear();
    bool shown = false;
    host.inModalForm = [&](Form&) { shown = true; };
    const auto useLists = [&] {
        for (ComboBox* list : {&page().cmbSampleRate, &page().cmbSamplePeriod})
            list->userChose(1 - std::max(list->index(), 0));
    };
    const auto useBlocksAndDialogs = [&] {
        page().cmbBlockSize.userChose(0);
        page().mnuTimebaseTriggerLines.userClicked();
        page().cmdChannel.userClicked();
    };
    page().isUpdating = true;
    useLists();
    page().cmbInterval.userChose(1);
    page().isUpdating = false;
    page().isDialogOpen = true;
    useBlocksAndDialogs();
    page().isDialogOpen = false;
    page().isLoading = true;
    useLists();
    useBlocksAndDialogs();
    for (ComboBox* list : {&page().cmbScanRate, &page().cmbScanPeriod, &page().cmbInterval})
        list->userChose(1);
    for (OptionButton* option : {&page().optStartTime, &page().optStopTime, &page().optAfter, &page().optImmediate})
        option->userClicked();
    page().isLoading = false;
    EXPECT_FALSE(shown);
    for (const auto& driver : fakes)
        EXPECT_EQ(driver->writes, Texts());
}

TEST_F(LifeCycle, LoadingEndsWhateverFails)
{
    FakeDriver& driver = addDriver();
    driver.failing = {"*"};
    open();
    EXPECT_FALSE(page().isLoading);
    EXPECT_FALSE(page().driverChangesPending);
    EXPECT_EQ(page().txtDuration.text(), "");
    EXPECT_EQ(driver.writes, Texts());
    for (const std::string& report : host.takeReports())
        EXPECT_TRUE(report.starts_with("KoTimebaseEditor:")) << report;
    driver.failing.clear();
    handOver();
    EXPECT_TRUE(page().frmDynamic.visible());
}

} // namespace
} // namespace ko::test
