#include "fakes/DocumentTest.h"

#include <limits>

namespace ko::test {
namespace {

class Initialization : public DocumentTest {
protected:
    static void setSchedule(FakeDriver& driver, std::int32_t start, double time, std::int32_t stop, float duration)
    {
        driver.startMode = start;
        driver.startTime = {time};
        driver.stopMode = stop;
        driver.duration = duration;
    }
    Texts writesOf(FakeDriver& driver) { return std::exchange(driver.writes, {}); }
};

TEST_F(Initialization, TheFirstDriverOfEachKindIsShown)
{
    addDriver(2).hasTimebase = false;
    FakeDriver& still = addDriver(2);
    addDriver().samplePeriod = 0.004;
    FakeDriver& other = addDriver();
    other.measurementMode = 2;
    still.scanPeriod = 0.5;
    open();
    EXPECT_EQ(page().staticDriverIndex, 0) << "also one without a timebase";
    EXPECT_EQ(page().txtSampleRate.text(), "250");
    EXPECT_EQ(page().txtScanPeriod.text(), "0.5") << "of the first static driver that has a timebase";
    EXPECT_EQ(other.scanPeriod, 0.5);
    still.hasTimebase = other.hasTimebase = false;
    fakes[0]->numberOfScans = 77;
    document->UserDocument_Show();
    EXPECT_EQ(page().lblNumScansValue.caption(), "77") << "not those of the dynamic driver with a timebase";
    for (const auto& driver : fakes)
        driver->failing = {"MeasurementMode"};
    document->UserDocument_Show();
    EXPECT_TRUE(page().dynamicDriverIndex == -1 && page().staticDriverIndex == -1) << "none tells what it is";
    EXPECT_FALSE(host.takeReports().empty());
}

TEST_F(Initialization, TheMastersAreFoundBeforeTheEditorsAreFilled)
{
    addDriver().scanRank = 5;
    addDriver(2).scanPeriod = 0.5;
    addDriver().startRank = 9;
    fakes[2]->samplePeriod = 0.25;
    open();
    EXPECT_EQ(page().txtScanPeriod.text(), "0.1") << "of a driver of any kind";
    EXPECT_EQ(page().txtSamplePeriod.text(), "0.25");
}

TEST_F(Initialization, AListHandedToAnEditablePageKeepsThePagesSettingsAndAnyOtherBringsItsOwn)
{
    const struct {
        const char* when;
        bool isShown, isReadOnly, isAnnounced;
        float duration;
    } cases[] = {
        {"editable", true, false, true, 30},          {"editable, not announced", true, false, false, 30},
        {"hidden", false, false, true, 70},           {"hidden, not announced", false, false, false, 70},
        {"read-only", true, true, true, 70},          {"read-only, not announced", true, true, false, 70},
        {"read-only, hidden", false, true, true, 70},
    };
    for (const auto& it : cases) {
        document = makeDocument(shared, host);
        fakes.clear();
        setSchedule(addDriver(), 0, 0, 0, 30);
        open();
        document->mode().setReadOnly(it.isReadOnly);
        if (!it.isShown)
            document->UserDocument_Hide();
        fakes.clear();
        setSchedule(addDriver(), 1, 0.5, 0, 70);
        document->drivers().setDrivers({fakes[0]});
        if (it.isAnnounced)
            document->drivers().DriversHaveChanged();
        document->UserDocument_Show();
        document->mode().setReadOnly(false);
        EXPECT_EQ(fakes[0]->duration, it.duration) << it.when;
        EXPECT_EQ(fakes[0]->startMode, it.duration == 70 ? 1 : 0) << it.when;
        EXPECT_EQ(page().txtStartTime.text(), it.duration == 70 ? "12:00:00 PM" : "") << it.when;
    }
}

TEST_F(Initialization, SettingsThatWereNeverReadAreNeverWritten)
{
    setSchedule(addDriver(), 1, 0.25, 1, 45);
    document->UserDocument_Show();
    document->drivers().DriversHaveChanged();
    EXPECT_FALSE(page().triggerVars);
    document->drivers().setNumberOfDrivers(1);
    document->drivers().setDrivers({fakes[0]});
    EXPECT_EQ(fakes[0]->duration, 45);
    EXPECT_TRUE(page().triggerVars);
}

TEST_F(Initialization, SettingsAreCapturedWholeFromOneDriver)
{
    setSchedule(addDriver(), 0, 0, 0, 11);
    setSchedule(addDriver(), 1, 0.25, 0, 22);
    fakes[0]->failing = {"Duration"};
    open();
    host.takeReports();
    EXPECT_EQ(page().triggerVars, (TriggerVars{1, {0.25}, 0, 22}));
    EXPECT_EQ(writesOf(*fakes[0]), (Texts{"setStartMode 0", "setStopMode 0"})) << "nothing of the other driver's";
    fakes[0]->failing.clear();
    setSchedule(*fakes[0], 1, 0.5, 0, 33);
    fakes[1]->writes.clear();
    document->UserDocument_Show();
    EXPECT_EQ(page().triggerVars, (TriggerVars{1, {0.5}, 0, 33}));
    EXPECT_EQ(writesOf(*fakes[1]), (Texts{"setStartMode 1", "setStartTime 0.5", "setStopMode 0", "setDuration 33.0"}))
        << "in this order";
}

TEST_F(Initialization, AStaticListNeverStartsOnATrigger)
{
    setSchedule(addDriver(2), 2, 0, 0, 10);
    open();
    EXPECT_EQ(fakes[0]->startMode, 0);
    EXPECT_TRUE(page().optImmediate.value());
    EXPECT_FALSE(page().frmDynamic.visible());
}

TEST_F(Initialization, FailuresAreReportedUnderTheProcedureAndTheRestIsLoaded)
{
    FakeDriver& driver = addDriver();
    driver.failing = {"SamplePeriod", "StopMode"};
    driver.blockRange = {16, 4096};
    open();
    EXPECT_EQ(page().txtSampleRate.text(), "");
    EXPECT_EQ(page().lblSpanValue.caption(), "");
    EXPECT_EQ(page().txtBlockSize.text(), "1024");
    EXPECT_EQ(page().txtDuration.text(), "10");
    EXPECT_TRUE(document->drivers().HasProcessedDriverChanges());
    EXPECT_EQ(host.takeReports(), (Texts{"KoTimebaseEditor:initializeDocument 1000: SamplePeriod failed",
                                         "KoTimebaseEditor:applyStartStop 1000: StopMode failed",
                                         "KoTimebaseEditor:initializeDocument 1000: StopMode failed",
                                         "KoTimebaseEditor:updateDiskSpace 1000: SamplePeriod failed"}));
}

TEST_F(Initialization, BytesAreSummedPerKindAndWhatFailsIsLeftOut)
{
    FakeDriver& still = addDriver(2);
    still.groups = {{"A", {{}, {}, {}, {}}}, {"B", {{}}}};
    still.groups[0].channels[3].enabled = 0;
    still.groups[1].channels[0].enabled = false;
    still.numberOfScans = 1000;
    EXPECT_EQ(staticDriverBytes(still), 13106);
    addDriver(2).numberOfScans = std::numeric_limits<std::int32_t>::max();
    addDriver(2);
    addDriver().dynamicBytes = 1e10;
    addDriver().failing = {"DynamicBytes"};
    const DriverList list(fakes.begin(), fakes.end());
    const ByteTotals totals = sumDriverBytes(list);
    EXPECT_EQ(totals.staticBytes, 13106 + 416);
    EXPECT_EQ(totals.dynamicBytes, 1e10);
    still.groups[1].channels[0].enabled = Value();
    EXPECT_EQ(countEnabledChannels(still), 4) << "an empty value is not integer 0";
}

TEST_F(Initialization, ChannelsAreDescribedByNameOrAddress)
{
    FakeDriver& driver = addDriver();
    driver.name = "Digitizer";
    driver.groups = {{"Inputs", {{"1:2:3", "Crank"}, {"1:2:3", ""}, {"2:3", ""}, {"odd", ""}}}};
    const auto describe = [&](std::int32_t group, std::int32_t channel, bool raw = false) {
        return describeChannel(&driver, group, channel, raw, shared.support.strings, {});
    };
    EXPECT_EQ(describeChannel(nullptr, 0, 0, false, shared.support.strings, {}), "");
    EXPECT_EQ(describe(-1, -1), "Digitizer");
    EXPECT_EQ(describe(0, -1), "Digitizer - Inputs");
    EXPECT_EQ(describe(0, 0), "Crank");
    EXPECT_EQ(describe(0, 1), "Mainframe: 1 Slot: 2 Channel: 3");
    EXPECT_EQ(describe(0, 2), "Slot: 2 Channel: 3");
    EXPECT_EQ(describe(0, 1, true), "1:2:3");
    EXPECT_EQ(describe(0, 3), "odd");
    driver.failing = {"GroupName"};
    EXPECT_EQ(describe(0, -1), "Digitizer - trigger Inputs");
}

} // namespace
} // namespace ko::test
