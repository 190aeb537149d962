#pragma once

#include "page/NumberEntry.h"
#include "schedule/Recording.h"

namespace ko {

/// `txtDuration` and the list of its units, `cmbInterval`.
class DurationEntry : public NumberEntry {
public:
    DurationEntry(Page& page, Support& support, Recording& recording);

    /// Shows a duration, given in seconds, in the largest unit that is not longer than it; an unknown one as an empty
    /// box with the unit seconds. Failures reach the caller.
    void showDuration(std::optional<double> seconds);

protected:
    NumberBounds bounds() override;
    std::optional<double> held() override;
    double shown(double seconds) const override { return seconds / unit(); }
    std::optional<double> heldAfterRefusal() override;
    void accept(const Steps& step, double value) override;
    void showElsewhere(const Steps& step, double seconds) override { recording_.follow(step, seconds); }
    void forgetEarlier() override { earlier_.clear(); }
    bool writeEarlier(const Steps& step) override { return earlier_.writeBack(step); }
    void restored(const Steps& step) override { recording_.restored(step); }
    bool isActive() override { return page().optAfter.value(); }

private:
    void cmbInterval_click();
    void cmbInterval_GotFocus();
    void unitRefused(std::optional<double> seconds);
    /// The length of the chosen unit in seconds. Failure 5 when none is chosen.
    [[nodiscard]] std::int32_t unit() const { return page().cmbInterval.itemData(); }
    std::optional<Recording::Result> write(const Steps& step, double value, const std::function<void()>& putBack,
                                           EarlierValues<StartStopSettings>* earlier = nullptr);

    Recording& recording_;
    EarlierValues<StartStopSettings> earlier_;
    std::int32_t intervalAtFocus_ = 0;
};

} // namespace ko
