#pragma once

#include "host/instruments/KeptInstrument.h"
#include "host/instruments/SimulatedAcquisition.h"

namespace ko {

/// An instrument without a device: it computes what it measures.
class SimulatedInstrument final : public KeptInstrument {
public:
    explicit SimulatedInstrument(InstrumentSettings settings) : KeptInstrument(std::move(settings))
    {
        if (held().timebase)
            acquisition_.emplace(held());
    }

    [[nodiscard]] Acquisition* acquisition() override { return acquisition_ ? &*acquisition_ : nullptr; }

private:
    std::optional<SimulatedAcquisition> acquisition_;
};

} // namespace ko
