#pragma once

#include "page/Actions.h"
#include "page/GuardedWrite.h"
#include "page/NumberEntry.h"
#include "timebase/ValueEditors.h"

#include <functional>
#include <memory>

namespace ko {

/// Scan rate and scan period, one setting for all drivers.
class StaticEditors {
public:
    /// Sets the event handlers of its controls. Referenced objects must outlive the editors.
    StaticEditors(Page& page, Support& support, Actions& actions);
    ~StaticEditors();

    /// Builds the editors for the scan period in force in seconds (none: unknown).
    void initScanRateEditors(std::optional<double> scanPeriod);

    /// Reads and shows the scan period when the one shown is unknown.
    void follow(const Steps& step);

    /// The result of writing a scan period to all drivers.
    struct ScanPeriod {
        std::optional<double> inForce; ///< read back from the last driver with a timebase, in seconds
        bool rejected = false;         ///< beyond the limit: a message was shown, and every driver has its old period
        bool written = false;          ///< at least one driver accepted the write
    };

    /// Notifies the host, then writes the scan period to every driver that has a timebase, except those for whose
    /// period `holds` is true. Does nothing, not even notify, when that is so for every driver. `earlier` as
    /// for `GuardedWrite`. Reports its own failures.
    ScanPeriod setDriversScanRate(double newScanPeriod,
                                  const std::function<bool(const std::optional<double>&)>& holds = {},
                                  EarlierValues<NumberSetting>* earlier = nullptr);
    /// Called when the scan periods of drivers have been restored: notifies the host and updates the derived labels.
    void restored(const Steps& step);

    /// Writes the scan period that the editors were built for, and shows what the drivers then hold.
    void pushLoaded(double seconds);

    /// The editors' text boxes.
    [[nodiscard]] const std::vector<std::unique_ptr<NumberEntry>>& entries() const { return entries_; }
    /// The periods in the lists, in seconds; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& periods() const { return periods_.values(); }

private:
    void choose(const ComboBox& chosen);
    void noteRestored(const GuardedWrite<NumberSetting>& guarded);

    Page& page_;
    Support& support_;
    Actions& actions_;
    ValueEditors periods_;
    std::vector<std::unique_ptr<NumberEntry>> entries_;
};

} // namespace ko
