#pragma once

#include "page/Hints.h"
#include "page/Page.h"
#include "support/Steps.h"
#include "support/Validation.h"

#include <optional>

namespace ko {

/// Handles the events of a numeric text box: focus, every change of the text, and leaving. A valid text is written
/// while it is typed; an invalid one is never written, and the box cannot be left with it. Escape restores the value
/// that was in force when the box got the focus, in all drivers, unless another list has been handed over since.
class NumberEntry {
public:
    /// Sets the box's event handlers. Failures are reported under the names of the box and the event:
    /// "txtDuration_Change".
    NumberEntry(Page& page, Support& support, TextBox& box, NumberType type);
    virtual ~NumberEntry() = default;
    NumberEntry(const NumberEntry&) = delete;
    NumberEntry& operator=(const NumberEntry&) = delete;

    [[nodiscard]] const TextBox& box() const { return box_; }

    /// Whether the text is acceptable; when it is not and `showMessage` is true, a message says why. A text that the
    /// page itself set is acceptable, even if a user could not enter it.
    bool check(bool showMessage);

    /// Called before the box is left: shows the value in force. Returns false for an invalid text, which is replaced by
    /// the value in force.
    bool leave();

protected:
    /// The bounds that apply now.
    virtual NumberBounds bounds() = 0;
    /// The number in force, as a driver holds it; none when no driver has a timebase. Failures reach the caller.
    virtual std::optional<double> held() = 0;
    /// The number that replaces a refused text; none for an empty text. Failures reach the caller.
    virtual std::optional<double> heldAfterRefusal() { return held(); }
    /// Converts a number that a driver holds to the number that the box shows. Failures reach the caller.
    [[nodiscard]] virtual double shown(double held) const = 0;
    /// Writes an accepted number, as the box shows it, to each driver that does not hold it (`holds`), and shows the
    /// result with `show`. `step` is the handler's.
    virtual void accept(const Steps& step, double value) = 0;
    /// Called when the box gets the focus: forgets what the drivers held before.
    virtual void forgetEarlier() = 0;
    /// Writes to each driver what it held when the box got the focus, where typing has changed it, without a check of
    /// the limit. Returns whether a write was attempted.
    virtual bool writeEarlier(const Steps& step) = 0;
    /// Called after `writeEarlier` has changed drivers and the box shows the value in force: notifies the host and
    /// updates the derived labels.
    virtual void restored(const Steps& step) = 0;
    /// Shows a number in force in the other controls of the page.
    virtual void showElsewhere(const Steps&, double) {}
    /// The range in the hint; `noRange` in both bounds for none.
    virtual Range hintRange() { return {noRange, noRange}; }
    /// Whether the box's handlers do anything.
    virtual bool isActive() { return true; }

    /// Whether a number that a driver holds is displayed like `value`. A text equal to the displayed number in force
    /// means exactly that number, which need not be written.
    [[nodiscard]] bool holds(const std::optional<double>& held, double value) const;
    /// Shows a number that a driver holds while the user is typing: the text stays if it reads as that number. A box
    /// for integers is rewritten only when it is left.
    void show(double held);
    /// Shows a number that a driver holds (none: empty) with the whole text selected.
    void showSelected(std::optional<double> held);

    [[nodiscard]] Page& page() const { return page_; }
    Support& support() { return support_; }

private:
    void gotFocus();
    void change();
    void take();
    void apply(const Steps& step, double value);
    void refuse(const Steps& step);
    void showInForce(const Steps& step);
    void undo();
    void followEscape();
    [[nodiscard]] bool showsHeld(const Steps& step);
    [[nodiscard]] std::string textOf(double held) const;
    [[nodiscard]] std::string text(double value) const;

    Page& page_;
    Support& support_;
    TextBox& box_; ///< marked while the user's text is not acceptable
    NumberType type_;
    struct {
        std::string gotFocus, change, validate;
    } const names_;            ///< of the handlers
    std::string lastAccepted_; ///< the last text that was acceptable
    struct {
        std::string text;
        std::uint32_t listNumber = 0;
    } focus_; ///< the text, and the list of drivers, when the box got the focus
};

} // namespace ko
