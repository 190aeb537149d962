#pragma once

#include "page/Hints.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Validation.h"

#include <optional>

namespace ko {

/// A numeric text box of the page and its three moments: getting the focus, every change of the text, and being
/// left. A valid text is written as it is typed; an invalid one is written never, and the box is not left with it.
class NumberEntry {
public:
    /// Takes over the box's events. Failures are reported under the box's name and the event's: "txtDuration_Change".
    NumberEntry(Page& page, Support& support, TextBox& box, NumberType type);
    virtual ~NumberEntry() = default;
    NumberEntry(const NumberEntry&) = delete;
    NumberEntry& operator=(const NumberEntry&) = delete;

    [[nodiscard]] const TextBox& box() const { return box_; }

    /// Whether the text is acceptable; when it is not and `showMessage` is true, the user is told why. What the page
    /// itself shows in the box is acceptable, also where no user may enter it.
    bool check(bool showMessage);

    /// The box is about to be left: shows the value in force. An invalid text is refused: the value in force takes its
    /// place, and the result is false.
    bool leave();

protected:
    /// What the box accepts now.
    virtual NumberBounds bounds() = 0;
    /// The number in force, as a driver holds it; none where no driver has a timebase. Failures reach the caller.
    virtual std::optional<double> held() = 0;
    /// The number that replaces a refused text; none: an empty text does. Failures reach the caller.
    virtual std::optional<double> heldAfterRefusal() { return held(); }
    /// The number that the box shows for one that a driver holds. Failures reach the caller.
    [[nodiscard]] virtual double shown(double held) const = 0;
    /// Writes an accepted number, as the box shows it, to each driver that does not hold it (`holds`), and shows the
    /// outcome with `show`. `step` is the handler's.
    virtual void accept(const Steps& step, double value) = 0;
    /// Shows a number in force wherever else the page shows it.
    virtual void showElsewhere(const Steps&, double) {}
    /// Both ends of the range that the hint names; `noRange` in both for none.
    virtual Range hintRange() { return {noRange, noRange}; }
    /// Whether the box's handlers act at all.
    virtual bool isActive() { return true; }

    /// Whether a number that a driver holds reads as `value` in the box: a text that reads as the number in force
    /// means exactly that number, so that it need not be written.
    [[nodiscard]] bool holds(const std::optional<double>& held, double value) const;
    /// Shows a number that a driver holds in this box, which the user is typing in: the text stays as long as it
    /// reads as that number. A box for whole numbers is rewritten only when it is left.
    void show(double held);
    /// Shows a number that a driver holds (none: nothing) in this box with the whole text selected.
    void showSelected(std::optional<double> held);

    [[nodiscard]] Page& page() const { return page_; }
    Support& support() { return support_; }

private:
    void gotFocus();
    void change();
    void apply(const Steps& step, double value);
    void refuse(const Steps& step);
    void showInForce(const Steps& step);
    void undo();
    [[nodiscard]] bool standsForHeld(const Steps& step);
    [[nodiscard]] std::string textOf(double held) const;
    [[nodiscard]] std::string text(double value) const;

    Page& page_;
    Support& support_;
    TextBox& box_; ///< marked while the user's text in it is not acceptable
    NumberType type_;
    struct {
        std::string gotFocus, change, validate;
    } const names_;            ///< of the handlers
    std::string lastAccepted_; ///< the last text that was acceptable
};

} // namespace ko
