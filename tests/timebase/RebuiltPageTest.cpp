#include "fakes/DocumentTest.h"

namespace ko::test {
namespace {

class RebuiltPage : public DocumentTest {};

TEST_F(RebuiltPage, ARefusedTextAndItsMarkAreGone)
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

TEST_F(RebuiltPage, AScanPeriodThatIsNoneIsNotGivenToTheOtherDrivers)
{
    addRanges(2).scanPeriod = 0;
    FakeDriver& other = addRanges(2);
    other.scanPeriod = 0.5;
    open();
    EXPECT_EQ(other.scanPeriod, 0.5);
    host.takeReports();
}

TEST_F(RebuiltPage, TheOnlyDriverTellsThePeriodThatABoxReturnsTo)
{
    FakeDriver& driver = addRanges(2);
    open();
    driver.writes.clear();
    replace(page().txtScanPeriod, "x");
    EXPECT_FALSE(page().moveFocus(&page().optImmediate));
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(page().txtScanPeriod.text(), "0.1");
    EXPECT_EQ(driver.writes, Texts());
}

TEST_F(RebuiltPage, ADriverThatTookAnothersPlaceUnderTheCursorGetsItsOwnPeriodBack)
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

} // namespace
} // namespace ko::test
