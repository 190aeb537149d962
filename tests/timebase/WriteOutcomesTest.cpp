#include "fakes/DocumentTest.h"
#include "page/Quantities.h"
#include "platform/NumberText.h"

#include <cctype>

namespace ko::test {
namespace {

/// Enters every quantity in its box and chooses it from its list while calls of the driver fail.
class WriteOutcomes : public DocumentTest {
protected:
    enum class Failing { Write, WriteAndRead, ReadBack };
    FakeDriver* driver = nullptr;

    /// Returns the operation that reads the quantity, such as "SamplePeriod".
    static std::string readOf(const Quantity& quantity)
    {
        std::string name(quantity.number->name);
        name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
        return name;
    }
    void openWith(const Quantity& quantity, bool asList)
    {
        fakes.clear();
        driver = &addDriver(quantity.number->toAllDrivers ? 2 : 1);
        driver->sampleRange = driver->scanRange = {0.01, 100};
        driver->blockRange = {1, 4096};
        if (asList)
            driver->sampleChoices = driver->scanChoices = driver->blockChoices = {2, 4, 8};
        driver->samplePeriod = driver->scanPeriod = driver->blockSize = 2;
        open();
        host.changes = 0;
    }
    void fail(const Quantity& quantity, Failing failing)
    {
        const std::string read = readOf(quantity);
        if (failing == Failing::ReadBack) {
            driver->keeps = [this, read](double value) {
                driver->failing = {read};
                return value;
            };
            return;
        }
        driver->failing = {"set" + read};
        if (failing == Failing::WriteAndRead)
            driver->failing.insert(read);
    }
    void heal()
    {
        driver->failing.clear();
        driver->keeps = [](double value) { return value; };
        host.takeReports();
    }
    double held(const Quantity& quantity) { return (driver->*quantity.number->get)(); }
    void expectShown(const Quantity& quantity, const std::string& when)
    {
        const double now = held(quantity);
        forEachQuantityOf(*quantity.number, [&](const Quantity& it) {
            const ComboBox& list = page().*it.list;
            const std::string shown = list.visible() ? list.text() : (page().*it.box).text();
            EXPECT_EQ(shown, numberText(it.shown(now), host.platform.locale)) << it.name << " " << when;
        });
        if (quantity.number == &timebaseNumber::samplePeriod) {
            EXPECT_EQ(page().lblSpanValue.caption(), numberText(1 / now / 2.56, host.platform.locale) + " Hz") << when;
        }
    }
    /// Scan values notify the host before they are written, the others after a driver has accepted the write.
    void expectNotified(const Quantity& quantity, Failing failing)
    {
        const bool notifies = quantity.number->toAllDrivers || failing == Failing::ReadBack;
        EXPECT_EQ(host.changes, notifies ? 1 : 0) << quantity.name;
    }
};

TEST_F(WriteOutcomes, LeavingABoxShowsWhatTheDriverHoldsAfterAnyFailure)
{
    for (const Quantity& quantity : quantities)
        for (const Failing failing : {Failing::Write, Failing::WriteAndRead, Failing::ReadBack}) {
            openWith(quantity, false);
            TextBox& box = page().*quantity.box;
            ASSERT_TRUE(page().moveFocus(&box));
            fail(quantity, failing);
            box.userReplaced("4", 1, 0);
            expectNotified(quantity, failing);
            if (failing == Failing::WriteAndRead) {
                forEachQuantityOf(*quantity.number, [&](const Quantity& it) {
                    EXPECT_NE((page().*it.box).text() == "4", &it != &quantity) << "no driver took it: " << it.name;
                });
            }
            heal();
            EXPECT_EQ(held(quantity) == 2, failing != Failing::ReadBack) << quantity.name;
            EXPECT_TRUE(page().moveFocus(nullptr));
            expectShown(quantity, "after leaving");
        }
}

TEST_F(WriteOutcomes, AChoiceAfterAnyFailureBringsTheListsBack)
{
    for (const Quantity& quantity : quantities)
        for (const Failing failing : {Failing::Write, Failing::WriteAndRead, Failing::ReadBack}) {
            openWith(quantity, true);
            ComboBox& list = page().*quantity.list;
            fail(quantity, failing);
            list.userChose(1);
            expectNotified(quantity, failing);
            if (failing == Failing::Write && !quantity.number->toAllDrivers)
                expectShown(quantity, "after a failed write");
            heal();
            list.userChose(1);
            EXPECT_EQ(held(quantity), 4) << quantity.name;
            expectShown(quantity, "after healing");
            list.userChose(2);
            expectShown(quantity, "after another choice");
        }
}

TEST_F(WriteOutcomes, ARefusedTextIsSelectedAsAWholeWhetherOrNotTheDriverAnswers)
{
    for (const Quantity& quantity : quantities)
        for (const bool answers : {true, false}) {
            openWith(quantity, false);
            TextBox& box = page().*quantity.box;
            replace(box, "xyz");
            if (!answers)
                driver->failing = {readOf(quantity)};
            EXPECT_FALSE(page().moveFocus(nullptr));
            EXPECT_EQ(host.takeMessages().size(), 1U);
            EXPECT_EQ(box.selText(), box.text()) << quantity.name;
            EXPECT_EQ(box.marked(), !answers) << quantity.name;
            box.userUndid();
            EXPECT_FALSE(box.marked()) << quantity.name;
            EXPECT_EQ(box.selText(), box.text());
            EXPECT_TRUE(page().moveFocus(nullptr)) << "nobody is caught in " << quantity.name;
            heal();
            document->UserDocument_Show();
            EXPECT_FALSE(box.marked()) << "set by the program";
            expectShown(quantity, "on a rebuilt page");
        }
}

TEST_F(WriteOutcomes, ABoxThatCouldNotBeFilledIsFilledByTheNextEventThatReads)
{
    for (const Quantity& quantity : quantities) {
        openWith(quantity, false);
        driver->numberOfScans = 10;
        driver->failing = {readOf(quantity)};
        document->UserDocument_Show();
        EXPECT_EQ((page().*quantity.box).text(), "") << quantity.name;
        heal();
        page().cmbInterval.userChose(page().cmbInterval.index() == 0 ? 1 : 0);
        expectShown(quantity, "after the estimate");
    }
}

TEST_F(WriteOutcomes, ATypedScanValueReachesEachDriverThatHoldsAnother)
{
    for (const Quantity* quantity : {&quantities[3], &quantities[4]}) {
        openWith(*quantity, false);
        FakeDriver& first = *driver;
        FakeDriver& second = addDriver(2);
        second.scanRange = first.scanRange;
        second.scanPeriod = 2;
        open();
        TextBox& box = page().*quantity->box;
        ASSERT_TRUE(page().moveFocus(&box));
        first.failing = {"setScanPeriod"};
        box.userReplaced("4", 1, 0);
        EXPECT_EQ(first.scanPeriod, 2);
        heal();
        second.writes.clear();
        box.userReplaced("4.", 2, 0);
        EXPECT_EQ(first.scanPeriod, quantity->held(4)) << quantity->name;
        EXPECT_EQ(second.writes, Texts()) << "it holds the value already";
    }
}

TEST_F(WriteOutcomes, ARefusedBlockSizeReturnsToTheEntryInForceOrToTheOneBefore)
{
    const Quantity& size = quantities[2];
    openWith(size, true);
    driver->bytes = [](const FakeDriver& it) { return it.blockSize >= 8 ? 3e9 : 1000.0; };
    page().cmbBlockSize.userChose(1);
    page().cmbBlockSize.userChose(2);
    EXPECT_EQ(page().cmbBlockSize.text(), "4");
    driver->keeps = [](double value) { return value == 8 ? 8 : 5; };
    page().cmbBlockSize.userChose(0);
    EXPECT_EQ(page().cmbBlockSize.text(), "2") << "kept as 5, which is no entry";
    page().cmbBlockSize.userChose(2);
    EXPECT_EQ(page().cmbBlockSize.text(), "2");
    EXPECT_EQ(host.takeMessages().size(), 2U);
}

TEST_F(WriteOutcomes, TheScanFiguresAreThoseOfTheDriverThatTheEditorsShow)
{
    openWith(quantities[3], true);
    driver->hasTimebase = false;
    FakeDriver& shown = addDriver(2);
    shown.scanChoices = {2, 4};
    shown.scanPeriod = 2;
    shown.numberOfScans = 5;
    open();
    EXPECT_EQ(page().lblNumScansValue.caption(), "5");
    EXPECT_EQ(page().figures.actualSeconds, 10.0);
    shown.scans = [](const FakeDriver& it) { return it.scanPeriod > 2 ? 536870700 : 5; };
    shown.groups = {{"Inputs", {{}}}};
    page().cmbScanRate.userChose(1);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    page().cmbInterval.userChose(page().cmbInterval.index() == 0 ? 1 : 0);
    EXPECT_EQ(page().cmbScanRate.index(), 1) << "the scan lists stay on the refused entry, also after other events";
    host.takeReports();
}

} // namespace
} // namespace ko::test
