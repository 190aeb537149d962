#pragma once

#include "interfaces/Driver.h"

#include <memory>
#include <vector>

namespace ko {

/// An ordered list of drivers. The document shares ownership of each driver while it holds the list; an empty
/// pointer is a missing driver.
using DriverList = std::vector<std::shared_ptr<Driver>>;

/// Passes the driver list to the document. All calls are made on the user-interface thread; none throws.
class IKopDrivers {
public:
    /// Announces the number of drivers in the next list. Must be called before `setDrivers`.
    virtual void setNumberOfDrivers(std::int32_t count) = 0;

    /// False from `setDrivers` until the page has been rebuilt for the new list.
    virtual bool HasProcessedDriverChanges() = 0;

    /// Sets the list; the document copies the announced number of entries. A shown page is rebuilt at once or, when
    /// called from inside a call that the document makes, as soon as the event in progress has returned. A value that
    /// this event wrote and that is refused is then restored in the drivers that are also in the new list.
    virtual void setDrivers(const DriverList& drivers) = 0;

    /// Notifies the document that the drivers' settings were changed from outside: it captures their start and stop
    /// settings again, unless the page is read-only.
    virtual void DriversHaveChanged() = 0;

protected:
    ~IKopDrivers() = default;
};

} // namespace ko
