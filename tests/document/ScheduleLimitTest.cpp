#include "ScheduleFixture.h"

namespace ko::test {
namespace {

TEST_F(ScheduleTest, EveryFigureFollowsAnAcceptedChangeAndAnUndoneOneLeavesThemTrue)
{
    addDriver(2).numberOfScans = 31;
    fakes[0]->groups = {{"Inputs", {{}, {}}}};
    FakeDriver& dynamic = addDriver();
    dynamic.samplePeriod = 0.5;
    dynamic.blockSize = 8;
    dynamic.sampleRange = {0.001, 10};
    dynamic.bytes = [](const FakeDriver& it) { return it.duration / it.samplePeriod > 1000 ? 3e9 : 1536.0; };
    open();
    EXPECT_EQ(page().lblNumSamplesValue.caption(), "24");
    EXPECT_EQ(page().lblNumDynamicBytesValue.caption(), "1.5 KB");
    EXPECT_EQ(page().lblNumScansValue.caption(), "31");
    EXPECT_EQ(page().lblNumStaticBytesValue.caption(), "1.1 KB");
    EXPECT_EQ(page().lblDurationValue.caption(), "11.5 seconds");
    EXPECT_FALSE(page().lblStopTime.visible());

    type(page().txtSamplePeriod, "0.25");
    EXPECT_EQ(page().lblNumSamplesValue.caption(), "40");
    EXPECT_EQ(page().lblDurationValue.caption(), "9.75 seconds");
    page().txtSamplePeriod.userReplaced("0.001", 0, 0);
    EXPECT_EQ(host.takeMessages(), Texts{tooLarge});
    EXPECT_EQ(page().txtSamplePeriod.text(), "0.25");
    EXPECT_EQ(page().lblDurationValue.caption(), "9.75 seconds");

    start(1).userClicked();
    stop(1).userClicked();
    EXPECT_EQ(page().lblStopTimeValue.caption(), "9:30:10 AM");
    dynamic.samplePeriod = 1e-9; // more samples than a 32-bit integer holds
    EXPECT_GT(page().lblNumDynamicBytesValue.share(), 0.0);
    dynamic.bytes = nullptr;
    stop(0).userClicked();
    EXPECT_EQ(page().lblNumSamplesValue.caption(), "N/A");
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:updateDiskSpace 6: Overflow"});
}

TEST_F(ScheduleTest, ARefusedOptionOrTimeComesBackWithEverythingThatWentWithIt)
{
    openTwo(1, 1);
    page().txtDuration.setText("3000"); // what a stop after a duration would take; programmatic changes are ignored
    EXPECT_EQ(fakes[0]->duration, 10);
    for (OptionButton* option : {&start(0), &start(2), &stop(0)}) {
        option->userClicked();
        EXPECT_EQ(host.takeMessages(), Texts{tooLarge}) << option->name();
        expectEverywhere("1 1 8:00:00 AM 10");
        EXPECT_TRUE(page().txtStopTime.enabled());
    }
    const std::string before = shown();
    host.changes = 0;
    for (CommandButton* button : {&page().cmdStartTime, &page().cmdStopTime}) {
        pickTime(*button, {0, 0, 0, button == &page().cmdStopTime ? 11 : 7, 0, 0}, false);
        EXPECT_EQ(host.takeMessages(), Texts{tooLarge}) << button->name();
        expectEverywhere("1 1 8:00:00 AM 10");
        EXPECT_EQ(shown(), before);
    }
    EXPECT_EQ(host.changes, 0);
}

TEST_F(ScheduleTest, ASetUpBeyondTheLimitOpensSilentlyAndCanBeBroughtBack)
{
    openTwo(0, 0, "8:00:00 AM", 5000);
    EXPECT_EQ(page().lblNumSamplesValue.caption(), "N/A");
    page().cmbInterval.userChose(1);
    EXPECT_EQ(host.takeMessages(), Texts{});
    page().cmbInterval.userChose(0);
    EXPECT_EQ(held()[1], "0 0 8:00:00 AM 1.388889");
    type(page().txtDuration, "500");
    EXPECT_EQ(fakes[1]->duration, 500);
    EXPECT_EQ(page().lblNumSamplesValue.caption(), "500736");
}

TEST_F(ScheduleTest, AnOldValueThatCouldNotBeReadIsNeverWritten)
{
    openTwo();
    fakes[1]->failing = {"Duration"};
    replace(page().txtDuration, "2000");
    EXPECT_EQ(host.takeMessages(), Texts{tooLarge});
    EXPECT_EQ(fakes[0]->writes, (Texts{"setDuration 2000.0", "setDuration 10.0"}));
    EXPECT_EQ(fakes[1]->writes, Texts{"setDuration 2000.0"});
    EXPECT_EQ(host.takeReports(), Texts(2, "KoTimebaseEditor:txtDuration_Change 1000: Duration failed"));
    EXPECT_EQ(page().txtDuration.text(), "10");
    fakes[1]->failing = {};
    fakes[1]->duration = 20;
    page().txtDuration.userReplaced("2000", 0, 0);
    EXPECT_EQ(host.takeMessages(), Texts{tooLarge});
    EXPECT_EQ(held(), (Texts{"0 0 8:00:00 AM 10", "0 0 8:00:00 AM 20"})) << "each driver gets its own value back";
}

TEST_F(ScheduleTest, WithoutATimebaseAnUndoReturnsToWhatWasLastAccepted)
{
    openTwo();
    for (const auto& driver : fakes)
        driver->hasTimebase = false;
    document->UserDocument_Hide();
    document->UserDocument_Show();
    type(page().txtDuration, "12");
    start(1).userClicked();
    fakes[0]->bytes = [](const FakeDriver&) { return 3e9; };
    replace(page().txtDuration, "1e3");
    pickTime(page().cmdStartTime, {2026, 11, 22, 0, 0, 0});
    EXPECT_EQ(host.takeMessages(), (Texts{tooLarge, tooLarge}));
    EXPECT_EQ(page().txtDuration.text(), "12");
    EXPECT_EQ(page().txtStartTime.text(), "9:30:00 AM");
    for (const auto& driver : fakes)
        EXPECT_EQ(driver->writes, Texts{});
}

} // namespace
} // namespace ko::test
