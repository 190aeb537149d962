#pragma once

#include "modules/sigrok/SigrokInstrument.h"

#include "fakes/Tape.h"
#include "fakes/Thrown.h"
#include "interfaces/Timebase.h"

namespace ko::sigrok {

using test::Tape;
using test::thrownBy;

/// libsigrok with an instrument on its demonstration device.
struct Demo {
    explicit Demo(const DeviceOptions& options = {}, const std::string& device = "demo")
        : instrument(SigrokInstrument::open(library, device, options))
    {
        change([](InstrumentSettings& it) { it.timebase->samplePeriod.value = 1e-4; });
    }
    Demo(const Demo&) = delete;
    Demo& operator=(const Demo&) = delete;

    template <class Change> void change(const Change& act) const
    {
        InstrumentSettings settings = instrument->held();
        act(settings);
        instrument->restore(settings);
    }
    [[nodiscard]] Acquisition& acquisition() const { return *instrument->acquisition(); }
    [[nodiscard]] Timebase& timebase() const { return *instrument->driver().queryTimebase(); }

    /// Arms and acquires to the end.
    void acquire(Tape& kept, std::int64_t samples, bool onTrigger = false) const
    {
        acquisition().arm();
        start(kept, samples, onTrigger);
        kept.awaitEnd();
        acquisition().stop();
    }
    void start(Tape& kept, std::int64_t samples, bool onTrigger = false, double patience = 60.0) const
    {
        acquisition().start({.origin = std::chrono::steady_clock::now(),
                             .samples = samples,
                             .onTrigger = onTrigger,
                             .patience = patience},
                            kept);
    }

    std::shared_ptr<Library> library = std::make_shared<Library>();
    std::unique_ptr<Instrument> instrument;
};

} // namespace ko::sigrok
