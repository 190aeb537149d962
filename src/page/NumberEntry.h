#pragma once

#include "page/Page.h"
#include "support/Steps.h"
#include "support/Validation.h"

namespace ko {

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
    /// The number that the box should show: what the driver holds. Failures reach the caller.
    virtual double inForce() = 0;
    /// The number that takes the place of a refused text. Failures reach the caller.
    virtual double afterRefusal() { return inForce(); }
    /// Writes an accepted number and shows what came of it, with `show`. `step` is the handler's.
    virtual void accept(const Steps& step, double value) = 0;
    /// Both ends of the range that the hint names; `noRange` in both for none.
    virtual Range hintRange();
    /// Whether the box's handlers act at all.
    virtual bool isActive() { return true; }

    /// Shows a value in this box, which the user is typing in: the text stays as long as it reads as that value.
    void show(double value);
    /// Shows a value in this box with the whole text selected.
    void showSelected(double value);

    Page& page() { return page_; }
    Support& support() { return support_; }

private:
    void gotFocus();
    void lostFocus();
    void change();
    void apply(const Steps& step, std::optional<double> held, double value);
    void putBack(const Steps& step);
    [[nodiscard]] std::string text(double value) const;

    Page& page_;
    Support& support_;
    TextBox& box_;
    NumberType type_;
    Names names_;
    bool isPending_ = false; ///< the user has put a text into the box that is not applied
};

} // namespace ko
