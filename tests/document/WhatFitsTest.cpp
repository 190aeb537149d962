#include "fakes/DocumentTest.h"

#include "platform/Counts.h"
#include "platform/NumberText.h"

#include <cmath>

namespace ko::test {
namespace {

class WhatFitsTest : public DocumentTest {
protected:
    FakeDriver& sampler = addDriver();
    FakeDriver& scanner = addDriver(2);

    WhatFitsTest()
    {
        sampler.bytes = [](const FakeDriver& it) { return 416 + 4096.0 * it.duration / it.samplePeriod; };
        sampler.blockSize = 1;
        scanner.groups = {{"In", {{}}}};
        scanner.numberOfScans = 101;
        scanner.scans = [](const FakeDriver& it) { return toLong(scansIn(widen(it.duration), it.scanPeriod)); };
        sampler.sampleRange = scanner.sampleRange = {1e-6, 10};
        sampler.scanRange = scanner.scanRange = {1e-9, 10};
        host.time = toDateTime("11/21/2026 9:30:00 AM", {});
    }
    void refuse(TextBox& box, const char* text)
    {
        replace(box, text);
        EXPECT_EQ(host.takeMessages().size(), 1U) << text;
    }
    std::string lastHint() { return host.hints.empty() ? "" : host.hints.back(); }
};

TEST_F(WhatFitsTest, IsShownInTheHintLineAndLeavesTheMessageUnchanged)
{
    open();
    document->mode().setClientSite(host.site());
    refuse(page().txtDuration, "1e9");
    EXPECT_EQ(lastHint(), "  The 2 GB limit allows: up to 8 min 44 s at 1000 Sa/s.");
    EXPECT_EQ("  " + page().lblWhatFits.caption(), lastHint());
    EXPECT_EQ(page().cmdTakeDuration.tag(), page().lblWhatFits.caption());
    EXPECT_EQ(page().cmdTakeDuration.caption(), "Set 8 min 44 s");
    const std::string scans = page().lblNumScansValue.caption();
    refuse(page().txtScanPeriod, "1e-9");
    EXPECT_EQ(page().lblNumScansValue.caption(), scans);
    EXPECT_EQ(lastHint(), "  The 2 GB limit allows: up to 0.5 s at 1000000000 Sc/s or 10 s at up to 53687074 Sc/s.");
    EXPECT_EQ(page().cmdTakeDuration.caption(), "Set 0.5 s and 1000000000 Sc/s");
    type(page().txtDuration, "9");
    EXPECT_FALSE(page().lblWhatFits.visible() || page().cmdTakeDuration.visible() || page().cmdTakeRate.visible());
    EXPECT_EQ(page().lblWhatFits.caption(), "");
}

TEST_F(WhatFitsTest, BeforeAnyRecordingTheSampleSizeFollowsFromTheChannels)
{
    sampler.groups = {{"In", {{}, {}}}};
    sampler.bytes = [](const FakeDriver& it) { return 416 + 8.0 * it.duration / it.samplePeriod; };
    sampler.duration = scanner.duration = 0;
    sampler.blockSize = 0;
    open();
    refuse(page().txtDuration, "1e9");
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(sampler.duration, 74 * 3600.0F);
    EXPECT_EQ(page().txtDuration.text() + " " + page().cmbInterval.text(), "74 hours");
}

TEST_F(WhatFitsTest, ARateBelowOneAndTheFirstOfAListAreOfferedToo)
{
    sampler.bytes = [](const FakeDriver& it) { return 416 + 1e9 * it.duration / it.samplePeriod; };
    sampler.samplePeriod = 10;
    sampler.sampleRange = scanner.sampleRange = {};
    open();
    refuse(page().txtSampleRate, "100");
    EXPECT_EQ(page().cmdTakeRate.userClicked(), Outcome::Done);
    EXPECT_EQ(sampler.samplePeriod, 1 / 0.2);
    sampler.sampleChoices = {5, 1e-6};
    handOver();
    page().cmbSampleRate.userChose(1);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    sampler.writes.clear();
    EXPECT_EQ(page().cmdTakeRate.userClicked(), Outcome::Done);
    EXPECT_EQ(sampler.writes, Texts{"setSamplePeriod 5.0"});
}

TEST_F(WhatFitsTest, AnotherUnitIsEnteredTogetherWithTheNumberInOneWrite)
{
    sampler.duration = scanner.duration = 120;
    open();
    refuse(page().txtDuration, "9");
    sampler.writes.clear();
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(page().txtDuration.text() + " " + page().cmbInterval.text(), "524 seconds");
    EXPECT_EQ(sampler.writes, Texts{"setDuration 524.0"});
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Inert);
}

TEST_F(WhatFitsTest, AStopAtATimeIsOfferedAsATime)
{
    sampler.startMode = scanner.startMode = 1;
    sampler.stopMode = scanner.stopMode = 1;
    sampler.startTime = scanner.startTime = toDateTime("11/22/2026 8:00:00 AM", {});
    sampler.duration = scanner.duration = 120; // its unit plays no part
    open();
    refuse(page().txtSampleRate, "100000");
    EXPECT_EQ(page().lblWhatFits.caption(), "The 2 GB limit allows: a stop by 11/22/2026 8:00:05 AM at 100000 Sa/s or "
                                            "2 min at up to 4369 Sa/s.");
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(page().txtStopTime.text() + " " + page().txtSampleRate.text(), "11/22/2026 8:00:05 AM 100000");
    EXPECT_EQ(sampler.duration, 5);
    EXPECT_TRUE(page().optStopTime.value());
}

TEST_F(WhatFitsTest, WhereNothingFitsThatIsSaidAndNothingIsOffered)
{
    // A single block exceeds the limit.
    sampler.blockSize = 1e6;
    sampler.bytes = [](const FakeDriver& it) {
        return 416 + 4096 * roundedUp(widen(it.duration) / it.samplePeriod / 1e6) * 1e6;
    };
    open();
    refuse(page().txtDuration, "5");
    const std::string nothing = "No duration and no rate is known that the 2 GB limit allows.";
    EXPECT_EQ(page().lblWhatFits.caption(), nothing);
    EXPECT_FALSE(page().cmdTakeDuration.visible() || page().cmdTakeRate.visible());
    document->mode().setReadOnly(true);
    EXPECT_EQ(page().lblWhatFits.caption(), "The settings exceed the 2 GB limit. " + nothing);
}

TEST_F(WhatFitsTest, TheWantedDurationIsAnsweredWithARateThatTheDriverOffers)
{
    sampler.sampleRange = scanner.sampleRange = {};
    scanner.numberOfScans = 10;
    scanner.scans = nullptr;
    for (const double rate : {10, 100, 200, 1000, 10000})
        sampler.sampleChoices.push_back(1 / rate);
    open();
    refuse(page().txtDuration, "2700");
    EXPECT_EQ(page().lblWhatFits.caption(),
              "The 2 GB limit allows: 45 min at up to 100 Sa/s or up to 8 min 44 s at 1000 Sa/s.");
    EXPECT_EQ(page().cmdTakeRate.caption(), "Set 45 min and 100 Sa/s");
    sampler.writes.clear();
    EXPECT_EQ(page().cmdTakeRate.userClicked(), Outcome::Done);
    EXPECT_EQ(sampler.writes, (Texts{"setSamplePeriod 0.01", "setDuration 2700.0"}));
    EXPECT_FALSE(page().lblWhatFits.visible());
    EXPECT_EQ(page().txtDuration.text() + " " + page().cmbInterval.text(), "45 minutes");
}

TEST_F(WhatFitsTest, WhereTheOtherDriversAreTooLargeTheRateIsOfferedForAll)
{
    FakeDriver& other = addDriver();
    other.bytes = sampler.bytes;
    other.blockSize = 1;
    other.sampleRange = {1e-6, 10};
    open();
    refuse(page().txtDuration, "2000");
    EXPECT_EQ(page().lblWhatFits.caption(),
              "The 2 GB limit allows: 33 min 20 s at up to 131 Sa/s for all instruments or "
              "up to 4 min 22 s at 1000 Sa/s.");
    EXPECT_EQ(page().cmdTakeRate.userClicked(), Outcome::Done);
    EXPECT_EQ(sampler.duration, 2000);
    EXPECT_EQ(other.samplePeriod, 1.0 / 131);
    EXPECT_EQ(page().txtSampleRate.text(), "131");
}

TEST_F(WhatFitsTest, AFigureThatDoesNotFollowTheSettingsIsNeverForecast)
{
    const auto growing = sampler.bytes;
    sampler.failing = {"DynamicBytes"};
    open();
    EXPECT_FALSE(page().lblWhatFits.visible()) << "nothing is known of a figure that fails";
    sampler.failing.clear();
    sampler.bytes = [](const FakeDriver&) { return 3e9; };
    refuse(page().txtDuration, "9");
    EXPECT_TRUE(page().lblWhatFits.visible() && !page().cmdTakeDuration.visible() && !page().cmdTakeRate.visible());
    sampler.bytes = [](const FakeDriver& it) { return it.duration > 10 ? 3e9 : 1e6; };
    handOver();
    refuse(page().txtDuration, "20");
    EXPECT_FALSE(page().cmdTakeDuration.visible() || page().cmdTakeRate.visible()) << page().lblWhatFits.caption();
    sampler.bytes = growing;
    scanner.scans = nullptr;
    sampler.groups = {{"In", std::vector<FakeDriver::Channel>(64)}};
    // Neither the wanted rate nor the duration that it allows fits alone, or the rate only after the duration.
    for (const auto& [rate, seconds] : {std::pair("600", 873.0F), {"2000", 262.0F}}) {
        document->UserDocument_Hide();
        sampler.samplePeriod = 0.001;
        sampler.duration = scanner.duration = 1000;
        handOver();
        document->UserDocument_Show();
        EXPECT_EQ(page().lblWhatFits.caption(), "The settings exceed the 2 GB limit. The 2 GB limit allows: 16 min "
                                                "40 s at up to 524 Sa/s or up to 8 min 44 s at 1000 Sa/s.");
        refuse(page().txtSampleRate, rate);
        EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
        EXPECT_TRUE(sampler.duration == seconds && page().txtSampleRate.text() == rate) << sampler.duration;
        EXPECT_FALSE(page().lblWhatFits.visible());
    }
}

TEST_F(WhatFitsTest, ADriverThatKeepsAnotherValueIsRefusedAsUsual)
{
    open();
    refuse(page().txtDuration, "1e9");
    sampler.keepsDuration = [](float seconds) { return seconds * 2; };
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_TRUE(page().lblWhatFits.visible());
    fakes.clear();
    handOver();
    EXPECT_FALSE(page().lblWhatFits.visible() || page().cmdTakeDuration.visible()) << "without a driver";
}

} // namespace
} // namespace ko::test
