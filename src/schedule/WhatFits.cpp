#include "schedule/WhatFits.h"

#include "page/Differences.h"
#include "page/Hints.h"
#include "platform/NumberText.h"
#include "schedule/DiskSpace.h"
#include "schedule/DurationText.h"
#include "support/Phrases.h"
#include "support/TextNumbers.h"

#include <algorithm>
#include <cmath>

namespace ko {

namespace {

namespace fitText = textNumber::fit;

} // namespace

WhatFits::WhatFits(Page& page, Support& support, Actions& actions, Recording& recording)
    : page_(page), support_(support), actions_(actions),
      recording_(recording), idleCaptions_{
                                 filled(support.text(fitText::setOne), {support.text(textNumber::compare::duration)}),
                                 filled(support.text(fitText::setOne), {support.text(textNumber::page::sampleRate)})}
{
    page.cmdTakeDuration.click = [this] { take(byDuration_, "cmdTakeDuration_Click"); };
    page.cmdTakeRate.click = [this] { take(byRate_, "cmdTakeRate_Click"); };
    withdraw();
}

void WhatFits::tell(const LimitRefusal& refusal, const std::vector<double>& periods)
{
    const Steps step(support_.errors, "tellWhatFits");
    ++told_;
    rate_ =
        &rateOf(refusal.code == diskSpace::staticTooLarge ? timebaseNumber::scanPeriod : timebaseNumber::samplePeriod);
    byDuration_.reset();
    byRate_.reset();
    step([&] {
        const Forecast forecast(page_, refusal);
        const bool isPresent = refusal.tried.empty();
        if (isPresent && !forecast.isBeyondLimit())
            return;
        std::string text = forecast.isReliable() ? answers(forecast, refusal.wanted, periods) : std::string();
        text = text.empty() ? support_.text(fitText::nothing) : filled(support_.text(fitText::fits), {text});
        if (isPresent)
            text = filled(support_.text(textNumber::compare::sentences), {support_.text(fitText::exceeded), text});
        show(step, withOneFullStop(text));
    });
}

/// The answer with the wanted value comes first.
std::string WhatFits::answers(const Forecast& forecast, SizeSettings wanted, const std::vector<double>& periods)
{
    // A value for every driver cannot be entered in an editor of the current one.
    if (wanted.ofEveryDriver)
        wanted.samplePeriod = wanted.blockSize = std::nullopt;
    wanted.ofEveryDriver = false;
    const LargestFit fit(page_, support_, recording_, forecast, *rate_, periods);
    const std::string byDuration = answerByDuration(fit, wanted);
    const std::string byRate = wanted.blockSize ? std::string() : answerByRate(fit, wanted);
    const auto longest = forecast.isBeyondLimit() ? fit.longest({}) : std::nullopt;
    for (auto* const answer : {&byDuration_, &byRate_})
        if (longest && *answer && (*answer)->seconds && (*answer)->value)
            (*answer)->secondsBefore = std::min(*longest, *(*answer)->seconds);
    if (byDuration.empty() || byRate.empty())
        return byDuration + byRate;
    const bool isRateWanted = wanted.samplePeriod || wanted.scanPeriod;
    return isRateWanted ? filled(support_.text(fitText::either), {byDuration, byRate})
                        : filled(support_.text(fitText::either), {byRate, byDuration});
}

/// The wanted or else the present duration, at the highest rate that allows it: of the current driver or, if the others
/// alone are too large, of every driver.
std::string WhatFits::answerByRate(const LargestFit& fit, const SizeSettings& wanted)
{
    const auto seconds = wanted.seconds ? std::optional(widen(*wanted.seconds)) : recording_.durationInForce();
    Answer answer{wanted.seconds ? seconds : std::nullopt};
    for (const bool isForAll : {false, true}) {
        if (answer.value || !seconds)
            break;
        answer.isForAll = isForAll && !rate_->number->toAllDrivers;
        answer.value = fit.highestRate({.seconds = wanted.seconds, .ofEveryDriver = isForAll});
    }
    if (!answer.value)
        return {};
    byRate_ = answer;
    return filled(support_.text(fitText::durationAtMostRate), {durationText(support_, *seconds), valueText(answer)});
}

/// The longest duration at the wanted or else the present rate or, for a wanted block size, with that one.
std::string WhatFits::answerByDuration(const LargestFit& fit, const SizeSettings& wanted)
{
    SizeSettings others = wanted;
    others.seconds.reset();
    const auto seconds = fit.longest(others);
    const bool isAfter = page_.optAfter.value();
    auto value = fit.wanted(others);
    const auto held = shownNumber(page_, *rate_->number);
    if (!seconds || (!value && !held) || (!isAfter && page_.txtStartTime.text().empty()))
        return {};
    const std::string rate = rateText(value ? *value : fit.rateOf(*held));
    byDuration_ = Answer{seconds, std::move(value)};
    return isAfter ? filled(support_.text(fitText::durationAtRate), {durationText(support_, *seconds), rate})
                   : filled(support_.text(fitText::stopAtRate), {stopText(*seconds), rate});
}

/// "770 Sa/s" or, for a block size, its name and value.
std::string WhatFits::rateText(const EditedValue& value) const
{
    const std::string unit(value.quantity->unit);
    return value.quantity->isRate
               ? filled(support_.text(fitText::rate), {value.text, unit})
               : filled(support_.text(fitText::rate), {(page_.*value.quantity->label).caption(), value.text});
}

std::string WhatFits::valueText(const Answer& answer) const
{
    const std::string rate = rateText(*answer.value);
    return answer.isForAll ? filled(support_.text(fitText::forAll), {rate}) : rate;
}

std::string WhatFits::stopText(double seconds) const
{
    return recording_.computeStopTime(seconds, recording_.timeIn(page_.txtStartTime));
}

std::string WhatFits::captionOf(const Answer& answer) const
{
    if (answer.seconds && !page_.optAfter.value() && !answer.value)
        return filled(support_.text(fitText::stopAt), {stopText(*answer.seconds)});
    const std::string duration = answer.seconds ? durationText(support_, *answer.seconds) : std::string();
    const std::string value = answer.value ? valueText(answer) : std::string();
    return duration.empty() || value.empty() ? filled(support_.text(fitText::setOne), {duration + value})
                                             : filled(support_.text(fitText::setBoth), {duration, value});
}

void WhatFits::show(const Steps& step, const std::string& text)
{
    page_.lblWhatFits.setCaption(text);
    page_.lblWhatFits.setVisible(true);
    for (const auto& [button, answer] :
         {std::pair{&page_.cmdTakeDuration, &byDuration_}, {&page_.cmdTakeRate, &byRate_}}) {
        const bool isOffered = answer->has_value() && !page_.readOnly;
        button->setTag(text);
        if (isOffered)
            button->setCaption(captionOf(**answer));
        button->setVisible(isOffered);
    }
    step([&] { showHint(page_, "  " + text); });
}

void WhatFits::withdraw()
{
    byDuration_.reset();
    byRate_.reset();
    page_.lblWhatFits.setCaption("");
    page_.cmdTakeDuration.setCaption(idleCaptions_[0]);
    page_.cmdTakeRate.setCaption(idleCaptions_[1]);
    for (Control* control : {static_cast<Control*>(&page_.lblWhatFits), static_cast<Control*>(&page_.cmdTakeDuration),
                             static_cast<Control*>(&page_.cmdTakeRate)})
        control->setVisible(false);
}

/// First enters what makes the recording smaller. After another refusal, which has shown a message and other answers,
/// nothing more is entered.
void WhatFits::take(std::optional<Answer>& offered, const char* handler)
{
    const Steps step(support_.errors, handler);
    const auto answer = std::exchange(offered, std::nullopt);
    if (!answer)
        return;
    const bool isRateFirst = &offered == &byRate_ || answer->secondsBefore;
    const std::uint32_t told = told_;
    if (answer->secondsBefore)
        enter(step, *answer->secondsBefore);
    for (const bool isRate : {isRateFirst, !isRateFirst}) {
        if (told_ != told || step.isSuperseded())
            return;
        if (isRate && answer->isForAll)
            actions_.setAll(*answer->value->quantity, answer->value->text);
        else if (isRate && answer->value)
            enter(step, *answer->value);
        if (!isRate && answer->seconds)
            enter(step, *answer->seconds);
    }
}

/// Enters a value as a user does: moving the focus to the editor first validates the control that is left.
void WhatFits::enter(const Steps& step, double seconds)
{
    if (!page_.optAfter.value()) {
        if (page_.moveFocus(&page_.txtStopTime))
            step([&] { page_.txtStopTime.setText(stopText(seconds)); });
        return;
    }
    ComboBox& units = page_.cmbInterval;
    std::int32_t unit = static_cast<std::int32_t>(units.items().size()) - 1;
    const auto length = [&] { return units.items().at(static_cast<std::size_t>(unit)).itemData; };
    while (unit > 0 && std::fmod(seconds, length()) != 0.0)
        --unit;
    const std::string text = numberText(seconds / length(), support_.locale());
    if (units.index() == unit) {
        if (page_.moveFocus(&page_.txtDuration))
            step([&] { page_.txtDuration.setText(text); });
        return;
    }
    // The number and its unit are written together.
    if (!page_.moveFocus(&units))
        return;
    step([&] {
        recording_.show(page_.txtDuration, text);
        units.select(unit);
        raise(units.click);
    });
    page_.moveFocus(&page_.txtDuration);
}

void WhatFits::enter(const Steps& step, const EditedValue& value)
{
    ComboBox& list = page_.*value.quantity->list;
    TextBox& box = page_.*value.quantity->box;
    const bool fromList = value.entry >= 0;
    if (!page_.moveFocus(fromList ? static_cast<Control*>(&list) : static_cast<Control*>(&box)))
        return;
    step([&] {
        if (!fromList) {
            box.setText(value.text);
            return;
        }
        list.select(value.entry);
        raise(list.click);
    });
}

} // namespace ko
