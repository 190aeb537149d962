#include "fakes/DocumentTest.h"

#include <cmath>

namespace ko::test {
namespace {

/// A shown value represents the drivers' exact values, even if they round.
class HeldValues : public DocumentTest {
protected:
    static std::function<double(double)> nearest(double a, double b)
    {
        return [a, b](double value) { return std::abs(value - a) <= std::abs(value - b) ? a : b; };
    }
    void walk(std::initializer_list<TextBox*> boxes)
    {
        for (TextBox* box : boxes)
            EXPECT_TRUE(page().moveFocus(box)) << box->name();
        EXPECT_TRUE(page().moveFocus(nullptr));
    }
};

TEST_F(HeldValues, AKeptPeriodSelectsTheEntryThatItIsCloseToOrReadsAs)
{
    const std::pair<double, double> offeredAndKept[] = {{1e-5, 1e-5 + 5e-13}, {3600.1, 3600.1 + 2e-12}};
    FakeDriver& driver = addDriver();
    for (const auto& [offered, kept] : offeredAndKept) {
        driver.sampleChoices = {0.5, offered, 0.7};
        driver.keeps = [kept = kept](double value) { return value == 0.5 ? 0.5 : kept; };
        open();
        for (const std::int32_t entry : {0, 2})
            page().cmbSamplePeriod.userChose(entry);
        EXPECT_EQ(page().cmbSampleRate.index(), 1) << offered;
        EXPECT_EQ(page().cmbSamplePeriod.index(), 1) << offered;
    }
    driver.keeps = [](double) { return 0.5; };
    page().cmbSampleRate.userChose(2);
    EXPECT_EQ(page().cmbSampleRate.index(), 0) << "back where the driver stays";
    driver.keeps = [](double) { return 0.1234; };
    page().cmbSampleRate.userChose(2);
    EXPECT_EQ(page().cmbSampleRate.index(), 2) << "no entry of its own: stays where chosen";
}

TEST_F(HeldValues, DriversThatRoundDifferentlyAreLeftAloneByAWalk)
{
    addDriver(2).keeps = nearest(0.1, 0.2);
    addDriver(2).keeps = nearest(0.3, 0.4);
    open();
    replace(page().txtScanPeriod, "0.25");
    EXPECT_EQ(page().txtScanPeriod.text(), "0.3");
    EXPECT_EQ(page().txtScanRate.text(), "3.33333333333333");
    for (const auto& driver : fakes)
        driver->writes.clear();
    const int changes = host.changes;
    walk({&page().txtScanRate, &page().txtScanPeriod});
    EXPECT_EQ(page().txtScanPeriod.text(), "0.3");
    EXPECT_EQ(page().txtScanRate.text(), "3.33333333333333");
    EXPECT_EQ(fakes[0]->writes, Texts());
    EXPECT_EQ(fakes[1]->writes, Texts());
    EXPECT_EQ(host.changes, changes);
}

TEST_F(HeldValues, ABoxShownOutOfBoundsCanBeLeftAndWritesNothing)
{
    FakeDriver& driver = addDriver();
    driver.blockRange = {4, 64};
    driver.blockSize = 8;
    driver.sampleRange = {0.001, 1};
    FakeDriver& other = addDriver();
    other.blockRange = {16, 64};
    other.sampleRange = {0.01, 1};
    open();
    EXPECT_EQ(page().txtBlockSize.text(), "16");
    walk({&page().txtSamplePeriod, &page().txtSampleRate, &page().txtBlockSize});
    EXPECT_EQ(driver.blockSize, 8);
    EXPECT_EQ(driver.samplePeriod, 0.001);
    replace(page().txtSamplePeriod, "0.5");
    page().txtSamplePeriod.userReplaced("1.", 0, 0);
    walk({&page().txtBlockSize});
    EXPECT_EQ(page().txtSamplePeriod.text(), "1");
}

TEST_F(HeldValues, APeriodThatIsTakenBackAsAnotherIsShown)
{
    FakeDriver& driver = addDriver();
    driver.samplePeriod = 0.16;
    driver.sampleChoices = {0.1, 0.2};
    driver.keeps = nearest(0.1, 0.2);
    driver.bytes = [](const FakeDriver& it) { return it.samplePeriod == 0.1 ? 3e9 : 416; };
    open();
    page().cmbSampleRate.userChose(0);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(page().lblSpanValue.caption(), "1.953125 Hz");
    EXPECT_EQ(page().cmbSampleRate.index(), 1);
    EXPECT_EQ(page().cmbSamplePeriod.index(), 1);
}

TEST_F(HeldValues, OfARebuiltPageShowNoRefusedTextAndNoMark)
{
    addRanges();
    addRanges(2);
    open();
    for (TextBox* box : {&page().txtSampleRate, &page().txtBlockSize, &page().txtScanPeriod}) {
        const std::string inForce = box->text();
        type(*box, "x");
        EXPECT_TRUE(box->marked()) << box->name();
        document->UserDocument_Show();
        EXPECT_FALSE(box->marked()) << box->name();
        EXPECT_EQ(box->text(), inForce);
        host.takeMessages();
    }
}

TEST_F(HeldValues, AScanPeriodThatIsNoneIsNotGivenToTheOtherDrivers)
{
    addRanges(2).scanPeriod = 0;
    FakeDriver& other = addRanges(2);
    other.scanPeriod = 0.5;
    open();
    EXPECT_EQ(other.scanPeriod, 0.5);
    host.takeReports();
}

TEST_F(HeldValues, ADriverThatTookAnothersPlaceUnderTheCursorGetsItsOwnPeriodBack)
{
    addRanges();
    open();
    ASSERT_TRUE(page().moveFocus(&page().txtSamplePeriod));
    fakes.clear();
    FakeDriver& next = addRanges();
    next.samplePeriod = 0.25;
    next.bytes = [](const FakeDriver& it) { return it.samplePeriod == 0.5 ? 3e9 : 1000.0; };
    page().drivers = {fakes[0]};
    page().txtSamplePeriod.userReplaced("0.5", 0, 0);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(next.samplePeriod, 0.25);
}

TEST_F(HeldValues, WhatDriversMakeOfTheLoadedScanPeriodIsShown)
{
    FakeDriver& driver = addDriver(2);
    driver.scanPeriod = 0.15;
    driver.scanRange = {0.2, 2};
    driver.keeps = nearest(0.2, 2);
    open();
    EXPECT_EQ(page().txtScanPeriod.text(), "0.2");
    EXPECT_EQ(page().txtScanRate.text(), "5");
    driver.scanChoices = {0.2, 2};
    driver.scanPeriod = 1.9;
    handOver();
    EXPECT_EQ(page().cmbScanPeriod.index(), 1);
}

} // namespace
} // namespace ko::test
