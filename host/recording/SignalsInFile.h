#pragma once

#include "host/recording/ChartSource.h"
#include "host/recording/Hdf5.h"

namespace ko {

/// A channel's dataset in a recording's file.
struct SignalInFile {
    Hdf5Dataset dataset;
    ChartChannel channel;
    double start = 0.0; ///< of the first sample, seconds after the start of the recording
    std::int64_t samples = 0;
    std::int64_t clipped = 0;
};

/// What a recording's file holds for charts, without the samples.
struct SignalsInFile {
    std::vector<SignalInFile> signals; ///< in the order of the set-up
    std::optional<double> trigger;     ///< seconds after the start of the recording
    std::vector<Marker> markers;
};

/// Reads a file of the library. Fails with a `LibraryFailure`.
SignalsInFile signalsInFile(hid_t file);

} // namespace ko
