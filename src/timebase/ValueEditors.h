#pragma once

#include "page/Quantities.h"
#include "support/Steps.h"
#include "support/Support.h"
#include "timebase/ChoiceLists.h"

#include <optional>
#include <vector>

namespace ko {

/// The controls that show one number of the timebases, each quantity in its own form: parallel lists where the drivers
/// share choices, else text boxes.
class ValueEditors {
public:
    /// Everything passed in outlives the editors.
    ValueEditors(Page& page, Support& support, const TimebaseNumber& number)
        : page_(page), support_(support), number_(number)
    {
    }

    [[nodiscard]] const TimebaseNumber& number() const { return number_; }

    /// Merges what the drivers offer, reporting failures under `procedure`, and shows the lists or the boxes with the
    /// number in force (none: not known). They are disabled where no driver has a timebase to be written, and boxes
    /// where the range lets nothing through.
    void build(std::string_view procedure, std::optional<double> inForce);

    /// The number of a list entry, which its text shows to 15 digits. Failure 9 for no entry.
    [[nodiscard]] double valueAt(std::int32_t entry) const;
    /// The numbers of the entries; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& values() const { return values_; }

    /// The entry that was selected last by the program or accepted; -1 for none.
    [[nodiscard]] std::int32_t selected() const { return selected_; }
    /// Selects an entry in all lists.
    void select(std::int32_t entry);
    /// Selects the entry of a number in all lists: the equal one, for periods else one that differs by less than 1e-12
    /// or reads the same. Where there is none, or the number is not known, all take `otherwise`.
    void selectValue(std::optional<double> value, std::int32_t otherwise);

    /// Shows a number in all boxes but the one that the user is typing in (or null).
    void showInBoxes(const Steps& step, double value, const TextBox* typedIn);

    /// A number that could not be read back may differ from what is shown. Cleared when the number is shown.
    void markUnknown() { isUnknown_ = true; }
    [[nodiscard]] bool isUnknown() const { return isUnknown_; }
    /// Shows a number that has just been read where the one shown is not known, but in the box with the focus.
    void follow(const Steps& step, const std::optional<double>& value);

private:
    [[nodiscard]] MergedChoices mergeOffers(std::string_view procedure) const;
    [[nodiscard]] bool canBeWritten() const;
    [[nodiscard]] bool accepts(const Quantity& quantity) const;
    [[nodiscard]] std::int32_t loadedEntry(const std::optional<double>& inForce) const;
    [[nodiscard]] std::int32_t entryOf(double value) const;
    void fillLists();
    [[nodiscard]] std::string text(double value) const;

    Page& page_;
    Support& support_;
    const TimebaseNumber& number_;
    std::vector<double> values_;
    std::int32_t selected_ = -1;
    bool isUnknown_ = false;
};

} // namespace ko
