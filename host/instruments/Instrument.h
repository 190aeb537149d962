#pragma once

#include "host/instruments/Acquisition.h"
#include "host/instruments/InstrumentSettings.h"
#include "interfaces/Driver.h"

namespace ko {

/// An instrument: the driver that the page edits, its settings as a set-up file keeps them, and the acquisition. All
/// members are called on the user-interface thread. They keep settings and do not wait for a device; a slow device gets
/// them when it is armed. Any member may fail with a `Failure` or another `std::exception`.
class Instrument {
public:
    virtual ~Instrument() = default;

    /// The driver with its views, for the page. The instrument owns it.
    [[nodiscard]] virtual Driver& driver() = 0;

    /// Returns the present settings, valid until the next call of another member or of the driver. Calls no driver
    /// operation.
    [[nodiscard]] virtual const InstrumentSettings& held() const = 0;

    /// Takes these settings, as `held` has returned them, without rounding. The driver and its views stay the same
    /// objects. Fails with a `Failure`, and keeps its settings, if it cannot take them, for example without a view that
    /// they have.
    virtual void restore(const InstrumentSettings& settings) = 0;

    /// The acquiring side; null if the instrument has no timebase. The instrument owns it.
    [[nodiscard]] virtual Acquisition* acquisition() = 0;

    [[nodiscard]] const std::string& name() const { return held().name; }
};

} // namespace ko
