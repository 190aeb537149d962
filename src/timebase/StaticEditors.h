#pragma once

#include "page/Actions.h"
#include "page/NumberEntry.h"
#include "timebase/ValueEditors.h"
#include "timebase/WriteToAll.h"

#include <functional>
#include <memory>

namespace ko {

/// Scan rate and scan period, one setting for all drivers.
class StaticEditors {
public:
    /// Sets the event handlers of its controls. Referenced objects must outlive the editors.
    StaticEditors(Page& page, Support& support, Actions& actions);
    ~StaticEditors();

    /// Builds the editors for the scan period in force in seconds (none: unknown), which this driver holds.
    void initScanRateEditors(std::int32_t driver, std::optional<double> scanPeriod);

    /// Reads and shows the scan period when the one shown is unknown.
    void follow(const Steps& step);

    /// Notifies the host, then writes the scan period to every driver that has a timebase, except those for whose
    /// period `holds` is true. Does nothing, not even notify, when that is so for every driver. `earlier` as for
    /// `GuardedWrite`. Reports its own failures.
    WrittenToAll setDriversScanRate(double newScanPeriod,
                                    const std::function<bool(const std::optional<double>&)>& holds = {},
                                    EarlierValues<NumberSetting>* earlier = nullptr);
    /// Called when the scan periods of drivers have been restored: notifies the host and updates the derived labels.
    void restored(const Steps& step);

    /// Writes the scan period to every driver that does not hold it, and shows what the drivers then hold.
    void setAll(const Steps& step, double seconds);

    /// Writes the scan period that the editors were built for, and shows what the drivers then hold.
    void pushLoaded(double seconds);
    /// The same without writing.
    void readLoaded(double seconds);

    /// The editors' text boxes.
    [[nodiscard]] const std::vector<std::unique_ptr<NumberEntry>>& entries() const { return entries_; }
    /// The periods in the lists, in seconds; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& periods() const { return periods_.values(); }
    [[nodiscard]] ValueEditors& editors() { return periods_; }

private:
    void choose(const ComboBox& chosen);
    void showLoaded(const Steps& step, double seconds, const std::optional<double>& last);

    Page& page_;
    Support& support_;
    Actions& actions_;
    ValueEditors periods_;
    std::vector<std::unique_ptr<NumberEntry>> entries_;
};

} // namespace ko
