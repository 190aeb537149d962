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
    box.undo = [this] { undo(); };
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
    const auto before = step.value([&] { return inForce(); });
    const bool standsForIt = before && box_.text() == before->text;
    const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), false); });
    isPending_ = !number && !standsForIt;
    box_.setMarked(isPending_);
    if (number)
        apply(step, before, *number);
}

bool NumberEntry::leave()
{
    if (page_.isLoading || !isActive())
        return true;
    const Steps step(support_.errors, names_.validate);
    if (isPending_) {
        const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), true); });
        if (!number) {
            step([&] { putBack(heldAfterRefusal()); });
            return false;
        }
        apply(step, step.value([&] { return inForce(); }), *number);
    }
    // "1." was on the way to "1.5".
    step([&] {
        const Scoped guard(page_.isUpdating, true);
        if (isNumeric(box_.text(), support_.locale()))
            box_.setText(text(toDouble(box_.text(), support_.locale())));
    });
    return true;
}

std::optional<double> NumberEntry::heldAfterRefusal()
{
    const std::optional<Held> now = held();
    return now ? std::optional(now->value) : std::nullopt;
}

std::optional<NumberEntry::InForce> NumberEntry::inForce()
{
    const std::optional<Held> now = held();
    return now ? std::optional(InForce{*now, textOf(now->value)}) : std::nullopt;
}

void NumberEntry::apply(const Steps& step, const std::optional<InForce>& before, double value)
{
    const Scoped guard(page_.isUpdating, true);
    // A text that reads as the value in force stands for exactly that value: nothing is to be written.
    if (before && before->text == text(value))
        step([&] { show(before->held.value); });
    else
        accept(step, value, before ? std::optional(before->held) : std::nullopt);
}

void NumberEntry::undo()
{
    const Steps step(support_.errors, names_.change);
    step([&] {
        const std::optional<Held> now = held();
        putBack(now ? std::optional(now->value) : std::nullopt);
    });
}

void NumberEntry::putBack(std::optional<double> value)
{
    const Scoped guard(page_.isUpdating, true);
    showSelected(value);
}

std::string NumberEntry::textOf(double held) const
{
    return text(shown(held));
}

void NumberEntry::show(double held)
{
    const std::string wanted = textOf(held);
    if (isNumeric(box_.text(), support_.locale()) && text(toDouble(box_.text(), support_.locale())) == wanted)
        return;
    box_.setText(wanted);
    box_.select(utf8Length(wanted), 0);
}

void NumberEntry::showSelected(std::optional<double> held)
{
    box_.setText(held ? textOf(*held) : "");
    box_.setMarked(false);
    isPending_ = false;
    selectAllText(box_);
}

} // namespace ko
