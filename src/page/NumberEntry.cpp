#include "page/NumberEntry.h"

#include "platform/NumberText.h"
#include "platform/Scoped.h"
#include "platform/Utf8.h"

namespace ko {

NumberEntry::NumberEntry(Page& page, Support& support, TextBox& box, NumberType type)
    : page_(page), support_(support), box_(box),
      type_(type), names_{box.name() + "_GotFocus", box.name() + "_Change", box.name() + "_Validate"}
{
    box.gotFocus = [this] { gotFocus(); };
    box.lostFocus = [this] {
        page_.editFlags = editFlag::none;
        box_.setEscapeText("");
        box_.setEdited(false);
    };
    box.change = [this] { change(); };
    box.validate = [this] { return leave(); };
    box.undo = [this] { undo(); };
}

void NumberEntry::gotFocus()
{
    const Steps step(support_.errors, names_.gotFocus);
    page_.editFlags = editFlag::copy | editFlag::paste;
    focus_ = {box_.text(), page_.listNumber};
    box_.setEdited(false);
    forgetEarlier();
    step([&] {
        const Range range = hintRange();
        setToolTip(page_, support_, range.minimum, range.maximum);
    });
    step([&] { selectAllText(box_); });
}

std::string NumberEntry::text(double value) const
{
    return numberText(value, support_.locale());
}

std::string NumberEntry::textOf(double held) const
{
    return text(shown(held));
}

bool NumberEntry::holds(const std::optional<double>& held, double value) const
{
    if (!held)
        return false;
    try {
        return textOf(*held) == text(value);
    } catch (...) {
        return false;
    }
}

bool NumberEntry::check(bool showMessage)
{
    return !box_.marked() || validateNumber(support_, box_.text(), type_, bounds(), showMessage);
}

/// An earlier text is offered while the box shows another one.
void NumberEntry::followEscape()
{
    const bool isOffered = box_.hasFocus() && focus_.listNumber == page_.listNumber && box_.text() != focus_.text;
    box_.setEscapeText(isOffered ? focus_.text : std::string());
}

void NumberEntry::change()
{
    take();
    followEscape();
}

void NumberEntry::take()
{
    box_.setMarked(false);
    if (page_.isLoading || page_.isUpdating || !isActive()) {
        lastAccepted_ = box_.text();
        return;
    }
    box_.setEdited(true);
    const Steps step(support_.errors, names_.change);
    if (const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), false); }))
        apply(step, *number);
    else
        box_.setMarked(!showsHeld(step));
    if (!box_.marked())
        lastAccepted_ = box_.text();
}

/// The value in force may be outside the bounds for user input.
bool NumberEntry::showsHeld(const Steps& step)
{
    return step.value([&] {
        const std::optional<double> now = held();
        return now && textOf(*now) == box_.text();
    });
}

bool NumberEntry::leave()
{
    if (page_.isLoading || !isActive())
        return true;
    const Steps step(support_.errors, names_.validate);
    if (box_.marked()) {
        const auto number = step.value([&] { return readNumber(support_, box_.text(), type_, bounds(), true); });
        if (!number) {
            refuse(step);
            return false;
        }
        apply(step, *number);
    }
    showInForce(step);
    return true;
}

void NumberEntry::apply(const Steps& step, double value)
{
    const Scoped guard(page_.isUpdating, true);
    box_.setMarked(false);
    accept(step, value);
}

/// The text stays when the value in force cannot be read.
void NumberEntry::refuse(const Steps& step)
{
    const Scoped guard(page_.isUpdating, true);
    std::optional<double> now;
    if (!step([&] {
            now = heldAfterRefusal();
            showSelected(now);
        }))
        selectAllText(box_);
    if (now)
        showElsewhere(step, *now);
}

void NumberEntry::showInForce(const Steps& step)
{
    const Scoped guard(page_.isUpdating, true);
    const auto now = step.value([&] { return held(); });
    if (now) {
        step([&] { box_.setText(textOf(*now)); });
        showElsewhere(step, *now);
    } else if (isNumeric(box_.text(), support_.locale())) {
        // The user may leave "1." unfinished.
        step([&] { box_.setText(text(toDouble(box_.text(), support_.locale()))); });
    }
}

void NumberEntry::undo()
{
    const Steps step(support_.errors, names_.change);
    const Scoped guard(page_.isUpdating, true);
    const bool isRestored = focus_.listNumber == page_.listNumber && writeEarlier(step);
    std::optional<double> now;
    if (!step([&] {
            now = held();
            showSelected(now);
        })) {
        // The value in force cannot be read, so the last accepted text is restored.
        box_.setText(isRestored ? focus_.text : lastAccepted_);
        box_.setMarked(false);
        selectAllText(box_);
    }
    if (now)
        showElsewhere(step, *now);
    if (isRestored)
        restored(step);
    box_.setEdited(false);
}

void NumberEntry::show(double held)
{
    const std::string wanted = textOf(held);
    const bool isWhole = type_ == NumberType::Long;
    if (isWhole ||
        (isNumeric(box_.text(), support_.locale()) && text(toDouble(box_.text(), support_.locale())) == wanted))
        return;
    box_.setText(wanted);
    box_.select(utf8Length(wanted), 0);
}

void NumberEntry::showSelected(std::optional<double> held)
{
    box_.setText(held ? textOf(*held) : "");
    box_.setMarked(false);
    selectAllText(box_);
}

} // namespace ko
