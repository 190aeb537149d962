#include "timebase/OfferButtons.h"

#include "page/Differences.h"
#include "page/OfferTexts.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"
#include "timebase/ComparisonTable.h"
#include "timebase/Readings.h"

#include <algorithm>

namespace ko {

OfferButtons::OfferButtons(Page& page, Support& support, Actions& actions, SetAll& setAll, Dialog dialog)
    : page_(page), support_(support), actions_(actions), setAll_(setAll), dialog_(std::move(dialog))
{
    for (const Quantity& quantity : quantities)
        for (CommandButton* button : {&(page_.*quantity.button), &(page_.*quantity.mark)})
            button->click = [this, button, &quantity] { pressed(*button, quantity); };
}

void OfferButtons::follow()
{
    for (const Quantity& quantity : quantities)
        (page_.*quantity.button).setVisible((page_.*quantity.number->frame).visible());
    const Steps step(support_.errors, "showDifferences");
    for (const TimebaseNumber* number : timebaseNumber::all)
        step([&] { showDifferences(page_, support_, *number); });
}

void OfferButtons::pressed(const CommandButton& button, const Quantity& quantity)
{
    if (page_.isLoading || page_.isDialogOpen)
        return;
    const std::string procedure = button.name() + "_Click";
    const Steps step(support_.errors, procedure);
    const Scoped open(page_.isDialogOpen, true);
    const std::vector<StartStopSettings> schedules = readEveryDriver(page_, step);
    if (step.isOver())
        return;
    follow();
    actions_.refreshPlan();
    const auto settable = settableOnes();
    const auto first =
        static_cast<std::size_t>(std::find(settable.begin(), settable.end(), &quantity) - settable.begin());
    step([&] {
        dialog_().Display(filled(support_.text(textNumber::offers::titleOf), {(page_.*quantity.label).caption()}),
                          source(step, quantity, &button == &(page_.*quantity.mark), schedules), first);
    });
}

/// The dialog shows the list for which it was opened, even if the host replaces it meanwhile.
ShowOffers::Source OfferButtons::source(const Steps& step, const Quantity& quantity, bool isMark,
                                        const std::vector<StartStopSettings>& schedules)
{
    const auto content = [this, &quantity, &schedules, isMark] {
        const ComparisonTable table(page_, support_, quantity, schedules);
        const OfferTexts texts([this](int number) { return support_.text(number); }, support_.locale(),
                               quantity.isRate);
        ShowOffers::Content shown{texts.common(page_.*quantity.number->offers), table.columns(), table.rows(), 0, 0};
        shown.column = isMark ? table.columnOf(quantity) : table.offersColumn();
        shown.row = isMark ? table.firstDiffering(quantity) : 0;
        return shown;
    };
    const auto setAll = [this, &step](std::size_t chosen, const std::string& value) {
        const auto settable = settableOnes();
        if (!step.isSuperseded() && chosen < settable.size())
            setAll_.enter(*settable[chosen], value);
    };
    const auto settable = [this, &step] {
        return step.isSuperseded() ? std::vector<ShowOffers::Settable>{} : settableValues();
    };
    return {content, settable, setAll};
}

std::vector<const Quantity*> OfferButtons::settableOnes() const
{
    auto settable = shownQuantities(page_);
    std::erase_if(settable, [this](const Quantity* quantity) { return !setAll_.isPossible(*quantity); });
    return settable;
}

std::vector<ShowOffers::Settable> OfferButtons::settableValues() const
{
    std::vector<ShowOffers::Settable> all;
    for (const Quantity* quantity : settableOnes()) {
        const auto shown = shownNumber(page_, *quantity->number);
        const double value = shown.value_or(0.0);
        all.push_back({(page_.*quantity->label).caption(),
                       shown ? numberText(quantity->isRate ? 1.0 / value : value, support_.locale()) : ""});
    }
    return all;
}

} // namespace ko
