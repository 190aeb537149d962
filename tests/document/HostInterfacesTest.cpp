#include "fakes/DocumentTest.h"

#include <limits>

namespace ko::test {
namespace {

class HostInterfaces : public DocumentTest {
protected:
    std::int32_t enabled(std::int32_t commandId)
    {
        std::int32_t enable = -5;
        document->menu().OnUpdateCommandUI(commandId, enable);
        return enable;
    }
};

TEST_F(HostInterfaces, EachMissingElementIsOneReportUpToAHundredAndTheRestIsTaken)
{
    addDriver(2);
    document->drivers().setNumberOfDrivers(3);
    document->drivers().setDrivers({fakes[0], nullptr});
    EXPECT_EQ(host.takeReports(), (Texts{"KoTimebaseEditor:IKopDrivers_Drivers 91: Object variable not set",
                                         "KoTimebaseEditor:IKopDrivers_Drivers 9: Subscript out of range"}));
    EXPECT_TRUE(page().hasStaticDrivers);
    EXPECT_FALSE(document->drivers().HasProcessedDriverChanges());
    document->UserDocument_Show();
    EXPECT_EQ(page().staticDriverIndex, 0);
    document->drivers().setNumberOfDrivers(-2);
    document->drivers().setDrivers({});
    EXPECT_EQ(host.takeReports().size(), 1U);
    EXPECT_TRUE(page().imgNoInst.visible());
    const std::string missing = "KoTimebaseEditor:IKopDrivers_Drivers 9: Subscript out of range";
    for (const std::int32_t announced : {101, 102, std::numeric_limits<std::int32_t>::max()}) {
        document->drivers().setNumberOfDrivers(announced);
        document->drivers().setDrivers({fakes[0]});
        const Texts reports = host.takeReports();
        ASSERT_EQ(reports.size(), announced == 101 ? 100U : 101U);
        EXPECT_EQ(reports[99], missing);
        EXPECT_EQ(reports.back().substr(missing.size()),
                  announced == 101 ? "" : ": " + std::to_string(announced - 101) + " more elements");
        EXPECT_EQ(page().currentDrivers().size(), 1U);
    }
}

TEST_F(HostInterfaces, ADriverThatFailsOneKindTestCountsByTheOther)
{
    FakeDriver& driver = addDriver();
    for (const auto& [samplingMode, failingCall] : {std::pair{1, 1}, {2, 3}}) {
        FaultGate gate;
        gate.first = gate.last = failingCall;
        driver.samplingMode = samplingMode;
        driver.gate = &gate;
        document->drivers().setNumberOfDrivers(1);
        document->drivers().setDrivers({fakes[0]});
        driver.gate = nullptr;
        EXPECT_EQ(page().hasDynamicDrivers, samplingMode == 1);
        EXPECT_EQ(page().hasStaticDrivers, samplingMode == 2);
        EXPECT_EQ(host.takeReports().size(), 1U);
    }
}

TEST_F(HostInterfaces, AListForAShownPageClearsTheWiringWithoutReports)
{
    addDriver().hasLines = false;
    open();
    FakeDriver& wired = addDriver();
    wired.startLine = 3;
    wired.scanLine = 4;
    wired.failing = {"setScanTriggerLine"};
    handOver();
    EXPECT_EQ(wired.startLine, -1);
    EXPECT_EQ(wired.scanLine, 4);
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:setScanTriggerLine 1000: setScanTriggerLine failed"})
        << "only of the new page, which keeps the line";
    document->UserDocument_Hide();
    wired.startLine = 3;
    document->drivers().setDrivers(DriverList(fakes.begin(), fakes.end()));
    EXPECT_EQ(wired.startLine, 3) << "a hidden page waits for its next showing";
}

TEST_F(HostInterfaces, EditCommandsWorkOnTheFocusedBox)
{
    addDriver().sampleRange = {1e-6, 1};
    open();
    for (const std::int32_t id :
         {command::copy, command::cut, command::erase, command::paste, command::acceptEntry, 99})
        EXPECT_EQ(enabled(id), 0) << id;
    EXPECT_EQ(enabled(command::help), 1);
    document->menu().OnCommand(99);
    document->menu().OnCommand(command::copy);
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:IKopMenu_OnCommand 13: Type mismatch"});

    TextBox& box = page().txtSampleRate;
    ASSERT_TRUE(page().moveFocus(&box));
    EXPECT_EQ(enabled(command::copy), 1);
    EXPECT_EQ(enabled(command::paste), 0) << "nothing on the clipboard";
    document->menu().OnCommand(command::copy);
    EXPECT_EQ(host.clipboardText, "1000");
    EXPECT_EQ(enabled(command::paste), 1);
    host.clipboardFails = true;
    EXPECT_EQ(enabled(command::paste), 0);
    host.clipboardFails = false;
    host.clipboardText += "\n7";
    document->menu().OnCommand(command::paste);
    EXPECT_EQ(box.text(), "1000") << "up to the line break";
    box.select(1, 3);
    document->menu().OnCommand(command::cut);
    EXPECT_EQ(box.text(), "1");
    EXPECT_EQ(enabled(command::copy), 0);
    document->menu().OnCommand(command::paste);
    EXPECT_EQ(box.text(), "1000");
    box.select(0, 1);
    document->menu().OnCommand(command::erase);
    EXPECT_EQ(box.text(), "000");
    EXPECT_FALSE(page().moveFocus(nullptr));
    EXPECT_EQ(host.takeMessages().size(), 1U);
    page().editFlags = editFlag::copy;
    EXPECT_EQ(enabled(command::paste), 0) << "a box to copy from only";
}

TEST_F(HostInterfaces, AnEntryIsPutIntoFormWhenItIsAcceptedNotWhenItIsChecked)
{
    addDriver().sampleRange = {1e-6, 1};
    open();
    type(page().txtSampleRate, "5e2");
    bool allowed = false;
    document->state().OKToLeave(allowed);
    EXPECT_TRUE(allowed);
    EXPECT_EQ(page().txtSampleRate.text(), "5e2");
    document->menu().OnCommand(command::acceptEntry);
    EXPECT_EQ(page().txtSampleRate.text(), "500");
}

TEST_F(HostInterfaces, TheClientSiteGivesItsViewsAndKeepsWhatItCannotReplace)
{
    document->menu().OnCommand(command::help);
    EXPECT_TRUE(host.topics.empty());
    document->mode().setClientSite(host.site());
    host.offersStatus = false;
    document->mode().setClientSite(host.site());
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:IKopMode_ClientSite 13: Type mismatch"});
    EXPECT_TRUE(page().statusSite);
    document->mode().setClientSite(nullptr);
    EXPECT_FALSE(page().statusSite);
    EXPECT_FALSE(shared.dialogs.setDateTime().IHelp);
}

TEST_F(HostInterfaces, ReadOnlyFollowsAtOnceWhileShownAndWritesNothing)
{
    FakeDriver& driver = addDriver();
    document->mode().setReadOnly(true);
    EXPECT_TRUE(page().frmStart.enabled()) << "an empty page only stores the flag";
    document->mode().setReadOnly(false);
    open();
    driver.writes.clear();
    const int changes = host.changes;
    ASSERT_TRUE(page().moveFocus(&page().txtDuration));
    document->mode().setReadOnly(true);
    for (const Control* control : std::initializer_list<Control*>{&page().frmStart, &page().frmStop, &page().frmStatic,
                                                                  &page().frmDynamic, &page().optAfter})
        EXPECT_FALSE(control->enabled()) << control->name();
    EXPECT_EQ(page().activeControl(), nullptr);
    EXPECT_EQ(page().editFlags, 0);
    EXPECT_EQ(host.changes, changes);
    document->UserDocument_Hide();
    document->UserDocument_Show();
    EXPECT_EQ(page().activeControl(), nullptr) << "a read-only page does not take the focus";
    document->mode().setReadOnly(false);
    EXPECT_TRUE(page().frmStart.enabled());
    EXPECT_FALSE(page().isLoading);
}

TEST_F(HostInterfaces, PrintingUsesTheNamedPrinterAndItsSixSettings)
{
    const DeviceMode mode{2, 1, 3, 2, 1, 600};
    document->print().DefaultPrint("Second", mode);
    EXPECT_EQ(host.printing, (Texts{"current 1", "copies 2", "color 1", "duplex 3", "orientation 2", "paper 1",
                                    "quality 600", "print TimebaseEditor", "end"}));
    host.printing.clear();
    host.printerFails = true;
    document->print().DefaultPrint("second", mode);
    EXPECT_EQ(host.printing, (Texts{"print TimebaseEditor", "end"})) << "names are compared exactly";
    EXPECT_EQ(host.takeReports().size(), 6U);
    document->print().setPrintMode(7);
    EXPECT_EQ(document->print().PrintMode(), 7);
    std::string description;
    document->print().GetPrintModeDescription(description);
    EXPECT_EQ(description, "Timebase Editor");
}

} // namespace
} // namespace ko::test
