#include "timebase/RatePeriodPair.h"

#include "platform/NumberText.h"
#include "support/Numbers.h"

#include <cmath>

namespace ko {

namespace {

/// Two periods that differ by less are the same choice.
constexpr double periodTolerance = 1e-12;

std::optional<double> bound(double value)
{
    return value > 0.0 && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> reciprocalBound(double value)
{
    return value > 0.0 ? bound(1.0 / value) : std::nullopt;
}

} // namespace

MergedChoices mergeOffers(Support& support, std::string_view procedure, Drivers drivers, const OfferMembers& members)
{
    const Steps step(support.errors, procedure);
    MergedChoices merged(drivers.size());
    for (const auto& driver : drivers) {
        Timebase* timebase = nullptr;
        std::vector<double> choices;
        Range range;
        bool answers = !driver || step([&] { timebase = driver->queryTimebase(); });
        if (timebase) {
            answers &= step([&] { choices = (timebase->*members.choices)(); });
            if (!merged.addList(std::move(choices))) {
                answers &= step([&] { range = (timebase->*members.range)(); });
                merged.addRange(range);
            }
        } else {
            merged.addNone();
        }
        if (!answers)
            merged.markFailed();
    }
    return merged;
}

NumberBounds periodBounds(Range periods)
{
    // No period is below 0: such a range is reversed.
    if (periods.maximum < 0.0)
        return {periods.minimum, periods.maximum, true};
    return {bound(periods.minimum), bound(periods.maximum), true};
}

NumberBounds rateBounds(Range periods)
{
    return {reciprocalBound(periods.maximum), reciprocalBound(periods.minimum), true};
}

RatePeriodPair::RatePeriodPair(Support& support, ComboBox& rates, ComboBox& periods, TextBox& rate, TextBox& period)
    : support_(support), rates_(rates), periods_(periods), rate_(rate), period_(period)
{
}

std::string RatePeriodPair::text(double value) const
{
    return numberText(value, support_.locale());
}

void RatePeriodPair::build(const Steps& step, const MergedChoices& offers, std::optional<double> inForce)
{
    const bool asLists = !offers.values().empty();
    const bool accepts = periodBounds(offers.range()).acceptsAnything();
    for (ComboBox* list : {&rates_, &periods_})
        list->setVisible(asLists);
    for (TextBox* box : {&rate_, &period_}) {
        box->setVisible(!asLists);
        box->setEnabled(accepts);
        box->setText("");
        box->setMarked(false);
    }
    fillLists(offers.values(), inForce);
    if (!asLists && inForce)
        showInBoxes(step, *inForce, nullptr);
}

void RatePeriodPair::fillLists(const std::vector<double>& values, std::optional<double> inForce)
{
    values_ = values;
    std::vector<ComboBox::Item> rates;
    std::vector<ComboBox::Item> periods;
    rates.reserve(values_.size());
    periods.reserve(values_.size());
    std::int32_t selected = -1;
    for (std::size_t i = 0; i < values_.size(); ++i) {
        periods.push_back({text(values_[i])});
        rates.push_back({text(1.0 / values_[i])});
        if (inForce && std::abs(values_[i] - *inForce) < periodTolerance)
            selected = static_cast<std::int32_t>(i);
    }
    rates_.setItems(std::move(rates));
    periods_.setItems(std::move(periods));
    rates_.select(selected);
    periods_.select(selected);
}

double RatePeriodPair::periodAt(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= values_.size())
        fail(failure::subscriptOutOfRange);
    return values_[static_cast<std::size_t>(index)];
}

void RatePeriodPair::selectPeriod(double seconds, std::int32_t otherwise)
{
    const std::string wanted = text(seconds);
    std::int32_t close = -1;
    std::int32_t exact = -1;
    for (std::size_t i = 0; i < values_.size() && exact < 0; ++i) {
        const auto index = static_cast<std::int32_t>(i);
        if (values_[i] == seconds)
            exact = index;
        else if (std::abs(values_[i] - seconds) < periodTolerance || periods_.items()[i].text == wanted)
            close = index;
    }
    const std::int32_t found = exact >= 0 ? exact : close;
    rates_.select(found >= 0 ? found : otherwise);
    periods_.select(found >= 0 ? found : otherwise);
}

void RatePeriodPair::showInBoxes(const Steps& step, double seconds, const TextBox* typedIn)
{
    if (&period_ != typedIn)
        step([&] { period_.setText(text(seconds)); });
    if (&rate_ != typedIn)
        step([&] { rate_.setText(text(reciprocal(seconds))); });
}

} // namespace ko
