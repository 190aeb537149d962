#include "schedule/WhatFits.h"

#include "page/Hints.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Numbers.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <limits>

namespace ko {

namespace {

namespace fitText = textNumber::fit;

constexpr double finestDuration = 1e-3;
constexpr double finestRate = 1e-9;

} // namespace

WhatFits::WhatFits(Page& page, Support& support, Recording& recording)
    : page_(page), support_(support), recording_(recording)
{
    page.cmdTakeDuration.click = [this] { takeDuration(); };
    page.cmdTakeRate.click = [this] { takeRate(); };
    withdraw();
}

void WhatFits::tell(std::int32_t code, const std::vector<double>& periods)
{
    const Steps step(support_.errors, "tellWhatFits");
    quantity_ = &rateOf(code == diskSpace::staticTooLarge ? timebaseNumber::scanPeriod : timebaseNumber::samplePeriod);
    duration_.reset();
    rate_.reset();
    step([&] {
        const Forecast forecast(page_);
        std::string offered = offerDuration(forecast);
        if (const std::string rate = offerRate(forecast, periods); !rate.empty())
            offered = filled(support_.text(fitText::either), {offered, rate});
        show(step, withOneFullStop(filled(support_.text(fitText::fits), {offered})));
    });
}

void WhatFits::show(const Steps& step, const std::string& text)
{
    page_.lblWhatFits.setCaption(text);
    page_.lblWhatFits.setVisible(true);
    for (const auto& [button, offered] :
         {std::pair{&page_.cmdTakeDuration, &duration_}, {&page_.cmdTakeRate, &rate_}}) {
        button->setTag(text);
        button->setVisible(offered->has_value());
    }
    step([&] { showHint(page_, "  " + text); });
}

void WhatFits::withdraw()
{
    duration_.reset();
    rate_.reset();
    page_.lblWhatFits.setCaption("");
    for (Control* control : {static_cast<Control*>(&page_.lblWhatFits), static_cast<Control*>(&page_.cmdTakeDuration),
                             static_cast<Control*>(&page_.cmdTakeRate)})
        control->setVisible(false);
}

std::optional<double> WhatFits::longest(const Forecast& forecast) const
{
    const auto fitsFor = [&](double seconds) {
        return forecast.check({.seconds = toSingle(seconds)}) == diskSpace::fits;
    };
    const double present = recording_.durationInForce().value_or(0.0);
    const double least = fitsFor(present) ? present : 0.0;
    // Stop times have a resolution of one second.
    const double finest = page_.optAfter.value() ? finestDuration : 1.0;
    const auto found = largestThatFits({least, std::numeric_limits<float>::max()}, finest, fitsFor);
    return !found && least > 0.0 ? present : found;
}

std::string WhatFits::offerDuration(const Forecast& forecast)
{
    const auto found = longest(forecast);
    const bool after = page_.optAfter.value();
    if (!found || *found >= endless || (!after && page_.txtStartTime.text().empty()))
        return support_.text(fitText::noDuration);
    const std::string number = numberText(*found, support_.locale());
    duration_ =
        Suggestion{after ? number : recording_.computeStopTime(*found, recording_.timeIn(page_.txtStartTime)), -1};
    return filled(support_.text(after ? fitText::longestDuration : fitText::latestStop), {duration_->text});
}

bool WhatFits::fits(const Forecast& forecast, double period) const
{
    Forecast::Change change;
    (quantity_->number == &timebaseNumber::scanPeriod ? change.scanPeriod : change.samplePeriod) = period;
    return forecast.check(change) == diskSpace::fits;
}

std::optional<WhatFits::Suggestion> WhatFits::rateFromList(const Forecast& forecast, const std::vector<double>& periods)
{
    std::optional<std::size_t> best;
    for (std::size_t i = 0; i < periods.size(); ++i)
        if ((!best || periods[i] < periods[*best]) && fits(forecast, periods[i]))
            best = i;
    if (!best)
        return std::nullopt;
    return Suggestion{(page_.*quantity_->list).items().at(*best).text, static_cast<std::int32_t>(*best)};
}

std::optional<WhatFits::Suggestion> WhatFits::rateForBox(const Forecast& forecast)
{
    const auto fitsAt = [&](double rate) { return fits(forecast, reciprocal(rate)); };
    const TimebaseNumber& number = *quantity_->number;
    const double present = quantity_->shown((required(shownTimebase(page_, number).timebase).*number.get)());
    const double least = fitsAt(present) ? present : 0.0;
    const NumberBounds bounds = quantity_->bounds(page_);
    const Range within{largerOf(bounds.minimum.value_or(0.0), least), bounds.maximum.value_or(endless)};
    auto found = largestThatFits(within, finestRate, fitsAt);
    if (!found && least > 0.0)
        found = present;
    if (!found || *found >= endless)
        return std::nullopt;
    return Suggestion{numberText(*found, support_.locale()), -1};
}

std::string WhatFits::offerRate(const Forecast& forecast, const std::vector<double>& periods)
{
    if (!shownTimebase(page_, *quantity_->number) || (periods.empty() && !(page_.*quantity_->box).isUsable()))
        return {};
    rate_ = periods.empty() ? rateForBox(forecast) : rateFromList(forecast, periods);
    const std::string& label = (page_.*quantity_->label).caption();
    if (!rate_)
        return filled(support_.text(fitText::noRate), {label});
    return filled(support_.text(fitText::highestRate), {label, rate_->text});
}

/// Enters the value as a user does: moving the focus to the editor first validates the control that is left.
void WhatFits::takeDuration()
{
    const Steps step(support_.errors, "cmdTakeDuration_Click");
    const auto offered = std::exchange(duration_, std::nullopt);
    if (!offered)
        return;
    constexpr std::int32_t seconds = 0;
    TextBox& box = page_.optAfter.value() ? page_.txtDuration : page_.txtStopTime;
    if (&box == &page_.txtStopTime || page_.cmbInterval.index() == seconds) {
        if (page_.moveFocus(&box))
            step([&] { box.setText(offered->text); });
        return;
    }
    // The number and its unit are written together.
    if (!page_.moveFocus(&page_.cmbInterval))
        return;
    step([&] {
        recording_.show(box, offered->text);
        page_.cmbInterval.select(seconds);
        raise(page_.cmbInterval.click);
    });
}

void WhatFits::takeRate()
{
    const Steps step(support_.errors, "cmdTakeRate_Click");
    const auto offered = std::exchange(rate_, std::nullopt);
    if (!offered)
        return;
    ComboBox& list = page_.*quantity_->list;
    TextBox& box = page_.*quantity_->box;
    const bool fromList = offered->entry >= 0;
    if (!page_.moveFocus(fromList ? static_cast<Control*>(&list) : static_cast<Control*>(&box)))
        return;
    step([&] {
        if (!fromList) {
            box.setText(offered->text);
            return;
        }
        list.select(offered->entry);
        raise(list.click);
    });
}

} // namespace ko
