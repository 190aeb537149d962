#include "timebase/OfferButtons.h"

#include "page/Quantities.h"
#include "platform/Failure.h"
#include "platform/Scoped.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

namespace ko {

OfferButtons::OfferButtons(Page& page, Support& support, Dialog dialog)
    : page_(page), support_(support), dialog_(std::move(dialog))
{
    for (const Quantity& quantity : quantities)
        (page_.*quantity.button).click = [this, &quantity] { pressed(quantity); };
}

void OfferButtons::follow()
{
    for (const Quantity& quantity : quantities)
        (page_.*quantity.button).setVisible((page_.*quantity.number->frame).visible());
}

void OfferButtons::pressed(const Quantity& quantity)
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const std::string procedure = (page_.*quantity.button).name() + "_Click";
    const Steps step(support_.errors, procedure);
    const Scoped open(page_.isDialogOpen, true);
    const OfferTexts texts([this](int number) { return support_.text(number); }, support_.locale(), quantity.isRate);
    const OfferAccount& account = page_.*quantity.number->offers;
    step([&] {
        dialog_().Display(filled(support_.text(textNumber::offers::titleOf), {(page_.*quantity.label).caption()}),
                          texts.common(account), texts.columns(), rows(step, account, texts));
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

/// A driver whose name cannot be read is named by its position in the list.
std::string OfferButtons::nameOf(const Steps& step, std::size_t driver) const
{
    const auto index = static_cast<std::int32_t>(driver);
    std::string name = step.value([&] { return required(page_.driverAt(index)).DriverName(0); });
    return name.empty() ? std::to_string(driver + 1) : name;
}

} // namespace ko
