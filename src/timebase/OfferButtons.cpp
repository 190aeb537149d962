#include "timebase/OfferButtons.h"

#include "platform/Failure.h"
#include "platform/Scoped.h"
#include "support/Phrases.h"

namespace ko {

namespace {

constexpr int titleText = 3244;

} // namespace

/// What tells one of the buttons from the others.
struct OfferButtons::Kind {
    std::string_view click; ///< the handler's name
    CommandButton Page::*button;
    Label Page::*label;
    Frame Page::*frame;
    OfferAccount Page::*account;
    bool asRates;
};

const OfferButtons::Kind OfferButtons::kinds[]{
    {"cmdSampleRateOffers_Click", &Page::cmdSampleRateOffers, &Page::lblSampleRate, &Page::frmDynamic,
     &Page::samplePeriodOffers, true},
    {"cmdSamplePeriodOffers_Click", &Page::cmdSamplePeriodOffers, &Page::lblSamplePeriod, &Page::frmDynamic,
     &Page::samplePeriodOffers, false},
    {"cmdBlockSizeOffers_Click", &Page::cmdBlockSizeOffers, &Page::lblBlockSize, &Page::frmDynamic,
     &Page::blockSizeOffers, false},
    {"cmdScanRateOffers_Click", &Page::cmdScanRateOffers, &Page::lblScanRate, &Page::frmStatic, &Page::scanPeriodOffers,
     true},
    {"cmdScanPeriodOffers_Click", &Page::cmdScanPeriodOffers, &Page::lblScanPeriod, &Page::frmStatic,
     &Page::scanPeriodOffers, false},
};

OfferButtons::OfferButtons(Page& page, Support& support, Dialog dialog)
    : page_(page), support_(support), dialog_(std::move(dialog))
{
    for (const Kind& kind : kinds)
        (page_.*kind.button).click = [this, &kind] { pressed(kind); };
}

void OfferButtons::follow()
{
    for (const Kind& kind : kinds)
        (page_.*kind.button).setVisible((page_.*kind.frame).visible());
}

void OfferButtons::pressed(const Kind& kind)
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const Steps step(support_.errors, kind.click);
    const Scoped open(page_.isDialogOpen, true);
    const OfferTexts texts([this](int number) { return support_.text(number); }, support_.locale(), kind.asRates);
    const OfferAccount& account = page_.*kind.account;
    step([&] {
        dialog_().Display(filled(support_.text(titleText), {(page_.*kind.label).caption()}), texts.common(account),
                          texts.columns(), rows(step, account, texts));
    });
}

std::vector<Table::Row> OfferButtons::rows(const Steps& step, const OfferAccount& account,
                                           const OfferTexts& texts) const
{
    std::vector<Table::Row> rows;
    rows.reserve(account.drivers.size());
    for (std::size_t i = 0; i < account.drivers.size(); ++i) {
        Table::Row& row = rows.emplace_back();
        row.header = nameOf(step, i);
        for (std::string& text : texts.row(account, i))
            row.cells.push_back({std::move(text), {}, Table::Emphasis::none});
    }
    return rows;
}

/// A driver that does not tell its name has its place in the list.
std::string OfferButtons::nameOf(const Steps& step, std::size_t driver) const
{
    const auto index = static_cast<std::int32_t>(driver);
    std::string name = step.value([&] { return required(page_.driverAt(index)).DriverName(0); });
    return name.empty() ? std::to_string(driver + 1) : name;
}

} // namespace ko
