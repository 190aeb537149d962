#include "schedule/DurationEntry.h"

#include "page/Hints.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"

#include <limits>

namespace ko {

DurationEntry::DurationEntry(Page& page, Support& support, Recording& recording)
    : NumberEntry(page, support, page.txtDuration, NumberType::Double), recording_(recording)
{
    page.cmbInterval.click = [this] { cmbInterval_click(); };
    page.cmbInterval.gotFocus = [this] { cmbInterval_GotFocus(); };
    page.cmbInterval.lostFocus = [&page] { page.editFlags = editFlag::none; };
}

void DurationEntry::showDuration(double seconds)
{
    ComboBox& units = page().cmbInterval;
    std::int32_t unit = static_cast<std::int32_t>(units.items().size()) - 1;
    while (unit > 0 && !(seconds >= units.items()[static_cast<std::size_t>(unit)].itemData))
        --unit;
    units.select(unit);
    recording_.show(page().txtDuration, numberText(seconds / units.itemData(), support().locale()));
}

NumberBounds DurationEntry::bounds()
{
    return {0.0, double{std::numeric_limits<float>::max()} / unit()};
}

std::optional<double> DurationEntry::held()
{
    return recording_.durationInForce().value;
}

void DurationEntry::accept(const Steps& step, double value)
{
    const auto before = step.value([&] { return std::optional(recording_.durationInForce()); });
    if (before && holds(before->value, value))
        step([&] { show(before->value); });
    else
        write(step, value, before, [this] { showSelected(recording_.durationInForce().value); });
}

bool DurationEntry::write(const Steps& step, double value, const std::optional<Held>& before,
                          const std::function<void()>& putBack)
{
    ScheduleChange change;
    return step([&] { change.duration = toSingle(value * unit()); }) &&
           recording_.commit(step, change, putBack, before);
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
    const std::string& text = page().txtDuration.text();
    const auto value = step.value([&] { return readNumber(support(), text, NumberType::Double, bounds(), true); });
    if (!value) {
        step([&] { unitRefused(); });
        return;
    }
    std::optional<Held> before;
    const bool holds = step.value([&] {
        before = recording_.durationInForce();
        return NumberEntry::holds(before->value, *value);
    });
    if (holds)
        recording_.refreshLabels();
    else
        write(step, *value, before, [this] { unitRefused(); });
}

void DurationEntry::unitRefused()
{
    page().cmbInterval.select(intervalAtFocus_);
    const Scoped guard(page().isUpdating, true);
    showSelected(recording_.durationInForce().value);
}

} // namespace ko
