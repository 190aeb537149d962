#include "schedule/WhatFits.h"

#include "interfaces/Timebase.h"
#include "page/Hints.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "support/Numbers.h"
#include "support/Phrases.h"

#include <limits>

namespace ko {

namespace {

/// Texts by their numbers in the string table.
namespace fitText {
constexpr int either = 3246;
constexpr int fits = 3273;
constexpr int longestDuration = 3274;
constexpr int latestStop = 3275;
constexpr int highestRate = 3276;
constexpr int noDuration = 3277;
constexpr int noRate = 3278;
} // namespace fitText

constexpr double finestDuration = 1e-3;
constexpr double finestRate = 1e-9;

} // namespace

/// The editors of the rate that the message was about.
struct WhatFits::Editors {
    const Label& label;
    ComboBox& list;
    TextBox& box;
    std::int32_t driver;
    double (Timebase::*period)();
};

WhatFits::WhatFits(Page& page, Support& support, Recording& recording)
    : page_(page), support_(support), recording_(recording)
{
    page.cmdTakeDuration.click = [this] { takeDuration(); };
    page.cmdTakeRate.click = [this] { takeRate(); };
    withdraw();
}

WhatFits::Editors WhatFits::editors() const
{
    if (isStatic_)
        return {page_.lblScanRate, page_.cmbScanRate, page_.txtScanRate, page_.scannedDriverIndex,
                &Timebase::ScanPeriod};
    return {page_.lblSampleRate, page_.cmbSampleRate, page_.txtSampleRate, page_.dynamicDriverIndex,
            &Timebase::SamplePeriod};
}

void WhatFits::tell(std::int32_t code, const Rates& rates)
{
    const Steps step(support_.errors, "tellWhatFits");
    isStatic_ = code == diskSpace::staticTooLarge;
    duration_.reset();
    rate_.reset();
    step([&] {
        const Forecast forecast(page_);
        std::string offered = offerDuration(forecast);
        if (const std::string rate = offerRate(forecast, rates); !rate.empty())
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
    // Times of the day are whole seconds.
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
    duration_ = Offered{after ? number : recording_.computeStopTime(*found, recording_.timeIn(page_.txtStartTime)), -1};
    return filled(support_.text(after ? fitText::longestDuration : fitText::latestStop), {duration_->text});
}

bool WhatFits::fits(const Forecast& forecast, double period) const
{
    Forecast::Change change;
    (isStatic_ ? change.scanPeriod : change.samplePeriod) = period;
    return forecast.check(change) == diskSpace::fits;
}

std::optional<WhatFits::Offered> WhatFits::rateFromList(const Forecast& forecast, const std::vector<double>& periods)
{
    std::optional<std::size_t> best;
    for (std::size_t i = 0; i < periods.size(); ++i)
        if ((!best || periods[i] < periods[*best]) && fits(forecast, periods[i]))
            best = i;
    if (!best)
        return std::nullopt;
    return Offered{editors().list.items().at(*best).text, static_cast<std::int32_t>(*best)};
}

std::optional<WhatFits::Offered> WhatFits::rateForBox(const Forecast& forecast, const NumberBounds& bounds)
{
    const Editors editor = editors();
    const auto fitsAt = [&](double rate) { return fits(forecast, reciprocal(rate)); };
    const double present = reciprocal((required(page_.timebaseAt(editor.driver)).*editor.period)());
    const double least = fitsAt(present) ? present : 0.0;
    const Range within{largerOf(bounds.minimum.value_or(0.0), least), bounds.maximum.value_or(endless)};
    auto found = largestThatFits(within, finestRate, fitsAt);
    if (!found && least > 0.0)
        found = present;
    if (!found || *found >= endless)
        return std::nullopt;
    return Offered{numberText(*found, support_.locale()), -1};
}

std::string WhatFits::offerRate(const Forecast& forecast, const Rates& rates)
{
    const Editors editor = editors();
    if (!page_.timebaseAt(editor.driver) || (rates.periods.empty() && !editor.box.isUsable()))
        return {};
    rate_ = rates.periods.empty() ? rateForBox(forecast, rates.bounds) : rateFromList(forecast, rates.periods);
    if (!rate_)
        return filled(support_.text(fitText::noRate), {editor.label.caption()});
    return filled(support_.text(fitText::highestRate), {editor.label.caption(), rate_->text});
}

/// As the user would: to the editor, where leaving the control before asks its questions, and in with the value.
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
    const Editors editor = editors();
    const bool fromList = offered->entry >= 0;
    if (!page_.moveFocus(fromList ? static_cast<Control*>(&editor.list) : static_cast<Control*>(&editor.box)))
        return;
    step([&] {
        if (!fromList) {
            editor.box.setText(offered->text);
            return;
        }
        editor.list.select(offered->entry);
        raise(editor.list.click);
    });
}

} // namespace ko
