#include "Offers.h"
#include "fakes/DocumentTest.h"
#include "page/OfferTexts.h"

#include <cmath>

namespace ko::test {
namespace {

OfferAccount accountOf(const std::vector<Offer>& offers)
{
    return merged(offers).account();
}

OfferTexts english(bool asRates = false)
{
    return {[](int number) { return StringTable().text(number); }, Locale{}, asRates};
}

TEST(OfferAccountTest, SaysWhatEachDriverOffersAndWhatThatDoesToTheOthers)
{
    const struct {
        const char* name;
        std::vector<Offer> offers;
        Texts rows; ///< for each driver its offer and the effect
        const char* common;
    } cases[]{
        {"nobody", {}, {}, "The instruments share no values and no range."},
        {"lists",
         {{{4, 1, 2}, {}}, {{2, 4, 9}, {}}, {{4, 2}, {}}},
         {"3 values, from 1 to 4|All its values are used", "3 values, from 2 to 9|Removes: 1",
          "2 values, from 2 to 4|None"},
         "All instruments share: 2 values, from 2 to 4."},
        {"a range among lists",
         {{{1, 5, 9}, {}}, {{}, {5, 100}}, {{}, {0, 6}}, {{}, {0, 0}}},
         {"3 values, from 1 to 9|All its values are used", "Any value from 5 to 100|Removes: 1",
          "Any value up to 6|Removes: 9", "Nothing|None"},
         "All instruments share: One value: 5."},
        {"a list after a range",
         {{{}, {2, 6}}, {{1, 3, 7}, {}}, {{}, {2, 5}}},
         {"Any value from 2 to 6|All its values are used",
          "3 values, from 1 to 7|All its values are used, except: 1; 7", "Any value from 2 to 5|None"},
         "All instruments share: One value: 3."},
        {"a list that no value of fits the range",
         {{{}, {2, 6}}, {{7, 8}, {}}, {{5}, {}}},
         {"Any value from 2 to 6|All its values are used", "2 values, from 7 to 8|None of its values is shared",
          "One value: 5|All its values are used"},
         "All instruments share: One value: 5."},
        {"afresh",
         {{{1, 2}, {}}, {{3, NAN, -1}, {}}, {{7}, {}}},
         {"2 values, from 1 to 2|All its values are used",
          "One value: 3 (2 more that cannot be used)|No value in common; removes 1; 2. The list restarts with the next "
          "instrument.",
          "One value: 7|All its values are used"},
         "All instruments share: One value: 7."},
        {"ranges",
         {{{NAN}, {1, 10}}, {{}, {4, 20}}, {{}, {2, 30}}, {{}, {11, 12}}},
         {"Any value from 1 to 10 (1 more that cannot be used)|All its values are used",
          "Any value from 4 to 20|Narrows the range to: Any value from 4 to 10", "Any value from 2 to 30|None",
          "Any value from 11 to 12|Narrows the range to: No value"},
         "All instruments share: No value."},
    };
    for (const auto& it : cases) {
        const OfferAccount account = accountOf(it.offers);
        const OfferTexts texts = english();
        Texts rows;
        for (std::size_t i = 0; i < account.drivers.size(); ++i) {
            const auto row = texts.row(account, i);
            rows.push_back(row[0] + "|" + row[1]);
        }
        EXPECT_EQ(rows, it.rows) << it.name;
        EXPECT_EQ(texts.common(account), it.common) << it.name;
    }
}

TEST(OfferAccountTest, PeriodsAreShownAsRatesWithTheEndsExchanged)
{
    const OfferAccount account = accountOf({{{}, {0, 0.001}}, {{0.5, 0.25, 0.001, 0.0001}, {}}, {{0.5}, {}}});
    const Texts first{"Any value from 1000", "All its values are used", "Not read"};
    EXPECT_EQ(english(true).row(account, 0), first);
    EXPECT_EQ(english(true).row(account, 1)[0], "4 values, from 2 to 10000");
    EXPECT_EQ(english(true).common(account), "All instruments share: Any value from 1000.");
    OfferAccount many = accountOf({{Values(30, 1), {}}, {{2}, {}}});
    EXPECT_TRUE(english().row(many, 1)[1].find("1; 1; and 10 more") != std::string::npos);
}

class ShowOffersTest : public DocumentTest {
protected:
    struct Shown {
        std::string caption, common;
        std::vector<Texts> rows; ///< the driver, then the cells on its offer
        Texts columns;
        std::vector<Table::Row> all;
    };
    Shown press(CommandButton& button)
    {
        Shown shown;
        host.inModalForm = [&](Form& form) {
            auto& dialog = dynamic_cast<ShowOffers&>(form);
            if (inDialog)
                inDialog(dialog);
            const Table& table = dialog.tblOffers;
            shown = {dialog.caption(), dialog.lblCommon.caption(), {}, table.columns(), table.rows()};
            for (const Table::Row& row : table.rows()) {
                shown.rows.push_back({row.header});
                for (std::size_t i = row.cells.size() - 3; i < row.cells.size(); ++i)
                    shown.rows.back().push_back(row.cells[i].text);
                EXPECT_EQ(row.cells.size(), table.columns().size());
            }
            EXPECT_EQ(dialog.btnClose.userClicked(), Outcome::Done);
            EXPECT_EQ(std::exchange(host.hiddenForm, nullptr), &form);
        };
        EXPECT_EQ(button.userClicked(), Outcome::Done) << button.name();
        return shown;
    }
    /// The cells of a column, driver by driver.
    static Texts column(const Shown& shown, const std::string& name)
    {
        const auto at = std::find(shown.columns.begin(), shown.columns.end(), name) - shown.columns.begin();
        Texts cells;
        for (const Table::Row& row : shown.all)
            cells.push_back(row.cells.at(static_cast<std::size_t>(at)).text);
        return cells;
    }

