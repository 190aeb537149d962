#pragma once

#include "page/Actions.h"
#include "page/GuardedWrite.h"
#include "page/NumberEntry.h"
#include "timebase/ValueEditors.h"

#include <functional>
#include <memory>

namespace ko {

/// Sample rate, sample period and block size of the driver at `dynamicDriverIndex`, and the span.
class DynamicEditors {
public:
    /// Sets the event handlers of its controls. Referenced objects must outlive the editors.
    DynamicEditors(Page& page, Support& support, Actions& actions);
    ~DynamicEditors();

    /// Builds the rate and period editors for the period in force in seconds (none: unknown) and shows the span.
    void initSampleRateEditors(std::optional<double> period);

    /// Builds the block-size editors for a block size in samples (none: unknown). Returns the block size that is shown.
    std::optional<double> initBlockSizeEditors(std::optional<double> size);

    /// Shows a newly read period and block size where the current ones are unknown.
    void follow(const Steps& step, const std::optional<double>& period, const std::optional<double>& size);

    /// The result of writing a number to the driver.
    struct Written {
        enum class Fate {
            NoDriver,
            Untouched, ///< the driver already holds the number; nothing was written
            Failed,    ///< the write failed
            Kept,      ///< the driver kept its old number
            Accepted,  ///< the driver's number changed, not necessarily to the one written
            Refused    ///< beyond the limit: a message was shown and the old number restored
        };
        Fate fate = Fate::NoDriver;
        std::optional<double> inForce; ///< none when it could not be read
    };

    /// Writes a number to the current driver, unless `holds` is true for the driver's number. `earlier` as for
    /// `GuardedWrite`.
    Written write(const Steps& step, const TimebaseNumber& number, double value,
                  const std::function<bool(const std::optional<double>&)>& holds = {},
                  EarlierValues<NumberSetting>* earlier = nullptr);
    /// Called when the numbers of drivers have been restored: notifies the host and updates the derived labels.
    void restored(const Steps& step, const TimebaseNumber& number);

    /// Shows the span of a sample period in seconds; empty when `period` is none.
    void showSpan(const Steps& step, std::optional<double> period);

    /// The editors' text boxes.
    [[nodiscard]] const std::vector<std::unique_ptr<NumberEntry>>& entries() const { return entries_; }
    /// The periods in the lists, in seconds; none while the boxes are shown.
    [[nodiscard]] const std::vector<double>& periods() const { return periods_.values(); }

private:
    void listClicked(ComboBox& chosen, ValueEditors& editors);
    void choose(const Steps& step, const ComboBox& chosen, ValueEditors& editors);
    void note(const TimebaseNumber& number, double asked, const std::optional<double>& kept);

    Page& page_;
    Support& support_;
    Actions& actions_;
    ValueEditors periods_, blockSizes_;
    std::vector<std::unique_ptr<NumberEntry>> entries_;
};

} // namespace ko
