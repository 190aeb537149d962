#pragma once

#include "page/Page.h"
#include "support/Steps.h"
#include "support/Validation.h"

#include <optional>

namespace ko {

/// A number as a driver holds it, and the timebase that holds it; none for a number that the page keeps itself.
struct Held {
    double value = 0.0;
    const Timebase* of = nullptr;
};

/// A numeric text box of the page and its three moments: getting the focus, every change of the text, and being
/// left. A valid text is written as it is typed; an invalid one is written never, and the box is not left with it.
class NumberEntry {
public:
    /// The handlers' names, as failures are reported under them.
    struct Names {
        std::string_view gotFocus, lostFocus, change, validate;
    };

    /// Takes over the box's events.
    NumberEntry(Page& page, Support& support, TextBox& box, NumberType type, Names names);
    virtual ~NumberEntry() = default;
    NumberEntry(const NumberEntry&) = delete;
    NumberEntry& operator=(const NumberEntry&) = delete;

    [[nodiscard]] const TextBox& box() const { return box_; }

    /// Whether the text is acceptable; when it is not and `showMessage` is true, the user is told why. What the page
    /// itself shows in the box is acceptable, also where no user may enter it.
    bool check(bool showMessage);

    /// The box is about to be left: applies a valid text that is not applied yet; shows the value in force and answers
    /// false for an invalid one.
    bool leave();

protected:
    /// What the box accepts now.
    virtual NumberBounds bounds() = 0;
    /// The number in force; none where no driver has a timebase. Failures reach the caller.
    virtual std::optional<Held> held() = 0;
    /// The number that takes the place of a refused text; none: an empty text does. Failures reach the caller.
    virtual std::optional<double> heldAfterRefusal();
    /// The number that the box shows for one that a driver holds.
    [[nodiscard]] virtual double shown(double held) const = 0;
    /// Writes an accepted number, as the box shows it, and shows what came of it with `show`. `before` is what was in
    /// force, none when it could not be read. `step` is the handler's.
    virtual void accept(const Steps& step, double value, const std::optional<Held>& before) = 0;
    /// Both ends of the range that the hint names; `noRange` in both for none.
    virtual Range hintRange();
    /// Whether the box's handlers act at all.
    virtual bool isActive() { return true; }

    /// Shows a number that a driver holds in this box, which the user is typing in: the text stays as long as it
    /// reads as that number.
    void show(double held);
    /// Shows a number that a driver holds (none: nothing) in this box with the whole text selected.
    void showSelected(std::optional<double> held);
    /// The text that stands for a number that a driver holds.
    [[nodiscard]] std::string textOf(double held) const;

    [[nodiscard]] Page& page() const { return page_; }
    Support& support() { return support_; }

private:
    struct InForce {
        Held held;
        std::string text; ///< what stands for it in the box
    };

    void gotFocus();
    void lostFocus();
    void change();
    [[nodiscard]] std::optional<InForce> inForce();
    void apply(const Steps& step, const std::optional<InForce>& before, double value);
    void undo();
    void putBack(std::optional<double> value);
    [[nodiscard]] std::string text(double value) const;

    Page& page_;
    Support& support_;
    TextBox& box_;
    NumberType type_;
    Names names_;
    bool isPending_ = false; ///< the user has put a text into the box that is not applied
};

} // namespace ko
