#include "fakes/DocumentTest.h"

#include "platform/DateTimes.h"
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
        scanner.scans = [](const FakeDriver& it) { return toLong(std::floor(it.duration / it.scanPeriod) + 1); };
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
    EXPECT_EQ(lastHint(), "  The 2 GB limit allows: duration up to 524 seconds or Sample Rate (Sa/s) "
                          "up to 52428.");
    EXPECT_EQ("  " + page().lblWhatFits.caption(), lastHint());
    EXPECT_EQ(page().cmdTakeRate.tag(), page().lblWhatFits.caption());
    const std::string scans = page().lblNumScansValue.caption();
    refuse(page().txtScanPeriod, "1e-9");
    EXPECT_EQ(page().lblNumScansValue.caption(), scans);
    EXPECT_EQ(lastHint(), "  The 2 GB limit allows: duration up to 524 seconds or Scan Rate (Sc/s) up "
                          "to 53687075.");
    EXPECT_EQ(host.takeReports(), Texts());
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
    EXPECT_EQ(sampler.duration, 268435.0F);
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
    EXPECT_EQ(page().cmbInterval.index(), 1);
    refuse(page().txtDuration, "9");
    sampler.writes.clear();
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(page().cmbInterval.index(), 0);
    EXPECT_EQ(page().txtDuration.text(), "524");
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
    refuse(page().txtSamplePeriod, "1e-6");
    EXPECT_TRUE(page().lblWhatFits.caption().find("stop up to 11/22/2026 8:08:44 AM") != std::string::npos)
        << page().lblWhatFits.caption();
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(page().txtStopTime.text(), "11/22/2026 8:08:44 AM");
    EXPECT_EQ(sampler.duration, 524);
    EXPECT_TRUE(page().optStopTime.value());
}

TEST_F(WhatFitsTest, WhereNothingFitsThatIsSaidAndNothingIsOffered)
{
    // A single block exceeds the limit.
    sampler.blockSize = 1e6;
    sampler.bytes = [](const FakeDriver& it) {
        return 416 + 4096 * std::ceil(it.duration / it.samplePeriod / 1e6) * 1e6;
    };
    open();
    refuse(page().txtDuration, "5");
    EXPECT_EQ(page().lblWhatFits.caption(), "The 2 GB limit allows: no duration or no value of Sample Rate (Sa/s).");
    EXPECT_FALSE(page().cmdTakeDuration.visible() || page().cmdTakeRate.visible());
    document->mode().setReadOnly(true);
    EXPECT_FALSE(page().lblWhatFits.visible());
}

TEST_F(WhatFitsTest, ADriverThatKeepsAnotherValueIsRefusedAsUsual)
{
    open();
    refuse(page().txtDuration, "1e9");
    sampler.keepsDuration = [](float seconds) { return seconds * 2; };
    EXPECT_EQ(page().cmdTakeDuration.userClicked(), Outcome::Done);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_TRUE(page().lblWhatFits.visible());
}

} // namespace
} // namespace ko::test
