#pragma once

#include "host/instruments/Acquisition.h"
#include "host/instruments/InstrumentSettings.h"
#include "interfaces/Driver.h"

namespace ko {

/// An instrument as the host sees it: the driver that the page edits, its settings as a set-up file keeps them, and the
/// acquisition. All members are called on the user-interface thread.
class Instrument {
public:
    virtual ~Instrument() = default;

    [[nodiscard]] virtual const std::string& name() const = 0;

    /// The driver with its views, for the page. The instrument owns it.
    [[nodiscard]] virtual Driver& driver() = 0;

    /// Returns the present settings. Calls no driver operation.
    [[nodiscard]] virtual InstrumentSettings settings() const = 0;

    /// Brings the instrument back to what `settings` has returned. The driver and its views stay the same objects.
    /// Fails with a `Failure` if the instrument does not take the settings.
    virtual void restore(const InstrumentSettings& settings) = 0;

    /// The acquiring side; null if the instrument has no timebase. The instrument owns it.
    [[nodiscard]] virtual Acquisition* acquisition() = 0;
};

} // namespace ko
