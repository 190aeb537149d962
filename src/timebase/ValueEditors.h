#pragma once

#include "page/Actions.h"
#include "page/Quantities.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "timebase/ChoiceLists.h"

#include <optional>
#include <vector>

namespace ko {

/// The controls that show one number of the timebases, one pair for each quantity: parallel lists when the drivers
/// share discrete values, else text boxes.
class ValueEditors {
public:
    /// Referenced objects must outlive the editors.
    ValueEditors(Page& page, Support& support, Actions& actions, const TimebaseNumber& number)
        : page_(page), support_(support), actions_(actions), number_(number)
    {
    }

    [[nodiscard]] const TimebaseNumber& number() const { return number_; }

    /// Merges the drivers' offers, reporting failures under `procedure`, and shows the lists or the boxes with the
    /// number in force, which `driver` holds (none: unknown). They are disabled when no driver has a timebase to write
    /// to, and boxes also when the range accepts nothing.
    void build(std::string_view procedure, std::int32_t driver, std::optional<double> inForce);

    /// The exact number of a list entry, whose text has only 15 digits. Failure 9 when there is no such entry.
    [[nodiscard]] double valueAt(std::int32_t entry) const;
    /// The numbers of the entries; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& values() const { return values_; }

    /// The entry that the program last selected or accepted; -1 for none.
    [[nodiscard]] std::int32_t selected() const { return selected_; }
    /// Selects an entry in all lists.
    void select(std::int32_t entry);
    /// Selects the entry of a number in all lists: the equal one or, for periods, one that differs by less than 1e-12
    /// or has the same text. Selects `otherwise` when there is none or the number is unknown.
    void selectValue(std::optional<double> value, std::int32_t otherwise);

    /// Selects an entry that the drivers may not hold.
    void keep(std::int32_t entry);
    /// Shows the number in force, none for unknown, after a write that was not made with these editors.
    void showInForce(const Steps& step, std::optional<double> value);
    /// The number that a user's number means: the one shown, or an entry's, if it is displayed alike. Failures reach
    /// the caller.
    [[nodiscard]] double exactNumber(const Quantity& quantity, double entered) const;

    /// Shows a number in all boxes except the one that the user is typing in (may be null).
    void showInBoxes(const Steps& step, double value, const TextBox* typedIn);

    /// Marks the number as unknown because it could not be read back and may differ from the one shown. Cleared when a
    /// number is shown.
    void markUnknown() { isUnknown_ = true; }
    [[nodiscard]] bool isUnknown() const { return isUnknown_; }
    /// Shows a newly read number when the current one is unknown, except in the focused box.
    void follow(const Steps& step, const std::optional<double>& value);

private:
    [[nodiscard]] MergedChoices mergeOffers(std::string_view procedure) const;
    [[nodiscard]] bool canBeWritten() const;
    [[nodiscard]] bool accepts(const Quantity& quantity) const;
    [[nodiscard]] std::int32_t loadedEntry(const std::optional<double>& inForce) const;
    [[nodiscard]] std::int32_t entryOf(double value) const;
    void fillLists();
    [[nodiscard]] std::string text(double value) const;
    void noteShown(std::optional<double> value);

    Page& page_;
    Support& support_;
    Actions& actions_;
    const TimebaseNumber& number_;
    std::vector<double> values_;
    std::int32_t selected_ = -1;
    bool isUnknown_ = false;
};

} // namespace ko
