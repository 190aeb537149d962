#include "fakes/DocumentTest.h"
#include "page/Quantities.h"

namespace ko::test {
namespace {

const std::string dynamicLimit =
    "Error: Total required disk space for dynamic measurements can never exceed the maximum file size of 2 Gb "
    "regardless of available disk space. Reduce the duration or sample rate. (48)";
const std::string staticLimit =
    "Error: Total required disk space for static measurements can never exceed the maximum file size of 2 Gb "
    "regardless of available disk space. Reduce the duration or scan rate. (48)";

Texts texts(const ComboBox& list)
{
    Texts texts;
    for (const auto& item : list.items())
        texts.push_back(item.text);
    return texts;
}

class Editors : public DocumentTest {
protected:
    /// Adds a driver with lists for all three quantities.
    FakeDriver& addLists()
    {
        FakeDriver& driver = addDriver();
        driver.sampleChoices = {0.001, 0.002, 1.0 / 51200};
        driver.blockChoices = {512, 1024, 2048};
        driver.scanChoices = {0.1, 0.2, 1.0 / 3};
        return driver;
    }
    /// Makes the driver's recording exceed the limit below this sample period.
    static void limitPeriod(FakeDriver& driver, double seconds)
    {
        driver.bytes = [seconds](const FakeDriver& it) { return it.samplePeriod < seconds ? 3e9 : 1000.0; };
    }
    void refused(TextBox& box, const std::string& text, const std::string& message, const std::string& inForce)
    {
        replace(box, text);
        EXPECT_TRUE(box.marked()) << text;
        EXPECT_FALSE(page().moveFocus(&page().optImmediate)) << text;
        EXPECT_EQ(host.takeMessages(), Texts{"Invalid input: " + message + " (48)"}) << text;
        EXPECT_EQ(box.text(), inForce) << text;
        EXPECT_EQ(box.selLength(), inForce.size()) << text;
        EXPECT_FALSE(box.marked());
        EXPECT_TRUE(page().moveFocus(&page().optImmediate)) << text;
    }
};

TEST_F(Editors, ListsAreShownWithTheEntryInForceSelected)
{
    addLists();
    addDriver(2).scanChoices = {0.2, 0.1};
    open();
    EXPECT_TRUE(page().cmbSampleRate.visible());
    EXPECT_FALSE(page().txtSampleRate.visible());
    EXPECT_EQ(texts(page().cmbSampleRate), (Texts{"1000", "500", "51200"}));
    EXPECT_EQ(texts(page().cmbSamplePeriod), (Texts{"0.001", "0.002", "1.953125E-05"}));
    EXPECT_EQ(page().cmbSampleRate.index(), 0);
    EXPECT_EQ(page().cmbBlockSize.text(), "1024");
    EXPECT_EQ(texts(page().cmbScanRate), (Texts{"10", "5"}));
    EXPECT_EQ(page().cmbScanPeriod.text(), "0.1");
    EXPECT_EQ(page().lblSpanValue.caption(), "390.625 Hz");
}

TEST_F(Editors, BoxesAreShownWithoutListsAndWhereNothingCanBeAcceptedTheyAreDisabled)
{
    FakeDriver& driver = addRanges();
    driver.samplePeriod = 1.0 / 25600;
    driver.blockSize = 8;
    open();
    EXPECT_EQ(page().txtSampleRate.text() + " " + page().txtSamplePeriod.text(), "25600 3.90625E-05");
    EXPECT_EQ(page().lblSpanValue.caption(), "10000 Hz");
    EXPECT_EQ(page().txtBlockSize.text(), "16") << "clamped into the range";
    EXPECT_TRUE(page().txtBlockSize.enabled());
    driver.blockRange = {512, 512};
    handOver();
    EXPECT_TRUE(page().txtBlockSize.enabled());
    EXPECT_EQ(page().txtBlockSize.text(), "512");
    driver.blockRange = {};
    for (const Range nothing : {Range{2, 1}, {1, 0}, {1, -1}}) {
        driver.sampleRange = nothing;
        handOver();
        EXPECT_FALSE(page().txtSampleRate.enabled() || page().txtSamplePeriod.enabled());
    }
    EXPECT_TRUE(page().txtBlockSize.text() == "0" && !page().txtBlockSize.enabled());
    EXPECT_EQ(driver.blockSize, 8);
}

TEST_F(Editors, TypingWritesEachValidTextAndTheOtherBoxFollows)
{
    FakeDriver& driver = addRanges();
    addDriver(2).scanRange = {0.01, 100};
    open();
    type(page().txtSamplePeriod, "0.01");
    EXPECT_EQ(driver.samplePeriod, 0.01);
    EXPECT_EQ(page().txtSampleRate.text(), "100");
    EXPECT_EQ(page().txtSamplePeriod.text(), "0.01");
    type(page().txtScanRate, "1.5");
    EXPECT_EQ(page().txtScanRate.text(), "1.5") << "the way over \"1.\" is open";
    EXPECT_EQ(fakes[1]->scanPeriod, 1 / 1.5);
    EXPECT_EQ(driver.scanPeriod, 1 / 1.5);
    EXPECT_EQ(page().txtScanPeriod.text(), "0.666666666666667");
    type(page().txtBlockSize, "64.5");
    EXPECT_EQ(driver.blockSize, 64) << "halves to even";
    EXPECT_EQ(page().txtBlockSize.text(), "64.5") << "rewritten only when it is left, so that 1.5e3 can be typed";
    ASSERT_TRUE(page().moveFocus(nullptr));
    EXPECT_EQ(page().txtBlockSize.text(), "64");
    type(page().txtBlockSize, "1.5e3");
    EXPECT_EQ(driver.blockSize, 1500);
}

TEST_F(Editors, ARefusedTextKeepsTheFocusAndShowsTheValueInForce)
{
    FakeDriver& driver = addRanges();
    addDriver(2).scanRange = {0.01, 100};
    open();
    refused(page().txtSampleRate, "9e9", "A valid real number in the range 1 to 1000000 is required.", "1000");
    refused(page().txtSamplePeriod, "abc", "A valid real number is required.", "0.001");
    refused(page().txtBlockSize, "15", "A valid integer in the range 16 to 4096 is required.", "1024");
    refused(page().txtScanRate, "-1", "A valid real number in the range 0.01 to 100 is required.", "10");
    refused(page().txtScanPeriod, "", "A valid real number is required.", "0.1");
    EXPECT_EQ(driver.samplePeriod, 0.001);
    bool allowed = true;
    type(page().txtBlockSize, "x");
    document->state().OKToLeave(allowed);
    EXPECT_FALSE(allowed);
    document->menu().OnCommand(command::acceptEntry);
    EXPECT_EQ(host.takeMessages().size(), 2U);
    page().txtBlockSize.userUndid();
    EXPECT_EQ(page().txtBlockSize.text(), "1024");
    document->state().OKToLeave(allowed);
    EXPECT_TRUE(allowed);
}

TEST_F(Editors, TheLimitTakesBackWhatItRefusesWithOneMessage)
{
    FakeDriver& driver = addRanges();
    FakeDriver& still = addDriver(2);
    open();
    limitPeriod(driver, 0.0005);
    type(page().txtSampleRate, "5000");
    EXPECT_EQ(host.takeMessages(), Texts{dynamicLimit});
    EXPECT_EQ(driver.samplePeriod, 0.002) << "500 was accepted on the way";
    EXPECT_EQ(page().txtSampleRate.text(), "500");
    EXPECT_EQ(page().txtSampleRate.selLength(), 3U);
    driver.bytes = [](const FakeDriver& it) { return it.blockSize > 2000 ? 3e9 : 1000.0; };
    page().txtBlockSize.userReplaced("2048", 0, 0);
    EXPECT_EQ(host.takeMessages(), Texts{dynamicLimit});
    EXPECT_EQ(driver.blockSize, 1024);
    EXPECT_EQ(page().txtBlockSize.text(), "1024");
    driver.bytes = nullptr;
    still.groups = {{"Inputs", {{}}}};
    still.numberOfScans = 536870912;
    type(page().txtScanPeriod, "5");
    EXPECT_EQ(host.takeMessages(), Texts{staticLimit});
    EXPECT_TRUE(driver.scanPeriod == 0.1 && still.scanPeriod == 0.1);
    EXPECT_EQ(page().txtScanPeriod.text() + " " + page().txtScanRate.text(), "0.1 10");
}

TEST_F(Editors, HintsWithRangesAreGivenForTheStaticBoxesOnly)
{
    addRanges();
    addDriver(2).scanRange = {0.01, 50};
    open();
    document->mode().setClientSite(host.site());
    for (TextBox* box : {&page().txtSampleRate, &page().txtSamplePeriod, &page().txtBlockSize, &page().txtDuration,
                         &page().txtScanRate, &page().txtScanPeriod})
        ASSERT_TRUE(page().moveFocus(box));
    EXPECT_EQ(host.hints, (Texts{"", "", "", "", "  A valid real number in the range 0.02 to 100 is required.",
                                 "  A valid real number in the range 0.01 to 50 is required."}));
}

TEST_F(Editors, ThatNoDriverCanTakeAreDisabled)
{
    for (const bool dynamicHas : {true, false})
        for (const bool staticHas : {true, false})
            for (const bool asList : {true, false}) {
                fakes.clear();
                FakeDriver& first = asList ? addLists() : addRanges();
                first.samplingMode = 2;
                first.hasTimebase = staticHas;
                FakeDriver& dynamic = addDriver();
                dynamic.hasTimebase = dynamicHas;
                dynamic.blockRange = {1, 4096};
                open();
                for (const Quantity& quantity : quantities) {
                    const bool all = quantity.number->toAllDrivers;
                    const bool expected = dynamicHas || (all && staticHas);
                    const ComboBox& list = page().*quantity.list;
                    EXPECT_EQ(list.enabled(), expected) << quantity.name;
                    EXPECT_TRUE(list.visible() || (page().*quantity.box).enabled() == expected) << quantity.name;
                }
            }
}

TEST_F(Editors, ChoicesWithoutAFinitePeriodOrRateAreLeftOut)
{
    FakeDriver& driver = addLists();
    driver.sampleChoices = {1e-310, 2, 1.7e308};
    driver.blockChoices = {1e-310, 2};
    open();
    EXPECT_EQ(page().cmbSampleRate.items().size(), 2U);
    EXPECT_EQ(page().cmbBlockSize.items().size(), 2U) << "a block size has no rate";
}

} // namespace
} // namespace ko::test
