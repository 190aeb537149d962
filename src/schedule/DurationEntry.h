#pragma once

#include "page/NumberEntry.h"
#include "schedule/Recording.h"

namespace ko {

/// `txtDuration` and the list of its units, `cmbInterval`.
class DurationEntry : public NumberEntry {
public:
    DurationEntry(Page& page, Support& support, Recording& recording);

    /// Shows a duration in seconds in the largest unit that fits. Failures reach the caller.
    void showDuration(double seconds);

protected:
    NumberBounds bounds() override;
    std::optional<double> held() override;
    double shown(double seconds) const override { return seconds / unit(); }
    std::optional<double> heldAfterRefusal() override;
    void accept(const Steps& step, double value) override;
    bool isActive() override { return page().optAfter.value(); }

private:
    void cmbInterval_click();
    void cmbInterval_GotFocus();
    void unitRefused(double seconds);
    /// The length of the unit that is chosen, in seconds. Failure 5 when none is.
    [[nodiscard]] std::int32_t unit() const { return page().cmbInterval.itemData(); }
    std::optional<Recording::Result> write(const Steps& step, double value, const std::function<void()>& putBack);

    Recording& recording_;
    std::int32_t intervalAtFocus_ = 0;
};

} // namespace ko
