#include "Offers.h"
#include "fakes/DocumentTest.h"
#include "page/OfferTexts.h"

#include <cmath>
#include <utility>

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
    struct Case {
        const char* name;
        std::vector<Offer> offers;
        Texts rows; ///< for each driver its offer and the effect
        const char* common;
    };
    const Case cases[] = {
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
    for (const Case& it : cases) {
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
    const Texts first{"Any value from 1000", "All its values are used", "No difference"};
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
        std::vector<Texts> rows; ///< the driver, then the cells
    };
    Shown press(CommandButton& button)
    {
        Shown shown;
        host.inModalForm = [&](Form& form) {
            auto& dialog = dynamic_cast<ShowOffers&>(form);
            shown = {dialog.caption(), dialog.lblCommon.caption(), {}};
            for (const Table::Row& row : dialog.tblOffers.rows()) {
                shown.rows.push_back({row.header});
                for (const Table::Cell& cell : row.cells)
                    shown.rows.back().push_back(cell.text);
            }
            EXPECT_EQ(dialog.tblOffers.columns().size(), 3U);
            EXPECT_EQ(dialog.btnClose.userClicked(), Outcome::Done);
            EXPECT_EQ(std::exchange(host.hiddenForm, nullptr), &form);
        };
        EXPECT_EQ(button.userClicked(), Outcome::Done) << button.name();
        return shown;
    }
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
    host.takeReports();
    Shown shown = press(page().cmdSampleRateOffers);
    EXPECT_EQ(shown.caption, "Sample Rate (Sa/s): what each instrument offers");
    EXPECT_EQ(shown.common, "All instruments share: 2 values, from 250 to 500.");
    ASSERT_EQ(shown.rows.size(), 3U);
    EXPECT_EQ(shown.rows[1], (Texts{"Second", "2 values, from 250 to 500", "Removes: 1000", "No difference"}));
    EXPECT_EQ(shown.rows[2][0] + " " + shown.rows[2][1], "3 No timebase");
    EXPECT_EQ(host.takeReports(), Texts{"KoTimebaseEditor:cmdSampleRateOffers_Click 1000: DriverName failed"});
    EXPECT_EQ(press(page().cmdSamplePeriodOffers).rows[1][2], "Removes: 0.001");
    EXPECT_EQ(press(page().cmdBlockSizeOffers).rows[1][1], "Nothing (it failed to answer)");

    page().txtScanRate.userReplaced("2", 0, 0);
    EXPECT_EQ(press(page().cmdScanPeriodOffers).rows[0][3], "Requested 0.5, set to 0.4");
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[0][3], "Requested 2, set to 2.5");
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[1][3], "No difference");
    second.failing = {"ScanPeriod"};
    page().txtScanRate.userReplaced("4", 0, 0);
    EXPECT_EQ(press(page().cmdScanRateOffers).rows[0][3], "No difference");
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

} // namespace
} // namespace ko::test
