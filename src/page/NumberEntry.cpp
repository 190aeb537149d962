#include "page/NumberEntry.h"

#include "page/Hints.h"
#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "platform/Utf8.h"

namespace ko {

NumberEntry::NumberEntry(Page& page, Support& support, TextBox& box, NumberType type, Names names)
    : page_(page), support_(support), box_(box), type_(type), names_(names)
{
    box.gotFocus = [this] { gotFocus(); };
    box.lostFocus = [this] { lostFocus(); };
    box.change = [this] { change(); };
    box.validate = [this] { return leave(); };
    box.undo = [this] { putBack(Steps(support_.errors, names_.change)); };
}

Range NumberEntry::hintRange()
{
    return {noRange, noRange};
}

void NumberEntry::gotFocus()
{
    const Steps step(support_.errors, names_.gotFocus);
    page_.editFlags = editFlag::copy | editFlag::paste;
    step([&] {
        const Range range = hintRange();
        setToolTip(page_, support_, range.minimum, range.maximum);
    });
    step([&] { selectAllText(box_); });
}

void NumberEntry::lostFocus()
{
    page_.editFlags = editFlag::none;
}

std::string NumberEntry::text(double value) const
{
    return numberText(value, support_.locale());
}

bool NumberEntry::check(bool showMessage)
{
    return !isPending_ || validateNumber(support_, box_.text(), type_, bounds(), showMessage);
}

void NumberEntry::change()
{
    isPending_ = false;
    if (page_.isLoading || page_.isUpdating || !isActive())
        return;
    const Steps step(support_.errors, names_.change);
    const auto held = step.value([&] { return std::optional(inForce()); });
    const bool standsForIt = held && box_.text() == text(*held);
    const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), false); });
    isPending_ = !number && !standsForIt;
    box_.setMarked(isPending_);
    if (number)
        apply(step, held, *number);
}

bool NumberEntry::leave()
{
    if (page_.isLoading || !isActive())
        return true;
    const Steps step(support_.errors, names_.validate);
    if (isPending_) {
        const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), true); });
        if (!number) {
            putBack(step);
            return false;
        }
        apply(step, step.value([&] { return std::optional(inForce()); }), *number);
    }
    // "1." was on the way to "1.5".
    step([&] {
        const Scoped guard(page_.isUpdating, true);
        if (isNumeric(box_.text(), support_.locale()))
            box_.setText(text(toDouble(box_.text(), support_.locale())));
    });
    return true;
}

void NumberEntry::apply(const Steps& step, std::optional<double> held, double value)
{
    const Scoped guard(page_.isUpdating, true);
    // A text that reads as the value in force stands for exactly that value: nothing is to be written.
    if (held && text(*held) == text(value))
        step([&] { show(*held); });
    else
        accept(step, value);
}

void NumberEntry::putBack(const Steps& step)
{
    step([&] {
        const Scoped guard(page_.isUpdating, true);
        showSelected(afterRefusal());
    });
}

void NumberEntry::show(double value)
{
    const std::string shown = text(value);
    if (isNumeric(box_.text(), support_.locale()) && text(toDouble(box_.text(), support_.locale())) == shown)
        return;
    box_.setText(shown);
    box_.select(utf8Length(shown), 0);
}

void NumberEntry::showSelected(double value)
{
    box_.setText(text(value));
    box_.setMarked(false);
    isPending_ = false;
    selectAllText(box_);
}

} // namespace ko
