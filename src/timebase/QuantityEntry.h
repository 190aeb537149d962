#pragma once

#include "page/EarlierValues.h"
#include "page/NumberEntry.h"
#include "timebase/ValueEditors.h"

namespace ko {

/// A text box that edits a quantity.
class QuantityEntry : public NumberEntry {
public:
    /// Referenced objects must outlive the entry; `editors` show the quantity's number.
    QuantityEntry(Page& page, Support& support, const Quantity& quantity, ValueEditors& editors)
        : NumberEntry(page, support, page.*quantity.box, quantity.type), quantity_(quantity), editors_(editors),
          earlier_(page)
    {
    }

protected:
    NumberBounds bounds() override { return quantity_.bounds(page()); }
    std::optional<double> held() override;
    double shown(double held) const override { return quantity_.shown(held); }
    void showElsewhere(const Steps& step, double held) override { editors_.showInBoxes(step, held, &box()); }
    void forgetEarlier() override { earlier_.clear(); }
    bool writeEarlier(const Steps& step) override { return earlier_.writeBack(step); }
    /// Only numbers that are written to every driver show their range.
    Range hintRange() override;

    /// The result of writing a typed number.
    struct Result {
        std::optional<double> inForce; ///< as read back; none when that failed
        double requested = 0.0;
        bool written = false; ///< at least one driver accepted the write
        bool refused = false; ///< beyond the limit
    };
    /// Shows the result in this box and the other controls. The other boxes show the requested number when a driver
    /// accepted it but could not be read back.
    void show(const Steps& step, const Result& result);

    [[nodiscard]] const Quantity& quantity() const { return quantity_; }
    [[nodiscard]] EarlierValues<NumberSetting>& earlier() { return earlier_; }

private:
    const Quantity& quantity_;
    ValueEditors& editors_;
    EarlierValues<NumberSetting> earlier_;
};

} // namespace ko
