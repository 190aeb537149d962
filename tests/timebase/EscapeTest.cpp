#include "fakes/DocumentTest.h"
#include "page/Quantities.h"

namespace ko::test {
namespace {

class Escape : public DocumentTest {
protected:
    struct Held {
        double samplePeriod, blockSize, scanPeriod, duration;
        bool operator==(const Held&) const = default;
    };
    std::vector<Held> held() const
    {
        std::vector<Held> all;
        for (const auto& it : fakes)
            all.push_back({it->samplePeriod, it->blockSize, it->scanPeriod, it->duration});
        return all;
    }
    /// Three drivers; those that the page does not show hold other values than the ones that it shows.
    void openDiffering()
    {
        for (const std::int32_t mode : {1, 2, 2}) {
            FakeDriver& driver = addDriver(mode);
            driver.sampleRange = driver.scanRange = {1e-6, 1e3};
            driver.blockRange = {1, 4096};
        }
        open();
        fakes[0]->scanPeriod = 0.25;
        fakes[1]->scanPeriod = 0.75;
        fakes[1]->duration = 21;
        fakes[2]->duration = 7;
        host.changes = 0;
    }
    Texts allShown()
    {
        Texts texts{page().lblSpanValue.caption(), page().lblNumScansValue.caption(),
                    page().lblDurationValue.caption()};
        for (const TextBox* box : boxes())
            texts.push_back(box->text());
        return texts;
    }
    std::vector<TextBox*> boxes()
    {
        std::vector<TextBox*> all{&page().txtDuration};
        for (const Quantity& quantity : quantities)
            all.push_back(&(page().*quantity.box));
        return all;
    }
};

TEST_F(Escape, ReturnsToTheValueAtTheFocusInEachDriverWithPartnerAndLabels)
{
    openDiffering();
    for (const bool isTooLarge : {false, true})
        for (TextBox* box : boxes()) {
            ASSERT_TRUE(page().moveFocus(box));
            const auto before = held();
            const std::string text = box->text();
            const Texts shown = allShown();
            for (const char* typed : {"2", "25", "25.", "25.6", "25.6k"})
                box->userReplaced(typed, 0, 0);
            EXPECT_NE(held(), before) << box->name();
            EXPECT_FALSE(page().moveFocus(nullptr)) << "refused";
            EXPECT_EQ(host.takeMessages().size(), 1U);
            EXPECT_EQ(box->escapeText(), text) << "offered after the refusal, too";
            host.changes = 0;
            if (isTooLarge)
                fakes[0]->bytes = [](const FakeDriver&) { return 3e9; };
            box->userUndid();
            fakes[0]->bytes = nullptr;
            EXPECT_EQ(held(), before) << box->name();
            EXPECT_EQ(host.changes, 1) << "one notification, no message of the limit";
            EXPECT_EQ(box->escapeText(), "");
            ASSERT_TRUE(page().moveFocus(nullptr));
            EXPECT_TRUE(isTooLarge || allShown() == shown) << box->name() << testing::PrintToString(allShown());
            EXPECT_EQ(page().lblNumScansValue.caption() == page().notApplicableText, isTooLarge) << box->name();
            EXPECT_EQ(page().lblWhatFits.visible(), isTooLarge) << box->name();
        }
}

TEST_F(Escape, AHandedOverListDropsTheEarlierValues)
{
    openDiffering();
    document->UserDocument_Show();
    for (TextBox* box : boxes()) {
        type(*box, "2");
        const auto typed = held();
        ASSERT_NE(box->escapeText(), "") << box->name();
        document->UserDocument_Hide();
        handOver();
        document->UserDocument_Show();
        page().moveFocus(box);
        EXPECT_EQ(box->escapeText(), "") << box->name();
        box->userUndid();
        EXPECT_EQ(held(), typed) << box->name();
    }
}

} // namespace
} // namespace ko::test