    std::function<void(ShowOffers&)> inDialog; ///< what the user does there before closing it
};

TEST_F(ShowOffersTest, EachButtonShowsItsQuantityAndTheValuesKeptDifferently)
{
    FakeDriver& first = addDriver();
    first.name = "First";
    first.sampleChoices = {0.001, 0.002, 0.004};
    first.keeps = [](double value) { return value == 0.5 ? 0.4 : value; };
    FakeDriver& second = addDriver(2);
    second.name = "Second";
    second.sampleChoices = {0.002, 0.004};
    second.failing = {"BlockSizeChoiceList"};
    addDriver(2).hasTimebase = false;
    fakes[2]->failing = {"DriverName"};
    open();
    EXPECT_EQ(host.takeReports().back(), "KoTimebaseEditor:initializeDocument 1000: DriverName failed");
    Shown shown = press(page().cmdSampleRateOffers);
    EXPECT_EQ(shown.caption, "Sample Rate (Sa/s): what each instrument offers");
    EXPECT_EQ(shown.common, "All instruments share: 2 values, from 250 to 500.");
    ASSERT_EQ(shown.rows.size(), 3U);
    EXPECT_EQ(shown.rows[1],
              (Texts{"Second", "2 values, from 250 to 500", "Removes: 1000", "1000, nothing requested"}));
    EXPECT_EQ(shown.rows[2][0] + " " + shown.rows[2][1], "3 No timebase");
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:cmdSampleRateOffers_Click 1000: DriverName failed"});
    EXPECT_EQ(press(page().cmdSamplePeriodOffers).rows[1][2], "Removes: 0.001");
    EXPECT_EQ(press(page().cmdBlockSizeOffers).rows[1][1], "Nothing (it failed to answer)");

    page().txtScanRate.userReplaced("2", 0, 0);
    EXPECT_EQ(press(page().cmdScanPeriodOffers).rows[0][3], "Requested 0.5, set to 0.4");
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[0][3], "Requested 2, set to 2.5");
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[1][3], "2, as requested");
    second.failing = {"ScanPeriod"};
    page().txtScanRate.userReplaced("4", 0, 0);
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[0][3], "4, as requested");
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[1][3], "Requested 4, not read back");
    host.takeReports();
}

TEST_F(ShowOffersTest, TheButtonsWorkOnAReadOnlyPageAndAreGoneWithoutInstruments)
{
    CommandButton* const buttons[] = {&page().cmdSampleRateOffers, &page().cmdSamplePeriodOffers,
                                      &page().cmdBlockSizeOffers, &page().cmdScanRateOffers,
                                      &page().cmdScanPeriodOffers};
    open();
    for (const CommandButton* button : buttons)
        EXPECT_FALSE(button->isUsable()) << button->name();
    addDriver().blockChoices = {16, 32};
    document->mode().setReadOnly(true);
    document->UserDocument_Hide();
    open();
    fakes[0]->writes.clear();
    EXPECT_TRUE(page().cmdBlockSizeOffers.isUsable() && !page().cmdScanRateOffers.isUsable());
    EXPECT_EQ(press(page().cmdBlockSizeOffers).common, "All instruments share: 2 values, from 16 to 32.");
    EXPECT_EQ(fakes[0]->writes, Texts{});
}

TEST_F(ShowOffersTest, AfterARefusalItShowsTheRestoredValues)
{
    FakeDriver& driver = addDriver();
    driver.sampleRange = {1e-6, 1};
    driver.bytes = [](const FakeDriver& it) { return it.samplePeriod < 0.001 ? 3e9 : 1000; };
    driver.samplePeriod = 0.5;
    open();
    driver.keeps = [](double value) { return value == 0.5 ? 0.25 : value; };
    page().txtSamplePeriod.userReplaced("0.0001", 0, 0);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(press(page().cmdSamplePeriodOffers).rows[0][3], "Requested 0.5, set to 0.25");
}

