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

bool NumberEntry::check(bool showMessage)
{
    return validateNumber(support_, box_.text(), type_, bounds(), showMessage);
}

void NumberEntry::change()
{
    if (page_.isLoading || page_.isUpdating || !isActive())
        return;
    const Steps step(support_.errors, names_.change);
    const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), false); });
    box_.setMarked(!number);
    if (number)
        apply(step, *number);
}

bool NumberEntry::leave()
{
    if (page_.isLoading || !isActive())
        return true;
    const Steps step(support_.errors, names_.validate);
    const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), true); });
    if (!number) {
        putBack(step);
        return false;
    }
    apply(step, *number);
    step([&] {
        const Scoped guard(page_.isUpdating, true);
        box_.setText(numberText(inForce(), support_.locale()));
    });
    return true;
}

void NumberEntry::apply(const Steps& step, double value)
{
    const Scoped guard(page_.isUpdating, true);
    const auto holds = step.value([&] { return std::optional(inForce()); });
    const auto text = [&](double number) { return numberText(number, support_.locale()); };
    // A text that reads as the value in force stands for exactly that value: nothing is to be written.
    if (holds && text(*holds) == text(value))
        step([&] { show(*holds); });
    else
        accept(step, value);
}

void NumberEntry::putBack(const Steps& step)
{
    step([&] {
        const Scoped guard(page_.isUpdating, true);
        showSelected(inForce());
    });
}

void NumberEntry::show(double value)
{
    const std::string text = numberText(value, support_.locale());
    if (isNumeric(box_.text(), support_.locale()) &&
        numberText(toDouble(box_.text(), support_.locale()), support_.locale()) == text)
        return;
    box_.setText(text);
    box_.select(utf8Length(text), 0);
}

void NumberEntry::showSelected(double value)
{
    box_.setText(numberText(value, support_.locale()));
    box_.setMarked(false);
    selectAllText(box_);
}

} // namespace ko
