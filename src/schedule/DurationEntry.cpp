#include "schedule/DurationEntry.h"

#include "page/Hints.h"
#include "page/LastAnswer.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "support/Numbers.h"

#include <limits>

namespace ko {

DurationEntry::DurationEntry(Page& page, Support& support, Recording& recording)
    : NumberEntry(page, support, page.txtDuration, NumberType::Double), recording_(recording), earlier_(page)
{
    page.cmbInterval.click = [this] { cmbInterval_click(); };
    page.cmbInterval.gotFocus = [this] { cmbInterval_GotFocus(); };
    page.cmbInterval.lostFocus = [&page] { page.editFlags = editFlag::none; };
}

void DurationEntry::showDuration(std::optional<double> seconds)
{
    ComboBox& units = page().cmbInterval;
    std::int32_t unit = static_cast<std::int32_t>(units.items().size()) - 1;
    while (unit > 0 && !(seconds.value_or(0.0) >= units.items()[static_cast<std::size_t>(unit)].itemData))
        --unit;
    units.select(unit);
    recording_.show(page().txtDuration,
                    seconds ? numberText(*seconds / units.itemData(), support().locale()) : std::string());
}

NumberBounds DurationEntry::bounds()
{
    return {0.0, double{std::numeric_limits<float>::max()} / unit()};
}

std::optional<double> DurationEntry::held()
{
    return recording_.durationInForce();
}

std::optional<double> DurationEntry::heldAfterRefusal()
{
    return recording_.durationInForce(Steps(support().errors, "txtDuration_Validate"));
}

void DurationEntry::accept(const Steps& step, double value)
{
    write(
        step, value, [this] { showSelected(recording_.durationReadBack()); }, &earlier_);
}

/// Writes only to drivers whose duration is not displayed like the text. None when the value cannot be converted to
/// seconds.
std::optional<Recording::Result> DurationEntry::write(const Steps& step, double value,
                                                      const std::function<void()>& putBack,
                                                      EarlierValues<StartStopSettings>* earlier)
{
    const double entered = largerOf(value, 0.0);
    StartStopSettings change;
    if (!step([&] { change.duration = toSingle(entered * unit()); }))
        return std::nullopt;
    auto reads = lastAnswer<float>([&](float held) { return holds(widen(held), entered); });
    return recording_.commit(
        step, change, putBack,
        [&](const StartStopSettings& before) {
            return before.duration && reads(*before.duration) ? StartStopSettings{} : change;
        },
        earlier);
}

void DurationEntry::cmbInterval_GotFocus()
{
    const Steps step(support().errors, "cmbInterval_GotFocus");
    page().editFlags = editFlag::none;
    step([&] { setToolTip(page(), support(), noRange, noRange); });
    intervalAtFocus_ = page().cmbInterval.index();
}

void DurationEntry::cmbInterval_click()
{
    if (page().isLoading || page().isUpdating || !isActive())
        return;
    const Steps step(support().errors, "cmbInterval_click");
    if (!recording_.isDurationKnown()) {
        if (const auto seconds = recording_.durationInForce(step))
            recording_.follow(step, *seconds);
        return;
    }
    const std::string& text = page().txtDuration.text();
    const auto value = step.value([&] { return readNumber(support(), text, NumberType::Double, bounds(), true); });
    if (!value) {
        step([&] { unitRefused(recording_.durationInForce(step)); });
        return;
    }
    write(step, *value, [this] { unitRefused(recording_.durationReadBack()); });
}

/// Does not select the text, because the list has the focus.
void DurationEntry::unitRefused(std::optional<double> seconds)
{
    page().cmbInterval.select(intervalAtFocus_);
    const Scoped guard(page().isUpdating, true);
    showSelected(seconds);
    page().txtDuration.select(0, 0);
}

} // namespace ko