TEST_F(ShowOffersTest, AScanListThatStaysOnARefusedEntryIsMarkedAndThePlanSaysWhatIsHeld)
{
    FakeDriver& driver = addDriver(2);
    driver.scanChoices = {0.5, 1};
    driver.scanPeriod = 1;
    driver.groups = {{"Inputs", {{}}}};
    driver.scans = [](const FakeDriver& it) { return it.scanPeriod < 1 ? 536870912 : 1; };
    open();
    page().cmbScanPeriod.userChose(page().cmbScanPeriod.index() == 0 ? 1 : 0);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(page().cmbScanPeriod.text() + " " + page().cmdScanRateDiffers.caption(), "0.5 1 of 1 differs");
    EXPECT_TRUE(page().lblPlan.caption().ends_with("Scan Rate (Sc/s) differs: Fake (1).")) << page().lblPlan.caption();
}

TEST_F(ShowOffersTest, TheMarksAndTheTableFollowWhatEachDriverHolds)
{
    for (const double period : {0.001, 0.002, 0.002}) {
        FakeDriver& driver = addRanges();
        driver.samplePeriod = period;
        driver.bytes = [](const FakeDriver& it) { return it.samplePeriod < 1e-5 ? 3e9 : 1000; };
    }
    addRanges(2).samplePeriod = 0.5;
    open();
    const CommandButton& mark = page().cmdSampleRateDiffers;
    EXPECT_TRUE(mark.isUsable() && page().cmdSamplePeriodDiffers.isUsable());
    EXPECT_FALSE(page().cmdBlockSizeDiffers.visible() || page().cmdScanRateDiffers.visible());
    EXPECT_EQ(mark.caption(), "2 of 3 differ");
    EXPECT_TRUE(page().lblPlan.caption().ends_with(" later. Sample Rate (Sa/s) differs: Fake (500), Fake (500)."))
        << page().lblPlan.caption();
    const Shown shown = press(page().cmdSampleRateDiffers);
    EXPECT_EQ(column(shown, "Sample Rate (Sa/s)"), (Texts{"1000", "500 (differs)", "500 (differs)", "2"}));
    EXPECT_EQ(column(shown, "Share of the disk space").back(), "12.2 %");
    EXPECT_EQ(shown.all[1].cells[0].emphasis, Table::Emphasis::strong);

    page().txtSampleRate.userReplaced("500", 0, 0);
    EXPECT_FALSE(mark.visible());
    fakes[1]->keeps = [](double value) { return value == 0.01 ? 0.02 : value; };
    inDialog = [&](ShowOffers& dialog) {
        EXPECT_EQ(dialog.cmbQuantity.text() + " " + dialog.txtValue.text(), "Sample Rate (Sa/s) 500");
        dialog.txtValue.userReplaced("abc", 0, 0);
        dialog.cmdSetAll.userClicked();
        EXPECT_EQ(host.takeMessages().size(), 1U);
        dialog.txtValue.userReplaced("100", 0, 0);
        EXPECT_EQ(dialog.cmdSetAll.userClicked(), Outcome::Done);
    };
    const int before = host.changes;
    EXPECT_EQ(column(press(page().cmdSampleRateOffers), "Sample Rate (Sa/s)"),
              (Texts{"100", "50 (differs)", "100", "100"}));
    EXPECT_EQ(host.changes, before + 1);
    EXPECT_EQ(mark.caption(), "1 of 3 differs");
    EXPECT_EQ(page().txtSampleRate.text() + " " + page().txtSamplePeriod.text(), "100 0.01");

    const auto held = [&] { return Values{fakes[0]->samplePeriod, fakes[1]->samplePeriod, fakes[3]->samplePeriod}; };
    const Values old = held();
    EXPECT_EQ(document->setAll("sample-period", "1e-6"), Outcome::Done);
    EXPECT_EQ(host.takeMessages().size(), 1U);
    EXPECT_EQ(held(), old) << "each has its own old value back";
    EXPECT_EQ(page().txtSampleRate.text() + " " + mark.caption(), "100 1 of 3 differs");
    EXPECT_EQ(document->setAll("block-size", "64"), Outcome::Done);
    EXPECT_EQ(document->setAll("scan-rate", "4"), Outcome::Done);
    EXPECT_EQ(fakes[3]->blockSize, 64);
    EXPECT_EQ(fakes[0]->scanPeriod, 0.25);
    EXPECT_EQ(page().txtScanPeriod.text(), "0.25");
    EXPECT_EQ(document->setAll("duration", "4"), Outcome::Inert);
    document->mode().setReadOnly(true);
    EXPECT_EQ(document->setAll("block-size", "16"), Outcome::Inert);
    inDialog = [](ShowOffers& dialog) { EXPECT_FALSE(dialog.cmdSetAll.isUsable()); };
    press(page().cmdSampleRateDiffers);
}

} // namespace
} // namespace ko::test
