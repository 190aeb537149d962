#pragma once

#include "page/Actions.h"
#include "page/NumberEntry.h"
#include "timebase/RatePeriodPair.h"

#include <memory>

namespace ko {

/// Scan rate and scan period, one setting that all drivers share.
class StaticEditors {
public:
    /// Takes over the events of its controls. Everything passed in outlives the editors.
    StaticEditors(Page& page, Support& support, Actions& actions);
    ~StaticEditors();

    /// Builds the editors for the scan period in force in seconds (none: not known).
    void initScanRateEditors(std::optional<double> scanPeriod);

    /// The result of writing a scan period to all drivers.
    struct ScanPeriod {
        std::optional<double> inForce; ///< read back from the last driver with a timebase, in seconds
        bool rejected = false;         ///< beyond the limit: the user was told, every driver has its old period
    };

    /// Writes one scan period to every driver that offers a timebase. Reports its own failures. A period that is known
    /// to be held is not read again.
    ScanPeriod setDriversScanRate(double newScanPeriod, const std::optional<Held>& known = {});

    /// Pushes the scan period that the editors were built for, and shows what the drivers made of it.
    void pushLoaded(double seconds);

    /// Pushes a typed period to the drivers and shows in both boxes what came of it, but not in `typedIn`.
    ScanPeriod pushTyped(const Steps& step, double seconds, const std::optional<Held>& before, const TextBox& typedIn);

    /// The editors' text boxes.
    [[nodiscard]] const std::vector<std::unique_ptr<NumberEntry>>& entries() const { return entries_; }
    /// The periods in the lists, in seconds; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& periods() const { return pair_.periods(); }

private:
    void cmbScanRate_Click();
    void cmbScanPeriod_Click();
    void choose(const Steps& step, const ComboBox& chosen, ComboBox& partner);
    /// Gives each driver back what it had; what the last of them holds then.
    std::optional<double> putBackScanPeriods(const Steps& step);
    /// Calls `visit(timebase, index)` for each driver with a timebase.
    template <class Visit> void forEachTimebase(const Steps& step, Visit visit);

    Page& page_;
    Support& support_;
    Actions& actions_;
    RatePeriodPair pair_;
    std::vector<std::unique_ptr<NumberEntry>> entries_;
    std::vector<std::optional<double>> before_; ///< kept between calls only for its capacity
};

} // namespace ko
