#pragma once

#include "page/NumberEntry.h"
#include "timebase/ValueEditors.h"

namespace ko {

/// A text box that edits a quantity.
class QuantityEntry : public NumberEntry {
public:
    /// Everything passed in outlives the entry; `editors` show the quantity's number.
    QuantityEntry(Page& page, Support& support, const Quantity& quantity, ValueEditors& editors)
        : NumberEntry(page, support, page.*quantity.box, quantity.type), quantity_(quantity), editors_(editors)
    {
    }

protected:
    NumberBounds bounds() override { return quantity_.bounds(page()); }
    std::optional<double> held() override;
    double shown(double held) const override { return quantity_.shown(held); }
    void showElsewhere(const Steps& step, double held) override { editors_.showInBoxes(step, held, &box()); }
    /// Numbers that all drivers share name their range.
    Range hintRange() override;

    /// Shows in this box and elsewhere what came of a typed number: `inForce` as read back, none when that failed;
    /// the other boxes then show what was requested.
    void showOutcome(const Steps& step, std::optional<double> inForce, double requested, bool refused);

    [[nodiscard]] const Quantity& quantity() const { return quantity_; }

private:
    const Quantity& quantity_;
    ValueEditors& editors_;
};

} // namespace ko
