#pragma once

#include "interfaces/Driver.h"

#include <memory>
#include <vector>

namespace ko {

/// An ordered list of drivers. The document shares ownership of each driver while it holds the list; an empty
/// pointer is a missing driver.
using DriverList = std::vector<std::shared_ptr<Driver>>;

/// Hand-over of the driver list to the document. All calls on the user-interface thread; none ever throws.
class IKopDrivers {
public:
    /// Announces how many drivers the next list holds. Required before `setDrivers`.
    virtual void setNumberOfDrivers(std::int32_t count) = 0;

    /// False from the moment a list arrives until the page has taken it in.
    virtual bool HasProcessedDriverChanges() = 0;

    /// Hands the list over; the document copies as many entries as were announced. A shown page is rebuilt: at once,
    /// or, from inside a call that the document makes, as soon as the event in progress has returned. A value that this
    /// event had written and that is refused is put back in the drivers that are in the new list, too.
    virtual void setDrivers(const DriverList& drivers) = 0;

    /// Tells the document that the drivers' settings were changed by somebody else: it notes their start and
    /// stop settings anew, unless the page is read-only.
    virtual void DriversHaveChanged() = 0;

protected:
    ~IKopDrivers() = default;
};

} // namespace ko
